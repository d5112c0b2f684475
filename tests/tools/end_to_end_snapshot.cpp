// A machine as a file: written by the program, served again by the embedded server.

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "cimom/snapshot/Gzip.h"
#include "cimom/snapshot/Snapshot.h"
#include "tests/support/Declarations.h"
#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"
#include "tests/tools/support/TemporaryFolder.h"

namespace tool {

namespace {

using NQELVSK20::ClassXml;
using NQELVSK20::Declarations;
using NQELVSK20::InstanceXml;
using NQELVSK20::KeyXml;
using NQELVSK20::PropertyXml;
using NQELVSK20::TestMachine;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace fs = std::filesystem;

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    return names;
}

/// The machine of a snapshot, at the addresses of the machine that it was taken of.
class SnapshotMachine {
public:
    explicit SnapshotMachine(const std::string& file) {
        for (const auto& repository : cimom::readSnapshot(contentOf(file), file)) {
            cimom::Endpoint endpoint;
            endpoint.address = TestMachine::AddressOf(nodes_++);
            endpoint.port = 5989;
            endpoint.tls = true;
            endpoint.repository = repository;
            server_.listen(endpoint);
        }
        server_.start();
    }

    std::size_t nodes() const { return nodes_; }

private:
    cimom::Server server_;
    std::size_t nodes_ = 0;
};

std::vector<std::string> asking(std::size_t nodes, std::vector<std::string> arguments) {
    for (std::size_t i = nodes; i > 0; --i) {
        arguments.insert(arguments.begin(), {"--node", TestMachine::AddressOf(i - 1)});
    }
    return arguments;
}

std::string answersOf(std::size_t nodes, const std::vector<std::vector<std::string>>& questions) {
    std::string answers;
    for (const std::vector<std::string>& question : questions) {
        const Outcome outcome = run(asking(nodes, question));
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        answers += outcome.out + outcome.err;
    }
    return answers;
}

class SnapshotCommand : public ::testing::Test {
protected:
    Outcome takeSnapshot(std::size_t nodes) const { return run(asking(nodes, {"snapshot", file()})); }

