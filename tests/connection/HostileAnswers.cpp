// What a server may send instead of an answer, whether it is broken or means harm: none of it costs the host
// more than the request, and the same request is answered afterwards.

#include <gmock/gmock.h>

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "provider/contract/PegText.h"
#include "tests/support/Declarations.h"
#include "tests/support/PeakMemory.h"
#include "tests/support/PluginTest.h"
#include "tests/support/RawAnswers.h"
#include "vskcore/ICIMClass.h"

namespace NQELVSK20 {
namespace {

using ::testing::HasSubstr;

constexpr std::size_t kMegabyte = 1024U * 1024;

/// What comes instead of an answer to GetClass, and what the log says of it.
struct HostileAnswer {
    const char* name;
    std::function<std::string(unsigned long messageId)> answer;
    const char* logged;
};

void PrintTo(const HostileAnswer& answer, std::ostream* out) {
    *out << answer.name;
}

std::string Repeated(std::size_t times, const std::string& text) {
    std::string all;
    all.reserve(times * text.size());
    for (std::size_t i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

std::string Http(const std::string& fields, const std::string& body = "") {
    return "HTTP/1.1 200 OK\r\nCIMOperation: MethodResponse\r\n" + fields + "\r\n" + body;
}

HostileAnswer Raw(const char* name, const std::string& text, const char* logged) {
    return {name, [text](unsigned long) { return text; }, logged};
}

/// A whole answer with a CLASS element of these members.
HostileAnswer Class(const char* name, const std::string& members, const char* logged) {
    return {name,
            [members](unsigned long messageId) {
                return GetClassAnswer(messageId, ClassXml("T_A", "", members));
            },
            logged};
}

std::vector<HostileAnswer> HttpAnswers() {
    return {
        Raw("HeaderWithoutEnd", Http("X: " + std::string(kMegabyte, 'x')), "header"),
        Raw("AMillionFields", Http(Repeated(1000000, "X: y\r\n")), "header"),
        Raw("TwoLengths", Http("Content-Length: 1\r\nContent-Length: 2\r\n", "xx"), "Content-Length"),
        Raw("NegativeLength", Http("Content-Length: -1\r\n"), "Content-Length"),
        Raw("LengthAndChunks", Http("Content-Length: 5\r\nTransfer-Encoding: chunked\r\n", "0\r\n\r\n"),
            "Transfer-Encoding"),
        Raw("TwoGigabytesAnnounced", Http("Content-Length: 2147483648\r\n"), "exceeds 1073741824 bytes"),
        Raw("ChunkOfTwoGigabytes", Http("Transfer-Encoding: chunked\r\n", "80000000\r\n"),
            "exceeds 1073741824 bytes"),
        Raw("ChunkSizeBeyondEverything", Http("Transfer-Encoding: chunked\r\n", "FFFFFFFFFFFFFFFFF\r\n"),
            "chunk"),
        Raw("ChunkExtensionWithoutEnd",
            Http("Transfer-Encoding: chunked\r\n", "1;" + std::string(kMegabyte, 'x')), "header"),
        Raw("ManyChunkExtensions",
            Http("Transfer-Encoding: chunked\r\n", Repeated(100000, "1;a=b\r\nx\r\n") + "0\r\n\r\n"),
            "XML at offset"),
        Raw("TrailerWithoutEnd",
            Http("Transfer-Encoding: chunked\r\n", "0\r\nX: " + std::string(kMegabyte, 'x')), "header"),
        Raw("AThousandInterimAnswers", Repeated(1000, "HTTP/1.1 100 Continue\r\n\r\n"), "timed out"),
        Raw("Redirect",
            "HTTP/1.1 302 Found\r\nLocation: http://elsewhere.example/\r\nContent-Length: 0\r\n\r\n",
            "HTTP Error (302 Found)"),
        Raw("UnknownCoding", Http("Transfer-Encoding: gzip\r\nContent-Length: 3\r\n", "abc"), "unknown"),
        Raw("NoHttp", std::string(1000, '\0'), "HTTP"),
        Raw("Nothing", "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n", "Missing"),
    };
}

std::vector<HostileAnswer> XmlAnswers() {
    return {
        Class("AHundredThousandNestedElements", Repeated(100000, "<A>") + Repeated(100000, "</A>"), "nested"),
        Class("ElementsThatDoNotEnd", Repeated(100000, "<A>"), "end tag"),
        Class("DuplicateAttributes", "<PROPERTY NAME=\"P\" NAME=\"Q\" TYPE=\"string\"/>",
              "each attribute once"),
        Class("NameThatIsNone", PropertyXml("a b", "string"), "name"),
        Class("ValueOutOfRange", PropertyXml("P", "uint8", "256"), "uint8"),
        Class("TypeThatIsNone", PropertyXml("P", "uint7", "1"), "type"),
        Class("NulInAName", PropertyXml(std::string("a\0b", 3), "string"), "U+0000"),
        Class("PropertyTwice", PropertyXml("P", "string") + PropertyXml("p", "string"), "P"),
        {"AnswerToAnotherRequest",
         [](unsigned long messageId) { return GetClassAnswer(messageId + 1000, ClassXml("T_A", "")); },
         "message ID"},
        {"AnswerOfAnotherKind",
         [](unsigned long messageId) {
             std::string answer = GetClassAnswer(messageId, ClassXml("T_A", ""));
             const std::string kind = "NAME=\"GetClass\"";
             return answer.replace(answer.find(kind), kind.size(), "NAME=\"GetClazz\"");
         },
         "message type"},
    };
}

class HostileMachineTest : public PluginTest {
protected:
    HostileMachineTest() : machine_(Bare()) {
        machine_.Repository(0).addDeclarations("root/cimv2", Declarations({ClassXml("T_A", "")}), "classes");
    }

    static TestMachine::Options Bare() {
        TestMachine::Options options;
        options.sampleData = false;
        return options;
    }

    void Inject(const std::string& answer) {
        cimom::Fault fault;
        fault.kind = cimom::Fault::Kind::RawAnswer;
        fault.operation = "GetClass";
        fault.times = 1;
        fault.text = answer;
        machine_.Server().inject(fault);
    }

    TestMachine machine_;
};

class HostileAnswersTest : public HostileMachineTest, public ::testing::WithParamInterface<HostileAnswer> {
protected:
    /// Two answers: the plug-in tries a request that failed once more. Gives the size of one.
    std::size_t Answer(unsigned long messageId) {
        Inject(GetParam().answer(messageId + 1));
        Inject(GetParam().answer(messageId + 2));
        return GetParam().answer(messageId).size();
    }
};

TEST_P(HostileAnswersTest, CostTheRequestAndNothingElse) {
    const auto nameSpace = Connected(machine_);
    shortened_ = 300;  // for what waits for more
    const std::size_t size = Answer(LastMessageId(machine_, *nameSpace->getPegClient()));
    machine_.ClearRequests();
    log_.Clear();

    const support::PeakMemory memory;
    EXPECT_FALSE(nameSpace->GetClass("T_A", TContext()));
    RecordProperty("kilobytes", std::to_string(memory.growth() / 1024));
    RecordProperty("answer", std::to_string(size / 1024));
#if !defined(__SANITIZE_ADDRESS__)
    EXPECT_LT(memory.growth(), 8 * kMegabyte + 4 * size);
#endif

    EXPECT_EQ(machine_.Requests().size(), 2U) << "the documented attempts";
    const auto lines = log_.Lines();
    std::string told;
    for (const auto& line : lines) {
        if (line.second.find(" in PegClient::GetClass(): ") != std::string::npos) {
            told += line.second + "\n";
        }
    }
    EXPECT_THAT(told, HasSubstr(GetParam().logged));
    EXPECT_LT(told.size(), 4096U) << "however much was sent";
    RecordProperty("told", told.substr(0, told.find('\n')));

    shortened_.reset();
    EXPECT_TRUE(nameSpace->GetClass("T_A", TContext())) << "the namespace has lost nothing";
}

// When each addition takes as long as all before it, this one takes minutes, and its time as a test is over.
TEST_F(HostileMachineTest, AClassOfFourHundredThousandPropertiesIsAnAnswer) {
    constexpr std::size_t count = 400000;
    const auto nameSpace = Connected(machine_);
    std::string members;
    for (std::size_t i = 0; i < count; ++i) {
        members += PropertyXml("P" + std::to_string(i), "string");
    }
    Inject(GetClassAnswer(LastMessageId(machine_, *nameSpace->getPegClient()) + 1,
                          ClassXml("T_A", "", members)));
    const auto definition =
        nameSpace->getPegClient()->GetClass("root/cimv2", "T_A", 60000, true, true, false, {});
    ASSERT_FALSE(definition.isUninitialized());
    EXPECT_EQ(definition.getPropertyCount(), count);
    EXPECT_EQ(definition.findProperty(Pegasus::CIMName("p99999")), 99999U);
}

/// What stands before the answer's first element, and the default value of a property that the class then
/// has.
class OddAnswersTest : public HostileMachineTest,
                       public ::testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(OddAnswersTest, AreReadAsTheyStandAndNothingIsFetchedOrExpanded) {
    const auto nameSpace = Connected(machine_);
    const unsigned long messageId = LastMessageId(machine_, *nameSpace->getPegClient()) + 1;
    const auto& [prologue, value] = GetParam();
    const std::string answer =
        GetClassAnswer(messageId, ClassXml("T_A", "", PropertyXml("P", "string", value)));
    const std::string xml = prologue + answer.substr(answer.find("<CIM "));
    Inject(Http("Content-Length: " + std::to_string(xml.size()) + "\r\n", xml));

    const support::PeakMemory memory;
    const auto definition =
        nameSpace->getPegClient()->GetClass("root/cimv2", "T_A", 5000, true, true, false, {});
    ASSERT_FALSE(definition.isUninitialized());
    EXPECT_EQ(ToText(definition.getProperty(0).getValue().toString()), value);
#if !defined(__SANITIZE_ADDRESS__)
    EXPECT_LT(memory.growth(), 8 * kMegabyte);
#endif
}

INSTANTIATE_TEST_SUITE_P(
    Prologues, OddAnswersTest,
    ::testing::Values(
        std::make_pair("<?xml version=\"1.0\" encoding=\"UTF-16\"?>", "x"),
        std::make_pair(
            "<!DOCTYPE CIM [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
            "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">]>",
            "&c;"),
        std::make_pair("<!DOCTYPE CIM [<!ENTITY f SYSTEM \"file:///etc/passwd\">]>", "&f;")));

INSTANTIATE_TEST_SUITE_P(Http, HostileAnswersTest, ::testing::ValuesIn(HttpAnswers()),
                         [](const auto& tested) { return std::string(tested.param.name); });
INSTANTIATE_TEST_SUITE_P(Xml, HostileAnswersTest, ::testing::ValuesIn(XmlAnswers()),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace NQELVSK20
