#include "cimom/operations/CimRequest.h"

#include <gtest/gtest.h>

#include "cimom/operations/ProtocolError.h"
#include "tests/cimom/support/Requests.h"

namespace cimom {
namespace {

using test::classNameXml;
using test::extrinsicMessage;
using test::instanceNameXml;
using test::intrinsicMessage;
using test::keyXml;

/// "400 request-not-valid" and the like.
std::string refusalOf(const std::string& body) {
    pugi::xml_document document;
    try {
        CimRequest::read(body, document);
    } catch (const ProtocolError& error) {
        return std::to_string(error.status()) + " " + error.cimError();
    }
    return "";
}

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    return text.replace(text.find(what), what.size(), with);
}

TEST(CimRequest, ReadsAnIntrinsicCall) {
    pugi::xml_document document;
    const auto request = CimRequest::read(
        intrinsicMessage("GetClass", {{"ClassName", classNameXml("C")}, {"LocalOnly", ""}}, "root/a/b"),
        document);
    EXPECT_TRUE(request.intrinsic);
    EXPECT_EQ(request.messageId, "42");
    EXPECT_EQ(request.operation, "GetClass");
    EXPECT_EQ(request.nameSpace, "root/a/b");
    ASSERT_EQ(request.arguments.size(), 2U);
    EXPECT_EQ(request.arguments[0].name, "ClassName");
    EXPECT_STREQ(request.arguments[0].value.name(), "CLASSNAME");
    EXPECT_FALSE(request.arguments[1].value);
    EXPECT_EQ(request.className(), "C");
}

TEST(CimRequest, NamesTheClassOfAnInstanceName) {
    pugi::xml_document document;
    const auto request = CimRequest::read(
        intrinsicMessage("GetInstance", {{"InstanceName", instanceNameXml("C", keyXml("a", "1"))}}),
        document);
    EXPECT_EQ(request.className(), "C");
}

TEST(CimRequest, NamesNoClassWhereThereIsNone) {
    pugi::xml_document document;
    EXPECT_EQ(CimRequest::read(intrinsicMessage("EnumerateClassNames", {}), document).className(), "");
}

TEST(CimRequest, ReadsAnExtrinsicCallOnAnInstanceAndOnAClass) {
    pugi::xml_document document;
    auto request = CimRequest::read(
        extrinsicMessage("M", instanceNameXml("C", keyXml("a", "1")), {{"P", "<VALUE>1</VALUE>"}}), document);
    EXPECT_FALSE(request.intrinsic);
    EXPECT_TRUE(request.target.isInstance);
    EXPECT_EQ(request.className(), "C");
    EXPECT_EQ(request.nameSpace, "root/cimv2");
    EXPECT_EQ(request.arguments.size(), 1U);
    pugi::xml_document other;
    request = CimRequest::read(extrinsicMessage("M", classNameXml("C"), {}), other);
    EXPECT_FALSE(request.target.isInstance);
}

TEST(CimRequest, TakesTheTypeOfAnArgumentFromEitherAttribute) {
    pugi::xml_document document;
    const auto request =
        CimRequest::read(replaced(extrinsicMessage("M", classNameXml("C"), {{"P", ""}, {"Q", ""}}),
                                  "NAME=\"P\"", "NAME=\"P\" TYPE=\"uint8\""),
                         document);
    EXPECT_EQ(request.arguments[0].type, "uint8");
    EXPECT_EQ(request.arguments[1].type, "");
}

TEST(CimRequest, RefusesBrokenXml) {
    EXPECT_EQ(refusalOf(""), "400 request-not-well-formed");
    EXPECT_EQ(refusalOf("<CIM"), "400 request-not-well-formed");
    EXPECT_EQ(refusalOf(intrinsicMessage("GetClass", {{"a", "a & b"}})), "400 request-not-well-formed");
}

TEST(CimRequest, RefusesOtherVersions) {
    const std::string good = intrinsicMessage("GetClass", {});
    EXPECT_EQ(refusalOf(replaced(good, "CIMVERSION=\"2.0\"", "CIMVERSION=\"3.0\"")),
              "501 unsupported-cim-version");
    EXPECT_EQ(refusalOf(replaced(good, "DTDVERSION=\"2.0\"", "DTDVERSION=\"1.0\"")),
              "501 unsupported-dtd-version");
    EXPECT_EQ(refusalOf(replaced(good, "PROTOCOLVERSION=\"1.0\"", "PROTOCOLVERSION=\"2.0\"")),
              "501 unsupported-protocol-version");
}

TEST(CimRequest, MindsOnlyMajorVersions) {
    std::string message =
        replaced(intrinsicMessage("GetClass", {}), "CIMVERSION=\"2.0\"", "CIMVERSION=\"2.8\"");
    message = replaced(message, "DTDVERSION=\"2.0\"", "DTDVERSION=\"2.4\"");
    EXPECT_EQ(refusalOf(replaced(message, "PROTOCOLVERSION=\"1.0\"", "PROTOCOLVERSION=\"1.4\"")), "");
}

TEST(CimRequest, RefusesSeveralRequestsInOneMessage) {
    EXPECT_EQ(refusalOf(replaced(intrinsicMessage("GetClass", {}), "<SIMPLEREQ>", "<MULTIREQ/><SIMPLEREQ>")),
              "501 multiple-requests-unsupported");
}

TEST(CimRequest, RefusesMessagesWithPartsMissing) {
    const std::string intrinsic = intrinsicMessage("GetClass", {{"ClassName", classNameXml("C")}});
    const std::string extrinsic = extrinsicMessage("M", classNameXml("C"), {});
    const char* const kNotValid = "400 request-not-valid";
    EXPECT_EQ(refusalOf("<A/>"), kNotValid);
    EXPECT_EQ(refusalOf(replaced(intrinsic, " ID=\"42\"", "")), kNotValid);
    EXPECT_EQ(refusalOf(replaced(intrinsic, " CIMVERSION=\"2.0\"", "")), kNotValid);
    EXPECT_EQ(refusalOf(replaced(intrinsic, " NAME=\"GetClass\"", "")), kNotValid);
    EXPECT_EQ(refusalOf(replaced(intrinsic, " NAME=\"ClassName\"", "")), kNotValid);
    EXPECT_EQ(refusalOf(replaced(intrinsic, "<NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/>", "")),
              kNotValid);
    EXPECT_EQ(refusalOf(replaced(extrinsic, " NAME=\"M\"", "")), kNotValid);
    EXPECT_EQ(refusalOf(replaced(extrinsic, "<CLASSNAME NAME=\"C\"/>", "")), kNotValid);
    EXPECT_EQ(refusalOf(test::message("")), kNotValid);
    EXPECT_EQ(refusalOf(test::message("<METHODCALL NAME=\"M\"/>")), kNotValid);
    EXPECT_EQ(refusalOf("<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION/></CIM>"), kNotValid);
}

}  // namespace
}  // namespace cimom