    std::string file() const { return (folder_.path() / "machine.cim.gz").string(); }
    const fs::path& folder() const { return folder_.path(); }

private:
    const TemporaryFolder folder_;
};

const char* const kValues =
    "<PROPERTY NAME='Id' TYPE='string'><VALUE>a &lt;&amp;&gt; &quot;b&quot;&#9;c&#10;d </VALUE></PROPERTY>"
    "<PROPERTY NAME='Text' TYPE='string'><VALUE>  Überlauf &#x1F525;</VALUE></PROPERTY>"
    "<PROPERTY NAME='Empty' TYPE='string'><VALUE></VALUE></PROPERTY>"
    "<PROPERTY NAME='Null' TYPE='string'/>"
    "<PROPERTY NAME='Flag' TYPE='boolean'><VALUE>TRUE</VALUE></PROPERTY>"
    "<PROPERTY NAME='Small' TYPE='sint8'><VALUE>-128</VALUE></PROPERTY>"
    "<PROPERTY NAME='Large' TYPE='uint64'><VALUE>18446744073709551615</VALUE></PROPERTY>"
    "<PROPERTY NAME='Single' TYPE='real32'><VALUE>0.1</VALUE></PROPERTY>"
    "<PROPERTY NAME='Double' TYPE='real64'><VALUE>1.0e300</VALUE></PROPERTY>"
    "<PROPERTY NAME='When' TYPE='datetime'><VALUE>20240912075820.000000+120</VALUE></PROPERTY>"
    "<PROPERTY NAME='Letter' TYPE='char16'><VALUE>&lt;</VALUE></PROPERTY>"
    "<PROPERTY.ARRAY NAME='None' TYPE='uint16'><VALUE.ARRAY></VALUE.ARRAY></PROPERTY.ARRAY>"
    "<PROPERTY.ARRAY NAME='Some' TYPE='string'><VALUE.ARRAY><VALUE>1</VALUE><VALUE> "
    "&amp;</VALUE></VALUE.ARRAY>"
    "</PROPERTY.ARRAY>"
    "<PROPERTY NAME='Inner' TYPE='string' EmbeddedObject='instance'><VALUE>&lt;INSTANCE CLASSNAME=&quot;"
    "TST_Inner&quot;&gt;&lt;PROPERTY NAME=&quot;Name&quot; TYPE=&quot;string&quot;&gt;&lt;VALUE&gt;x "
    "&amp;amp;"
    " y&lt;/VALUE&gt;&lt;/PROPERTY&gt;&lt;/INSTANCE&gt;</VALUE></PROPERTY>"
    "<PROPERTY.REFERENCE NAME='Near'><VALUE.REFERENCE><INSTANCENAME CLASSNAME='TST_Kinds'><KEYBINDING "
    "NAME='Id'><KEYVALUE VALUETYPE='string'>b</KEYVALUE></KEYBINDING></INSTANCENAME></VALUE.REFERENCE>"
    "</PROPERTY.REFERENCE>"
    "<PROPERTY.REFERENCE NAME='Far'><VALUE.REFERENCE><LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE "
    "NAME='root'/><NAMESPACE NAME='far'/></LOCALNAMESPACEPATH><INSTANCENAME "
    "CLASSNAME='TST_Kinds'><KEYBINDING "
    "NAME='Id'><KEYVALUE VALUETYPE='string'>c</KEYVALUE></KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH>"
    "</VALUE.REFERENCE></PROPERTY.REFERENCE>";

std::string classOfEveryKind() {
    return ClassXml(
        "TST_Kinds", "",
        KeyXml("Id", "string") + PropertyXml("Text", "string") + PropertyXml("Empty", "string") +
            PropertyXml("Null", "string") + PropertyXml("Flag", "boolean") + PropertyXml("Small", "sint8") +
            PropertyXml("Large", "uint64") + PropertyXml("Single", "real32") +
            PropertyXml("Double", "real64") + PropertyXml("When", "datetime") +
            PropertyXml("Letter", "char16") +
            "<PROPERTY.ARRAY NAME='None' TYPE='uint16'/><PROPERTY.ARRAY NAME='Some' TYPE='string' "
            "ARRAYSIZE='2'/><PROPERTY NAME='Inner' TYPE='string' EmbeddedObject='instance'/>"
            "<PROPERTY.REFERENCE NAME='Near' REFERENCECLASS='TST_Kinds'/>"
            "<PROPERTY.REFERENCE NAME='Far' REFERENCECLASS='TST_Kinds'/>"
            "<METHOD NAME='Turn' TYPE='uint32'><PARAMETER NAME='Speed' TYPE='uint8'><QUALIFIER NAME='In' "
            "TYPE='boolean'><VALUE>TRUE</VALUE></QUALIFIER></PARAMETER><PARAMETER.ARRAY NAME='Names' "
            "TYPE='string'/><PARAMETER.REFERENCE NAME='By' REFERENCECLASS='TST_Kinds'/></METHOD>");
}

}  // namespace

TEST_F(SnapshotCommand, IsServedAsTheMachineItselfAnswers) {
    const std::vector<std::vector<std::string>> questions{
        {"walk", "CIM_ManagedElement"},
        {"--format", "json", "instances", "CIM_ManagedElement", "--deep"},
        {"--format", "json", "class", "OMC_Processor", "--all"}};
    std::string live;
    {
        const TestMachine machine(3);
        live = answersOf(3, questions);
        const Outcome outcome = takeSnapshot(3);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, "112 classes and 114 instances of 3 nodes\n");
    }
    const SnapshotMachine machine(file());
    EXPECT_EQ(answersOf(machine.nodes(), questions), live);
}

