// Each limit with an answer just below it and one just above.

#include "cimxml/wire/Limits.h"

#include <gtest/gtest.h>

#include <string>

#include "cimxml/client/CIMClientRep.h"
#include "tests/cimxml/wire_Outcome.h"
#include "tests/cimxml/wire_ScriptedServer.h"

namespace cimxml_test {
namespace {

const std::string head = "HTTP/1.1 200 OK\r\nCIMOperation: MethodResponse\r\n";

std::string envelope(const std::string& method, const std::string& content) {
    return "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"{ID}\" "
           "PROTOCOLVERSION=\"1.0\"><SIMPLERSP>"
           "<IMETHODRESPONSE NAME=\"" +
           method + "\"><IRETURNVALUE>" + content +
           "</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>";
}

std::string withLength(const std::string& fields, const std::string& body) {
    return head + fields + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

std::string answer(const std::string& content) {
    return withLength("", envelope("GetInstance", content));
}

/// Outcome of a GetInstance that is answered with `bytes`.
std::string outcome(const cimxml::Limits& limits, const std::string& bytes) {
    ScriptedServer server({Exchange(bytes)});
    Pegasus::CIMClientRep client(limits);
    client.connect(server.connector(), "h", 1, "", "");
    return outcomeOf(client, {"getInstance root A.k=1"});
}

const std::string smallest = "<INSTANCE CLASSNAME=\"A\"/>";
const std::string good = "instance A at A\n";

TEST(Limits, Header) {
    cimxml::Limits limits;
    limits.headerBytes = 1024;
    const auto withField = [](std::size_t size) {
        return withLength("X: " + std::string(size, 'x') + "\r\n", envelope("GetInstance", smallest));
    };
    EXPECT_EQ(outcome(limits, withField(800)), good);
    EXPECT_EQ(outcome(limits, withField(1024)),
              "throws CIMClientMalformedHTTPException: HTTP header of the answer exceeds 1024 bytes.\n");
}

TEST(Limits, HeaderThatNeverEnds) {
    EXPECT_EQ(outcome(cimxml::Limits(), head + "X: " + std::string(1U << 20U, 'x')),
              "throws CIMClientMalformedHTTPException: HTTP header of the answer exceeds 65536 bytes.\n");
}

TEST(Limits, TrailerThatNeverEnds) {
    EXPECT_EQ(outcome(cimxml::Limits(), head + "Transfer-Encoding: chunked\r\n\r\n1\r\nx\r\n0\r\nX: " +
                                            std::string(1U << 20U, 'x')),
              "throws CIMClientMalformedHTTPException: HTTP header of the answer exceeds 65536 bytes.\n");
}

TEST(Limits, ChunkHeaderThatNeverEnds) {
    EXPECT_EQ(outcome(cimxml::Limits(),
                      head + "Transfer-Encoding: chunked\r\n\r\n1;x=" + std::string(1U << 20U, 'x')),
              "throws CIMClientMalformedHTTPException: HTTP header of the answer exceeds 65536 bytes.\n");
}

TEST(Limits, Body) {
    const std::string body = envelope("GetInstance", smallest);
    cimxml::Limits limits;
    limits.bodyBytes = body.size();
    const std::string tooLong = "throws CIMClientMalformedHTTPException: HTTP body of the answer exceeds " +
                                std::to_string(body.size()) + " bytes.\n";
    EXPECT_EQ(outcome(limits, withLength("", body)), good);
    EXPECT_EQ(outcome(limits, withLength("", body + " ")), tooLong);
    EXPECT_EQ(outcome(limits, head + "Transfer-Encoding: chunked\r\n\r\nfffff\r\n"), tooLong);
    EXPECT_EQ(outcome(limits, head + "\r\n" + body + std::string(body.size(), ' ')), tooLong)
        << "a body that ends with the connection";
}

TEST(Limits, BodyThatReplacedCharactersMakeLonger) {
    const auto withValue = [](const std::string& value) {
        return envelope("GetInstance",
                        "<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"P\" TYPE=\"string\"><VALUE>" + value +
                            "</VALUE></PROPERTY></INSTANCE>");
    };
    const std::string body = withValue(std::string(20, '\xE4'));
    cimxml::Limits limits;
    limits.bodyBytes = body.size() + 40;
    EXPECT_EQ(outcome(limits, withLength("", body)).rfind(good + "  string P = ", 0), 0U);
    limits.bodyBytes = body.size() + 39;
    const std::string text = outcome(limits, withLength("", body));
    EXPECT_NE(text.find(": the answer has too many bytes that are no character"), std::string::npos) << text;
}

TEST(Limits, ElementsAndAttributes) {
    const std::string properties = "<PROPERTY NAME=\"P\" TYPE=\"string\"/>";
    const std::string content = "<INSTANCE CLASSNAME=\"A\">" + properties + "</INSTANCE>";
    cimxml::Limits limits;
    limits.xmlNodes = 15;  // 7 elements and 8 attributes
    EXPECT_EQ(outcome(limits, answer(content)), good + "  string P = null\n");
    limits.xmlNodes = 14;
    const std::string text = outcome(limits, answer(content));
    EXPECT_EQ(text.rfind("throws CIMClientXmlException: XML at offset ", 0), 0U) << text;
    EXPECT_NE(text.find("exceeds the limit on elements and attributes"), std::string::npos) << text;
}

TEST(Limits, ElementsAndAttributesOfOneTree) {
    cimxml::Limits limits;
    limits.treeNodes = 12;
    EXPECT_EQ(outcome(limits, answer(smallest)), good);
    limits.treeNodes = 11;
    EXPECT_EQ(outcome(limits, answer(smallest)),
              "throws CIMClientXmlException: XML at offset 0: the answer exceeds the limit on elements and "
              "attributes in one tree\n");
}

TEST(Limits, ElementsOfEmbeddedObjectsCountToo) {
    const std::string content =
        "<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"P\" TYPE=\"string\" EmbeddedObject=\"object\"><VALUE>"
        "&lt;INSTANCE CLASSNAME='B'>" +
        replaceAll(std::string(20, '#'), "#", "&lt;x/>") + "&lt;/INSTANCE></VALUE></PROPERTY></INSTANCE>";
    cimxml::Limits limits;
    limits.xmlNodes = 30;
    EXPECT_NE(outcome(limits, answer(content)).find("exceeds the limit on elements and attributes"),
              std::string::npos);
}

std::string nested(int levels) {
    std::string open;
    std::string close;
    for (int i = 0; i < levels; ++i) {
        open += "<INSTANCENAME CLASSNAME=\"R\"><KEYBINDING NAME=\"k\"><VALUE.REFERENCE>";
        close = "</VALUE.REFERENCE></KEYBINDING></INSTANCENAME>" + close;
    }
    return "<INSTANCE CLASSNAME=\"A\"><PROPERTY.REFERENCE NAME=\"P\"><VALUE.REFERENCE>" + open +
           "<INSTANCENAME CLASSNAME=\"E\"/>" + close + "</VALUE.REFERENCE></PROPERTY.REFERENCE></INSTANCE>";
}

TEST(Limits, Depth) {
    cimxml::Limits limits;
    limits.xmlDepth = 12;  // five around the instance, it and the reference three, three a level, one
    EXPECT_EQ(outcome(limits, answer(nested(1))).substr(0, good.size()), good);
    const std::string text = outcome(limits, answer(nested(2)));
    EXPECT_NE(text.find("elements are nested more than 12 deep"), std::string::npos) << text;
}

TEST(Limits, DepthWithoutEnd) {
    std::string deep;
    for (int i = 0; i < 300000; ++i) {
        deep += "<a>";
    }
    for (int i = 0; i < 300000; ++i) {
        deep += "</a>";
    }
    EXPECT_NE(outcome(cimxml::Limits(), answer(deep)).find("elements are nested more than 128 deep"),
              std::string::npos);
}

/// An instance inside an instance, `levels` times.
std::string embedded(int levels) {
    if (levels == 0) {
        return "<INSTANCE CLASSNAME=\"A\"/>";
    }
    std::string inner = replaceAll(embedded(levels - 1), "&", "&amp;");
    inner = replaceAll(inner, "<", "&lt;");
    return "<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"P\" TYPE=\"string\" "
           "EmbeddedObject=\"object\"><VALUE>" +
           inner + "</VALUE></PROPERTY></INSTANCE>";
}

TEST(Limits, EmbeddedObjects) {
    cimxml::Limits limits;
    limits.embeddedLevels = 3;
    EXPECT_EQ(outcome(limits, answer(embedded(3))).substr(0, good.size()), good);
    const std::string text = outcome(limits, answer(embedded(4)));
    EXPECT_NE(text.find("expected at most 3 embedded objects inside each other"), std::string::npos) << text;
}

}  // namespace
}  // namespace cimxml_test
