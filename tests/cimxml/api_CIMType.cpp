#include <Pegasus/Common/CIMType.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(CIMType, HasTheKnownNumbers) {
    EXPECT_EQ(CIMTYPE_BOOLEAN, 0);
    EXPECT_EQ(CIMTYPE_UINT64, 7);
    EXPECT_EQ(CIMTYPE_CHAR16, 11);
    EXPECT_EQ(CIMTYPE_STRING, 12);
    EXPECT_EQ(CIMTYPE_REFERENCE, 14);
    EXPECT_EQ(CIMTYPE_INSTANCE, 16);
}

TEST(CIMType, HasKeywords) {
    const char* const keywords[] = {"boolean", "uint8",    "sint8",     "uint16", "sint16",  "uint32",
                                    "sint32",  "uint64",   "sint64",    "real32", "real64",  "char16",
                                    "string",  "datetime", "reference", "object", "instance"};
    int number = 0;
    for (const char* keyword : keywords)
        EXPECT_STREQ(cimTypeToString(CIMType(number++)), keyword);
    EXPECT_EQ(number, CIMTYPE_INSTANCE + 1);
}