TEST_F(SnapshotCommand, HasWhatOnlyALaterNodeHas) {
    {
        const TestMachine machine(3);
        ASSERT_EQ(takeSnapshot(3).status, 0);
    }
    const SnapshotMachine machine(file());
    const Outcome outcome =
        run({"--node", TestMachine::AddressOf(2), "--format", "json", "class", "OMC_LiquidCoolingLoop"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const Outcome first = run({"--node", TestMachine::AddressOf(0), "class", "OMC_LiquidCoolingLoop"});
    EXPECT_EQ(first.status, 1);
}

TEST_F(SnapshotCommand, KeepsValuesOfEveryKind) {
    const std::vector<std::vector<std::string>> questions{
        {"--namespace", "root/test", "--format", "json", "instances", "TST_Kinds"},
        {"--namespace", "root/test", "--format", "json", "class", "TST_Kinds"}};
    std::string live;
    {
        TestMachine::Options options;
        options.sampleData = false;
        TestMachine machine(options);
        machine.Repository(0).addDeclarations(
            "root/test", Declarations({classOfEveryKind(), InstanceXml("TST_Kinds", kValues)}), "kinds.xml");
        live = answersOf(1, questions);
        EXPECT_THAT(live, HasSubstr("1e+300"));
        EXPECT_THAT(live, HasSubstr("root/far"));
        ASSERT_EQ(run(asking(1, {"--namespace", "root/test", "snapshot", file()})).status, 0);
    }
    const SnapshotMachine machine(file());
    EXPECT_EQ(answersOf(1, questions), live);
}

TEST_F(SnapshotCommand, HasAnEmptyPlaceForANodeThatDoesNotAnswer) {
    TestMachine machine(2);
    machine.Kill(0);
    const Outcome outcome = takeSnapshot(2);
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.out, HasSubstr(" of 1 node\n"));
    EXPECT_THAT(outcome.err, HasSubstr(machine.Host(0)));
    EXPECT_THAT(outcome.err, Not(HasSubstr("instead of node 1")));
    const std::string document = cimom::gunzipped(contentOf(file()), cimom::kMaxSnapshotBytes);
    EXPECT_EQ(cimom::readSnapshot(document, "document").size(), 2U);
    EXPECT_THAT(document, HasSubstr("<DECLARATION>\n</DECLARATION>\n<DECLARATION>\n<DECLGROUP"));
}

TEST_F(SnapshotCommand, TellsWhatItHoldsAsJson) {
    const TestMachine machine(1);
    const Outcome outcome = run(asking(1, {"--format", "json", "snapshot", file()}));
    EXPECT_EQ(outcome.out, "{\"classes\": 37, \"instances\": 45, \"nodes\": 1}\n");
}

TEST_F(SnapshotCommand, HoldsNeitherUserNorPasswordNorAddress) {
    TestMachine::Options options;
    options.credentials = cimom::Credentials{"snapshooter", "s3cret-of-test"};
    const TestMachine machine(options);
    const Outcome outcome = Program({"--node", "snapshooter@" + machine.Host(0), "snapshot", file()})
                                .with("CIMHTTP_PASSWORD", "s3cret-of-test")
                                .run();
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const std::string document = cimom::gunzipped(contentOf(file()), cimom::kMaxSnapshotBytes);
    EXPECT_THAT(document, HasSubstr("OMC_NumericSensor"));
    for (const std::string& secret :
         {std::string("snapshooter"), std::string("s3cret-of-test"), machine.Host(0)}) {
        EXPECT_THAT(document, Not(HasSubstr(secret)));
    }
}

TEST_F(SnapshotCommand, LeavesNothingWhereItCannotBeWritten) {
    const TestMachine machine(1);
    fs::create_directory(file());  // no file can take its place
    std::ofstream(file() + "/content") << "in the way";
    const Outcome outcome = takeSnapshot(1);
    EXPECT_EQ(outcome.status, 6);
    EXPECT_THAT(outcome.err, HasSubstr("cannot write " + file()));
    EXPECT_EQ(namesIn(folder()), std::vector<std::string>{"machine.cim.gz"});
}

TEST_F(SnapshotCommand, LeavesNothingWhenThereIsNothing) {
    TestMachine::Options options;
    options.sampleData = false;
    const TestMachine machine(options);
    const Outcome outcome = takeSnapshot(1);
    EXPECT_NE(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(namesIn(folder()), IsEmpty());
}

TEST_F(SnapshotCommand, AFolderThatIsNotThereIsNamedBeforeAnythingIsAsked) {
    TestMachine machine(1);
    machine.ClearRequests();
    const Outcome outcome = run(asking(1, {"snapshot", (folder() / "none" / "x.cim.gz").string()}));
    EXPECT_EQ(outcome.status, 6);
    EXPECT_THAT(outcome.err, HasSubstr("cannot write"));
    EXPECT_THAT(machine.Requests(), Not(::testing::Contains("0 GetClass CIM_ManagedElement")));
}

}  // namespace tool
