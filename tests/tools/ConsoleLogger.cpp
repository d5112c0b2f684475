#include "tools/console/ConsoleLogger.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tool {

namespace {

class ConsoleLoggerTest : public ::testing::Test {
protected:
    std::string said() const { return error_.str(); }

    std::ostringstream error_;
    Progress progress_{error_, false, 0};
    Notices notices_{error_, progress_};
};

}  // namespace

TEST_F(ConsoleLoggerTest, SaysErrorsAndCountsThem) {
    ConsoleLogger(notices_, false).Log(0, "CimHTTP: CIM name 'a b' is invalid");
    EXPECT_EQ(said(), "cimhttp: CimHTTP: CIM name 'a b' is invalid\n");
    EXPECT_EQ(notices_.failures(), 1U);
}

TEST_F(ConsoleLoggerTest, KeepsTraceLinesToItself) {
    ConsoleLogger logger(notices_, false);
    logger.Log(3, "Entering TCimHTTPNamespace::EnumerateClassNames");
    logger.Log(3, "CIMException in PegClient::GetClass(): no");
    logger.Log(3, "4TCimHTTPClass::EnumerateInstances - Unable to retrieve property: Speed");
    EXPECT_EQ(said(), "");
    EXPECT_EQ(notices_.failures(), 0U);
}

TEST_F(ConsoleLoggerTest, ShowsTraceLinesOnRequestEachTime) {
    ConsoleLogger logger(notices_, true);
    logger.Log(3, "DEBUG: two\nlines\n");
    logger.Log(3, "DEBUG: two\nlines\n");
    logger.Log(3, "CIMException in PegClient::GetClass(): \x1b[2J");
    EXPECT_EQ(said(),
              "DEBUG: two\\nlines\nDEBUG: two\\nlines\nCIMException in PegClient::GetClass(): \\x1b[2J\n");
    EXPECT_EQ(notices_.failures(), 0U);
}

}  // namespace tool
