// In what two snapshots differ.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"
#include "tests/tools/support/TemporaryFile.h"
#include "tests/tools/support/TemporaryFolder.h"

namespace tool {

namespace {

using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string machineOf(const std::vector<std::string>& nodes) {
    std::string text = "<CIM CIMVERSION='2.0' DTDVERSION='2.0'>";
    for (const std::string& node : nodes) {
        text += "<DECLARATION>" + node + "</DECLARATION>";
    }
    return text + "</CIM>";
}

std::string groupOf(const std::string& objects) {
    return "<DECLGROUP.WITHNAME><LOCALNAMESPACEPATH><NAMESPACE NAME='root'/><NAMESPACE NAME='a'/>"
           "</LOCALNAMESPACEPATH>" +
           objects + "</DECLGROUP.WITHNAME>";
}

std::string fanClass(const std::string& members = "", const std::string& type = "uint32") {
    return "<VALUE.NAMEDOBJECT><CLASS NAME='Fan'><PROPERTY NAME='Id' TYPE='string'><QUALIFIER NAME='Key' "
           "TYPE='boolean'><VALUE>TRUE</VALUE></QUALIFIER></PROPERTY><PROPERTY NAME='Speed' TYPE='" +
           type + "'/><PROPERTY.ARRAY NAME='Tags' TYPE='string'/>" + members + "</CLASS></VALUE.NAMEDOBJECT>";
}

std::string fan(const std::string& id, const std::string& properties) {
    return "<VALUE.NAMEDOBJECT><INSTANCENAME CLASSNAME='Fan'><KEYBINDING NAME='Id'><KEYVALUE "
           "VALUETYPE='string'>" +
           id + "</KEYVALUE></KEYBINDING></INSTANCENAME><INSTANCE CLASSNAME='Fan'>" + properties +
           "</INSTANCE></VALUE.NAMEDOBJECT>";
}

std::string speed(const std::string& value) {
    return "<PROPERTY NAME='Speed' TYPE='uint32'>" + value + "</PROPERTY>";
}

/// Two snapshots, which are written here.
class Pair {
public:
    Pair(const std::string& first, const std::string& second) : first_(first), second_(second) {}

    Outcome compare(std::vector<std::string> options = {}) const {
        options.insert(options.end(), {"compare", first_.path(), second_.path()});
        return run(options);
    }

    const std::string& first() const { return first_.path(); }
    const std::string& second() const { return second_.path(); }

private:
    const TemporaryFile first_;
    const TemporaryFile second_;
};

}  // namespace

TEST(CompareCommand, FindsNoDifferenceWhateverTheOrderAndTheCaseOfNames) {
    const std::string tags =
        "<PROPERTY.ARRAY NAME='Tags' TYPE='string'><VALUE.ARRAY><VALUE>x</VALUE></VALUE.ARRAY>";
    const Pair pair(
        machineOf({groupOf(fanClass() + fan("1", speed("<VALUE>1</VALUE>") + tags + "</PROPERTY.ARRAY>") +
                           fan("2", ""))}),
        machineOf({groupOf(
            fanClass() + fan("2", "") +
            fan("1",
                tags +
                    "</PROPERTY.ARRAY><PROPERTY NAME='SPEED' TYPE='uint32'><VALUE>1</VALUE></PROPERTY>"))}));
    const Outcome outcome = pair.compare();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(pair.compare({"--format", "json"}).out, "[]\n");
}

TEST(CompareCommand, TellsInALineWhatAnInstanceHasOtherwise) {
    const Pair pair(machineOf({"", groupOf(fanClass() + fan("1", speed("<VALUE>1</VALUE>")) +
                                           fan("2", speed("")) + fan("3", ""))}),
                    machineOf({"", groupOf(fanClass() + fan("1", speed("<VALUE>2&#10;</VALUE>")) +
                                           fan("2", "") + fan("4", speed("<VALUE>5</VALUE>")))}));
    const Outcome outcome = pair.compare();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(linesOf(outcome.out),
                ElementsAre("node 2: root/a:Fan.Id=\"1\": property Speed is 2\\n, not 1",
                            "node 2: root/a:Fan.Id=\"2\": has no property Speed, which was (null)",
                            "node 2: root/a:Fan.Id=\"3\": only in " + pair.first(),
                            "node 2: root/a:Fan.Id=\"4\": only in " + pair.second()));
}

TEST(CompareCommand, TellsWhatADefinitionHasOtherwise) {
    const std::string method =
        "<METHOD NAME='Turn' TYPE='uint32'><PARAMETER NAME='By' TYPE='uint8'><QUALIFIER NAME='In' "
        "TYPE='boolean'>"
        "<VALUE>TRUE</VALUE></QUALIFIER></PARAMETER></METHOD>";
    const Pair pair(machineOf({groupOf(fanClass(method))}), machineOf({groupOf(fanClass("", "uint16"))}));
    EXPECT_THAT(
        linesOf(pair.compare().out),
        ElementsAre(
            "node 1: root/a: class Fan: has no method Turn, which was uint32",
            "node 1: root/a: class Fan: has no method Turn: parameter By, which was uint8",
            "node 1: root/a: class Fan: has no method Turn: parameter By: qualifier In, which was TRUE",
            "node 1: root/a: class Fan: property Speed is uint16, not uint32"));
}

TEST(CompareCommand, TellsInOneLineThatANodeIsMissing) {
    const Pair pair(machineOf({groupOf(fanClass()), groupOf(fanClass() + fan("1", ""))}),
                    machineOf({groupOf(fanClass()), ""}));
    EXPECT_EQ(pair.compare().out, "node 2: only in " + pair.first() + "\n");
}

TEST(CompareCommand, WritesDifferencesAsJson) {
    const Pair pair(machineOf({groupOf(fanClass() + fan("1", speed("<VALUE>1</VALUE>")))}),
                    machineOf({groupOf(fanClass() + fan("1", "") + fan("2", "")), groupOf(fanClass())}));
    const Outcome outcome = pair.compare({"--format", "json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(json::parse(outcome.out), json::parse(R"([
        {"node": 1, "object": "root/a:Fan.Id=\"1\"", "part": "property Speed", "first": "1", "second": null},
        {"node": 1, "object": "root/a:Fan.Id=\"2\"", "part": null, "onlyIn": "second"},
        {"node": 2, "object": null, "part": null, "onlyIn": "second"}])"));
}

TEST(CompareCommand, NamesAFileThatIsNoSnapshotOrNotThere) {
    const Pair pair(machineOf({""}), "<CIM>");
    const Outcome outcome = pair.compare();
    EXPECT_EQ(outcome.status, 6);
    EXPECT_THAT(outcome.err, HasSubstr(pair.second() + ":1: "));
    const Outcome none = run({"compare", pair.first(), "none.cim.gz"});
    EXPECT_EQ(none.status, 6);
    EXPECT_THAT(none.err, HasSubstr("cannot read none.cim.gz: "));
}

TEST(CompareCommand, FindsNoDifferenceBetweenTwoSnapshotsOfAMachineAtRest) {
    const NQELVSK20::TestMachine machine(1);
    const TemporaryFolder folder;
    const std::string before = (folder.path() / "before").string();
    const std::string after = (folder.path() / "after").string();
    ASSERT_EQ(run({"--node", machine.Host(0), "snapshot", before}).status, 0);
    ASSERT_EQ(run({"--node", machine.Host(0), "snapshot", after}).status, 0);
    const Outcome outcome = run({"compare", before, after});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
}

}  // namespace tool
