// Every command, run as a person runs it, against the embedded machine of three nodes.

#include <gmock/gmock.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "tests/tools/support/Program.h"

namespace tool {

namespace {

using nlohmann::json;
using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string kSystem = "OMC_UnitaryComputerSystem.CreationClassName=OMC_UnitaryComputerSystem,Name=";

json jsonOf(const Outcome& outcome) {
    EXPECT_EQ(outcome.err, "");
    return json::parse(outcome.out);
}

}  // namespace

TEST(ClassesCommand, ListsTopLevelClassesAndSubclasses) {
    const Outcome top = run({"classes"});
    EXPECT_EQ(top.status, 0);
    EXPECT_EQ(top.err, "");
    EXPECT_THAT(linesOf(top.out), Contains("CIM_ManagedElement"));
    EXPECT_THAT(linesOf(top.out), Not(Contains("CIM_LogicalElement")));
    EXPECT_THAT(linesOf(run({"classes", "CIM_Sensor"}).out),
                ElementsAre("CIM_NumericSensor", "OMC_DiscreteSensor"));
}

TEST(ClassesCommand, GoesDownToTheLastSubclass) {
    const Outcome deep = run({"classes", "CIM_Sensor", "--deep"});
    EXPECT_THAT(linesOf(deep.out),
                ElementsAre("CIM_NumericSensor", "OMC_NumericSensor", "OMC_DiscreteSensor"));
}

TEST(ClassesCommand, WritesAJsonArrayOfStrings) {
    EXPECT_EQ(jsonOf(run({"classes", "CIM_Sensor", "--format", "json"})),
              (json{"CIM_NumericSensor", "OMC_DiscreteSensor"}));
}

TEST(ClassesCommand, SaysThatThereAreNoneAndWhatDoesNotExist) {
    const Outcome none = run({"classes", "OMC_Part", "--format", "json"});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "[]\n");
    EXPECT_EQ(none.err, "cimhttp: there are no classes below OMC_Part\n");
    const Outcome unknown = run({"classes", "OMC_Nope"});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.out, "");
    ASSERT_EQ(linesOf(unknown.err).size(), 1U) << unknown.err;
    EXPECT_THAT(unknown.err, HasSubstr(":5989): class names below OMC_Nope: CIM error: "));
}

TEST(NamesCommand, ListsThePathsOfTheFirstNodesInstances) {
    const Outcome names = run({"names", "OMC_UnitaryComputerSystem"});
    EXPECT_EQ(names.status, 0);
    EXPECT_EQ(
        names.out,
        "OMC_UnitaryComputerSystem.CreationClassName=\"OMC_UnitaryComputerSystem\",Name=\"node-0.machine."
        "example\"\n");
    EXPECT_EQ(jsonOf(run({"--format", "json", "names", "OMC_NumericSensor"})).size(),
              linesOf(run({"names", "OMC_NumericSensor"}).out).size());
}

TEST(NamesCommand, AnUnknownNamespaceEndsInOneLine) {
    const Outcome outcome = run({"--namespace", "root/nope", "names", "OMC_NumericSensor"});
    EXPECT_EQ(outcome.status, 1);
    ASSERT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("root/nope"));
}

TEST(NamesCommand, AMalformedNamespaceEndsInOneLine) {
    const Outcome outcome = run({"--namespace", "root//;", "names", "OMC_NumericSensor"});
    EXPECT_EQ(outcome.status, 2);
    ASSERT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("root//;"));
}

TEST(WalkCommand, CountsWhatTheInstancesCommandDelivers) {
    const json walk = jsonOf(run({"--format", "json", "walk", "OMC_NumericSensor"}));
    const json instances = jsonOf(run({"--format", "json", "instances", "OMC_NumericSensor"}));
    EXPECT_EQ(walk["instances"], instances.size());
    std::size_t properties = 0;
    for (const json& instance : instances) {
        properties += instance["properties"].size();
    }
    EXPECT_EQ(walk["properties"], properties);
    EXPECT_EQ(walk["nodes"].size(), 3U);
    const std::string last = linesOf(run({"walk", "OMC_NumericSensor"}).out).back();
    EXPECT_EQ(last, std::to_string(instances.size()) + " instances, " + std::to_string(properties) +
                        " properties of OMC_NumericSensor on 3 nodes");
}

