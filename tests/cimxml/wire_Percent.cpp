#include "cimxml/wire/Percent.h"

#include <gtest/gtest.h>

namespace cimxml_test {
namespace {

using cimxml::percentDecode;
using cimxml::percentEncode;

TEST(Percent, LeavesUnreservedCharacters) {
    EXPECT_EQ(percentEncode("azAZ09-._~!'()*"), "azAZ09-._~!'()*");
}

TEST(Percent, EncodesEverythingElseByteByByte) {
    EXPECT_EQ(percentEncode("root/cimv2:A.k=\"x y\""), "root%2Fcimv2%3AA.k%3D%22x%20y%22");
    EXPECT_EQ(percentEncode("\xC3\xA4%\r\n"), "%C3%A4%25%0D%0A");
}

TEST(Percent, DecodesEitherLetterCase) {
    EXPECT_EQ(percentDecode("a%20b%c3%A4"), "a b\xC3\xA4");
}

TEST(Percent, LeavesWhatIsNoEscape) {
    EXPECT_EQ(percentDecode("100%"), "100%");
    EXPECT_EQ(percentDecode("%4"), "%4");
    EXPECT_EQ(percentDecode("%zz%41"), "%zzA");
}

TEST(Percent, ComesBackForEveryByte) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    EXPECT_EQ(percentDecode(percentEncode(all)), all);
}

}  // namespace
}  // namespace cimxml_test
