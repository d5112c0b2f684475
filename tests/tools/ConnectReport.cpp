#include "tools/ConnectReport.h"

#include <gtest/gtest.h>

namespace tool {

namespace {

ClientFailure failed(const std::string& operation, const std::string& message) {
    return {"CannotConnectException", operation, message};
}

}  // namespace

TEST(ConnectReport, ANodeWithoutFailuresSpeaksHttps) {
    ConnectReport report(1);
    report.beginNode();
    report.finish(Transport::kAuto);
    EXPECT_TRUE(report.outcomes()[0].reached);
    EXPECT_TRUE(report.outcomes()[0].overHttps);
}

TEST(ConnectReport, TellsWhichOfSeveralNodesFailedAndHow) {
    ConnectReport report(3);
    report.beginNode();
    report.beginNode();
    report.add(failed("HTTPSConnect", "no TLS"));
    report.beginNode();
    report.add(failed("HTTPSConnect", "no TLS"));
    report.add(failed("HTTPConnect", "nobody"));
    report.finish(Transport::kAuto);
    EXPECT_TRUE(report.outcomes()[0].overHttps);
    EXPECT_TRUE(report.outcomes()[1].reached);
    EXPECT_FALSE(report.outcomes()[1].overHttps);
    EXPECT_FALSE(report.outcomes()[2].reached);
    EXPECT_EQ(report.outcomes()[2].httpFailure, "nobody");
}

TEST(ConnectReport, OneProtocolHasNoOtherToFallBackOn) {
    ConnectReport https(1);
    https.beginNode();
    https.add(failed("HTTPSConnect", "no TLS"));
    https.finish(Transport::kHttps);
    EXPECT_FALSE(https.outcomes()[0].reached);

    ConnectReport http(1);
    http.beginNode();
    http.finish(Transport::kHttp);
    EXPECT_TRUE(http.outcomes()[0].reached);
    EXPECT_FALSE(http.outcomes()[0].overHttps);
}

TEST(ConnectReport, ANodeThatWasNeverTriedIsNotReached) {
    ConnectReport report(2);
    report.beginNode();
    report.finish(Transport::kAuto);
    EXPECT_FALSE(report.outcomes()[1].reached);
}

}  // namespace tool