TEST(ClassCommand, ShowsTheChainTheMembersAndTheMeaningOfValues) {
    const Outcome outcome = run({"class", "cim_enabledlogicalelement"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out,
                StartsWith("// CIM_ManagedElement > CIM_ManagedSystemElement > CIM_LogicalElement > "
                           "CIM_EnabledLogicalElement\n"));
    EXPECT_THAT(outcome.out, HasSubstr("class CIM_EnabledLogicalElement : CIM_LogicalElement\n"));
    EXPECT_THAT(outcome.out, HasSubstr("    uint16 EnabledState"));
    EXPECT_THAT(outcome.out, HasSubstr("        // 2 = Enabled\n"));
    EXPECT_THAT(outcome.out, HasSubstr("    uint32 RequestStateChange("));
    EXPECT_THAT(outcome.out, Not(HasSubstr("Caption")));
}

TEST(ClassCommand, MergesInheritedMembersWithTheirOrigin) {
    EXPECT_THAT(run({"class", "CIM_Sensor", "--all"}).out,
                HasSubstr("    string Caption;  // from CIM_ManagedElement\n"));
    const json merged = jsonOf(run({"--format", "json", "class", "CIM_Sensor", "--all"}));
    std::set<std::string> origins;
    for (const json& property : merged["properties"]) {
        origins.insert(property["origin"]);
    }
    EXPECT_THAT(origins, Contains("CIM_ManagedElement"));
    EXPECT_THAT(origins, Contains("CIM_Sensor"));
}

TEST(ClassCommand, WritesJsonOfTheAgreedShape) {
    const json definition = jsonOf(run({"--format", "json", "class", "OMC_Part"}));
    EXPECT_EQ(definition["name"], "OMC_Part");
    EXPECT_EQ(definition["superclass"], "CIM_ManagedElement");
    EXPECT_EQ(definition["qualifiers"]["PLUGINNAME"], "cimhttp");
    const auto& properties = definition["properties"];
    const auto sizes = std::find_if(properties.begin(), properties.end(),
                                    [](const json& property) { return property["name"] == "Sizes"; });
    ASSERT_NE(sizes, properties.end());
    EXPECT_EQ((*sizes)["type"], "uint16");
    EXPECT_EQ((*sizes)["array"], true);
    EXPECT_TRUE(definition["methods"].empty());
    EXPECT_TRUE(jsonOf(run({"--format", "json", "class", "CIM_ManagedElement"}))["superclass"].is_null());
}

TEST(ClassCommand, AnUnknownClassEndsInOneLine) {
    const Outcome outcome = run({"class", "OMC_Nope"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    ASSERT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr(":5989): definition of class OMC_Nope: CIM error: "));
}

TEST(TreeCommand, DrawsTheHierarchy) {
    const Outcome outcome = run({"tree", "CIM_Sensor"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              "CIM_Sensor\n"
              "├── CIM_NumericSensor\n"
              "│   └── OMC_NumericSensor\n"
              "└── OMC_DiscreteSensor\n");
}

TEST(TreeCommand, MarksAbstractClassesAndAssociations) {
    const std::vector<std::string> lines = linesOf(run({"tree"}).out);
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "root/cimv2");
    EXPECT_THAT(lines, Contains(EndsWith("── CIM_ManagedElement [abstract]")));
    EXPECT_THAT(lines, Contains(EndsWith("── CIM_Component [abstract] [association]")));
}

TEST(TreeCommand, NestsInJson) {
    const json tree = jsonOf(run({"--format", "json", "tree", "CIM_Sensor"}));
    EXPECT_EQ(tree["name"], "CIM_Sensor");
    EXPECT_EQ(tree["subclasses"][0]["subclasses"][0]["name"], "OMC_NumericSensor");
    EXPECT_EQ(tree["subclasses"].size(), 2U);
}

TEST(QualifiersCommand, TellsScopeAndFlavorInWords) {
    const Outcome few = run({"qualifiers"});
    EXPECT_EQ(few.status, 0);
    EXPECT_EQ(linesOf(few.out).size(), 2U) << few.out;
    EXPECT_THAT(few.out,
                StartsWith("qualifier PLUGINNAME : string = \"CIMXML\", scope(none), flavor(none);\n"));
    const std::vector<std::string> lines =
        linesOf(run({"qualifiers", "CIM_LogicalDevice", "CIM_Component"}).out);
    EXPECT_THAT(lines, Contains(StartsWith("qualifier Key : boolean, scope(property), flavor(")));
    EXPECT_THAT(lines, Contains(StartsWith("qualifier Association : boolean, scope(class), flavor(")));
    const json declarations = jsonOf(run({"--format", "json", "qualifiers", "CIM_Component"}));
    EXPECT_EQ(declarations[0]["name"], "Abstract");
    EXPECT_EQ(declarations[0]["type"], "boolean");
    EXPECT_EQ(declarations[0]["scope"], json{"class"});
}

TEST(InstancesCommand, ShowsABlockAnInstanceWithMeanings) {
    const Outcome outcome = run({"instances", "OMC_UnitaryComputerSystem"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const std::vector<std::string> lines = linesOf(outcome.out);
    EXPECT_THAT(lines.front(), StartsWith("OMC_UnitaryComputerSystem.CreationClassName="));
    EXPECT_THAT(lines, Contains("    HealthState              5 (OK)"));
    EXPECT_THAT(lines, Contains("    node                     1"));
    EXPECT_THAT(lines, Contains("    node                     3"));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), ""), 2);
}

TEST(InstancesCommand, ShowsATableWithTheNodeFirst) {
    const Outcome outcome = run({"instances", "OMC_UnitaryComputerSystem", "--columns", "name,HEALTHSTATE"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "Node  Name                    HealthState\n"
              "1     node-0.machine.example  5 (OK)\n"
              "2     node-1.machine.example  5 (OK)\n"
              "3     node-2.machine.example  10 (Degraded/Warning)\n");
}

TEST(InstancesCommand, RefusesAColumnThatTheClassHasNot) {
    const Outcome outcome = run({"instances", "OMC_UnitaryComputerSystem", "--columns", "Speed"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "cimhttp: OMC_UnitaryComputerSystem has no property 'Speed'\n");
}

TEST(InstancesCommand, WritesJsonWithTypedValues) {
    const json instances = jsonOf(run({"--format", "json", "instances", "OMC_UnitaryComputerSystem"}));
    ASSERT_EQ(instances.size(), 3U);
    const json& second = instances[1];
    EXPECT_EQ(second["class"], "OMC_UnitaryComputerSystem");
    EXPECT_EQ(second["node"], 2);
    EXPECT_EQ(second["properties"]["HealthState"], 5);
    EXPECT_EQ(second["properties"]["OperationalStatus"], json{2});
    EXPECT_EQ(second["properties"]["Name"], "node-1.machine.example");
    EXPECT_THAT(second["path"].get<std::string>(), HasSubstr("Name=\"node-1.machine.example\""));
}

TEST(InstancesCommand, WritesEveryCimTypeAsJsonHasIt) {
    const json properties =
        jsonOf(run({"--format", "json", "get", R"(OMC_AllTypes.Id="ordinary")"}))["properties"];
    for (const char* name : {"Uint8Value", "Sint8Value", "Uint16Value", "Sint16Value", "Uint32Value",
                             "Sint32Value", "Uint64Value", "Sint64Value"}) {
        EXPECT_TRUE(properties[name].is_number_integer()) << name;
    }
    EXPECT_TRUE(properties["BooleanValue"].is_boolean());
    EXPECT_TRUE(properties["Char16Value"].is_string());
    EXPECT_TRUE(properties["DatetimeValue"].is_string());
    EXPECT_TRUE(properties["Uint64Array"].is_array());
    EXPECT_TRUE(properties["ReferenceValue"].is_string());
}

TEST(InstancesCommand, WritesCsvWithOneRecordAnInstance) {
    const Outcome outcome = run(
        {"--format", "csv", "instances", "OMC_UnitaryComputerSystem", "--columns", "Name,HealthState,Roles"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out,
                StartsWith("node,path,Name,HealthState,Roles\r\n1,\"OMC_UnitaryComputerSystem."));
    EXPECT_THAT(outcome.out,
                HasSubstr(",node-0.machine.example,5,\"[\"\"Database\"\",\"\"Primary\"\"]\"\r\n"));
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 4);
}

TEST(InstancesCommand, StopsAtTheLimit) {
    EXPECT_EQ(jsonOf(run({"--format", "json", "instances", "OMC_NumericSensor", "--limit", "2"})).size(), 2U);
    EXPECT_EQ(jsonOf(run({"--format", "json", "instances", "OMC_NumericSensor", "--limit", "1000"})).size(),
              jsonOf(run({"--format", "json", "walk", "OMC_NumericSensor"}))["instances"]);
    EXPECT_EQ(run({"instances", "OMC_NumericSensor", "--limit", "0"}).status, 2);
}

TEST(InstancesCommand, SaysThatThereAreNone) {
    const Outcome outcome = run({"--format", "json", "instances", "OMC_SensorAlert"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "[]\n");
    EXPECT_EQ(outcome.err, "cimhttp: there are no instances of OMC_SensorAlert\n");
}

TEST(GetCommand, FindsAnInstanceOfAnyNodeEvenWithoutQuotes) {
    const Outcome outcome = run({"--format", "json", "get", kSystem + "node-2.machine.example"});
    EXPECT_EQ(outcome.status, 0);
    const json instance = jsonOf(outcome);
    EXPECT_EQ(instance["node"], 3);
    EXPECT_EQ(instance["properties"]["Name"], "node-2.machine.example");
    EXPECT_THAT(run({"get", instance["path"].get<std::string>()}).out, HasSubstr("node-2.machine.example"));
}

TEST(GetCommand, TellsAMissingInstanceFromAWrongPath) {
    const Outcome missing = run({"get", kSystem + "nobody"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.err, StartsWith("cimhttp: there is no instance OMC_UnitaryComputerSystem."));
    EXPECT_EQ(run({"get", "OMC_UnitaryComputerSystem"}).err,
              "cimhttp: the path lacks the key CreationClassName\n");
    EXPECT_EQ(run({"get", "OMC_UnitaryComputerSystem.Name"}).status, 2);
    EXPECT_EQ(run({"get", "no path"}).status, 2);
}

TEST(InvokeCommand, RunsAMethodOfAnInstance) {
    const Outcome text =
        run({"invoke", kSystem + "node-0.machine.example", "requeststatechange", "RequestedState=3"});
    EXPECT_EQ(text.status, 0) << text.err;
    EXPECT_THAT(text.out, StartsWith("return value  0 (Completed with No Error)\n"));
    const json answer = jsonOf(run({"--format", "json", "invoke", kSystem + "node-0.machine.example",
                                    "RequestStateChange", "RequestedState=77"}));
    EXPECT_EQ(answer["returnValue"], 4097);
    EXPECT_TRUE(answer["outputs"].is_object());
}

TEST(InvokeCommand, RefusesWhatDoesNotFitBeforeAnythingIsSent) {
    const std::string path = kSystem + "node-0.machine.example";
    const auto refusal = [&](const std::string& method, const std::string& argument) {
        const Outcome outcome = run({"-v", "invoke", path, method, argument});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        return linesOf(outcome.err).back();
    };
    EXPECT_THAT(refusal("RequestStateChange", "RequestedState=65536"), HasSubstr("from 0 to 65535"));
    EXPECT_THAT(refusal("RequestStateChange", "State=3"), HasSubstr("has no parameter 'State'; it takes "));
    EXPECT_THAT(refusal("RequestStateChange", "TimeoutPeriod=soon"), HasSubstr("25 characters"));
    EXPECT_THAT(refusal("Explode", "State=3"), HasSubstr("has no method 'Explode'"));
}

TEST(InvokeCommand, AMethodThatFailsEndsInOneLine) {
    const Outcome outcome = run({"invoke", kSystem + "nobody", "RequestStateChange", "RequestedState=3"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    ASSERT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr(": calling RequestStateChange: CIM error: "));
}

TEST(Usage, HelpAndVersionGoToStandardOutput) {
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* word : {"--node", "--password-file", "--transport", "--timeout", "classes", "invoke"}) {
        EXPECT_THAT(help.out, HasSubstr(word));
    }
    EXPECT_EQ(help.err, "");
    const Outcome version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_THAT(version.out, StartsWith("cimhttp "));
}

TEST(Usage, MistakesExitWithTwoAndSayWhatTheyAre) {
    const std::vector<std::vector<std::string>> mistakes = {
        {},
        {"fly"},
        {"names"},
        {"names", "A", "B"},
        {"classes", "--deeep"},
        {"names", "a b"},
        {"class", "<root>"},
        {"--format", "xml", "classes"},
        {"--format", "csv", "classes"},
        {"--transport", "ftp", "classes"},
        {"--timeout", "-5", "classes"},
        {"--timeout", "soon", "classes"},
        {"--node", "127.0.0.1:5989", "classes"},
        {"--node", "", "classes"},
        {"--node", "a", "--node", "b", "--transport", "http", "classes"},
        {"--connect-timeout", "0", "classes"},
        {"--node", "a", "--password-file", "/nowhere", "--user", "u", "classes"},
        {"instances", "OMC_Part", "--limit", "x"},
    };
    for (const auto& arguments : mistakes) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << ::testing::PrintToString(arguments);
        EXPECT_EQ(outcome.out, "") << ::testing::PrintToString(arguments);
        EXPECT_NE(outcome.err, "") << ::testing::PrintToString(arguments);
    }
}

TEST(Usage, SeveralNodesOverOneProtocolNameTheOption) {
    const Outcome outcome = run({"--node", "a", "--node", "b", "--transport", "http", "classes"});
    EXPECT_THAT(outcome.err, HasSubstr("--transport http asks a single node"));
}

TEST(Usage, OptionsStandBeforeOrBehindTheCommand) {
    EXPECT_EQ(run({"classes", "CIM_Sensor", "--format", "json"}).out,
              run({"--format", "json", "classes", "CIM_Sensor"}).out);
}

TEST(Output, AReaderThatStopsEndsTheProgramQuietly) {
    const Outcome outcome =
        Program({"--format", "json", "instances", "OMC_NumericSensor"}).closingOutputAfter(1).run();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.signal, 0);
    EXPECT_EQ(outcome.err, "");
}

TEST(Output, TraceLinesAreShownOnRequestOnly) {
    EXPECT_EQ(run({"classes"}).err, "");
    const Outcome verbose = run({"-v", "classes"});
    EXPECT_EQ(verbose.status, 0);
    EXPECT_THAT(linesOf(verbose.err), Contains("Entering TCimHTTPNamespace::EnumerateClassNames"));
    EXPECT_EQ(verbose.out, run({"classes"}).out);
}

TEST(ClassCommand, TellsWhatTheParametersOfAMethodAreFor) {
    const Outcome outcome = run({"class", "OMC_UnitaryComputerSystem", "--all"});
    EXPECT_THAT(outcome.out, HasSubstr("[In] datetime TimeoutPeriod);  // from CIM_EnabledLogicalElement\n"));
    const json definition = jsonOf(run({"--format", "json", "class", "CIM_EnabledLogicalElement"}));
    const json& method = definition["methods"][0];
    EXPECT_EQ(method["name"], "RequestStateChange");
    EXPECT_EQ(method["qualifiers"]["ValueMap"][0], "0");
    EXPECT_EQ(method["parameters"][0]["name"], "Job");
    EXPECT_EQ(method["parameters"][0]["qualifiers"]["In"], false);
    EXPECT_EQ(method["parameters"][0]["qualifiers"]["Out"], true);
}

// The plug-in delivers zero, an empty text or false for these.
TEST(InstancesCommand, TellsWhatIsNullFromWhatIsZero) {
    const Outcome table =
        run({"instances", "OMC_AllTypes", "--columns", "Id,Uint8Value,BooleanValue,StringValue,Uint64Array"});
    EXPECT_THAT(table.out, HasSubstr("1     null          (null)      (null)        (null)"));
    EXPECT_THAT(table.out, HasSubstr("1     smallest      0           false         "));
    const json instances = json::parse(run({"--format", "json", "instances", "OMC_AllTypes"}).out);
    ASSERT_EQ(instances.size(), 6U);
    EXPECT_EQ(instances[2]["properties"]["Id"], "null");
    EXPECT_EQ(instances[2]["properties"]["Uint8Value"], nullptr);
    EXPECT_EQ(instances[2]["properties"]["Uint64Array"], nullptr);
    EXPECT_EQ(instances[5]["properties"]["Id"], "smallest");
    EXPECT_EQ(instances[5]["properties"]["Uint8Value"], 0);
    const Outcome csv =
        run({"--format", "csv", "instances", "OMC_AllTypes", "--columns", "Id,Uint8Value,BooleanValue"});
    EXPECT_THAT(csv.out, HasSubstr("\"OMC_AllTypes.Id=\"\"null\"\"\",null,,\r\n"));
    EXPECT_THAT(csv.out, HasSubstr("\"OMC_AllTypes.Id=\"\"smallest\"\"\",smallest,0,false\r\n"));
    EXPECT_THAT(run({"get", R"(OMC_AllTypes.Id="null")"}).out, HasSubstr("    Uint8Value       (null)\n"));
}

TEST(InstancesCommand, SaysWhichInstancesWereReceivedAndNotDelivered) {
    EXPECT_EQ(
        run({"instances", "OMC_AllTypes"}).err,
        "cimhttp: OMC_AllTypes: 18 instances were received and 6 delivered: the others have the same path as "
        "one of these; a node that is asked alone shows its own\n");
    EXPECT_EQ(run({"instances", "QEL_StandardMessageLogEntry"}).err,
              "cimhttp: QEL_StandardMessageLogEntry: 12 instances were received and 9 delivered: the first "
              "node's log "
              "repeats entries of the others\n");
    EXPECT_EQ(run({"instances", "OMC_AllTypes", "--limit", "6"}).err, "") << "the person left them out";
    EXPECT_EQ(run({"instances", "OMC_NumericSensor"}).err, "");
}

TEST(InstancesCommand, SaysWhichSubclassesShowWhatAClassWithoutKeysDoesNot) {
    const std::string received =
        "cimhttp: CIM_ManagedSystemElement: 57 instances were received and 1 delivered: the class has no "
        "key, so that "
        "all instances have one path; --deep, or the class itself, shows OMC_NumericSensor (29), "
        "OMC_ProcessorSlot "
        "(7), OMC_FirmwareIdentity (6), OMC_Processor (6), OMC_EchoService (3) and 3 more\n";
    EXPECT_EQ(run({"instances", "CIM_ManagedSystemElement"}).err, received);
    EXPECT_EQ(run({"walk", "CIM_ManagedSystemElement"}).err, received);
    const Outcome deep = run({"instances", "CIM_ManagedSystemElement", "--deep"});
    EXPECT_THAT(deep.err, Not(HasSubstr("CIM_ManagedSystemElement")))
        << "its instances came with the subclasses";
    EXPECT_THAT(deep.err, HasSubstr("OMC_ProcessorSlot: 7 instances were received and 3 delivered"));
    EXPECT_THAT(deep.out, HasSubstr("OMC_FirmwareIdentity."));
}

TEST(Terminal, CutsATableToItsWidth) {
    const Outcome outcome =
        Program({"instances", "OMC_NumericSensor", "--columns",
                 "SystemCreationClassName,SystemName,DeviceID,Description,CurrentReading,LastUpdate"})
            .runOnTerminal();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("…\r\n"));
}

}  // namespace tool
