#include <Pegasus/Common/SSLContext.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(ModelSSLContext, HoldsRevocationListsWhenThereIsAPath) {
    const SSLContext without(String(), nullptr);
    EXPECT_EQ(utf8(without.getCRLPath()), "");
    EXPECT_EQ(without.getCRLStore(), nullptr);
    const SSLContext with(String(), String(), String(), String("/nonexistent/list.pem"), nullptr, String());
    EXPECT_EQ(utf8(with.getCRLPath()), "/nonexistent/list.pem");
    EXPECT_NE(with.getCRLStore(), nullptr);
    const SSLContext copy(with);
    EXPECT_EQ(copy.getCRLStore(), with.getCRLStore());
}
