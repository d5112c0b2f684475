// The server seen through wbemcli, a CIM client that others wrote (Debian package sblim-wbemcli).

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "cimom/Server.h"
#include "cimom/data/RepositoryData.h"
#include "tests/support/Process.h"

namespace cimom {
namespace {

using support::linesOf;
using support::ProcessResult;
using support::runProcess;
using Lines = std::vector<std::string>;

class WbemcliTest : public testing::Test {
protected:
    WbemcliTest() {
        Endpoint endpoint;
        endpoint.repository = repository_;
        endpoint.sendNullOutputs = false;  // which wbemcli does not survive
        httpPort_ = server_.listen(endpoint);
        endpoint.tls = true;
        endpoint.credentials = Credentials{"operator", "s3cret"};
        httpsPort_ = server_.listen(endpoint);
        server_.start();
    }

    std::string host(std::uint16_t port) const { return "127.0.0.1:" + std::to_string(port) + "/root/cimv2"; }
    std::string http(const std::string& path) const { return "http://" + host(httpPort_) + path; }
    std::string https(const std::string& path, const std::string& password = "s3cret") const {
        return "https://operator:" + password + "@" + host(httpsPort_) + path;
    }

    /// The output's lines, after a run that must succeed.
    static Lines succeed(const std::vector<std::string>& command) {
        const ProcessResult result = runProcess(command);
        EXPECT_EQ(result.status, 0) << "Is the package sblim-wbemcli installed?\n" << result.err;
        EXPECT_EQ(result.err, "");
        return linesOf(result.out);
    }

    /// What a run that must fail prints.
    static std::string failure(const std::vector<std::string>& command) {
        const ProcessResult result = runProcess(command);
        EXPECT_NE(result.status, 0);
        return result.err;
    }

    /// Names of the classes below one, as wbemcli prints them, from the data that the server serves.
    Lines expectedClasses(std::uint16_t port) const {
        Lines names;
        for (const ClassView* view :
             repository_->data().find("root/cimv2")->classes.subclasses(nullptr, true)) {
            names.push_back(host(port) + ":" + view->name);
        }
        return names;
    }

    static Lines expectedSensors(const std::string& prefix) {
        Lines names;
        for (const char* id :
             {"1.0.32.55", "2.0.32.3", "3.0.32.3", "4.0.32.7", "5.0.32.7", "6.0.32.7", "7.0.32.29",
              "8.0.32.29", "9.0.32.10", "10.0.32.10", "11.0.32.12", "12.0.32.7", "13.0.32.55"}) {
            names.push_back(prefix +
                            ":OMC_NumericSensor.CreationClassName=\"OMC_NumericSensor\",DeviceID=\"" + id +
                            "\",SystemCreationClassName=\"OMC_UnitaryComputerSystem\",SystemName="
                            "\"node-0.machine.example\"");
        }
        return names;
    }

    std::shared_ptr<Repository> repository_ = Repository::sampleNode(0);
    Server server_;
    std::uint16_t httpPort_ = 0;
    std::uint16_t httpsPort_ = 0;
};

const char* const kComputerSystem =
    ":OMC_UnitaryComputerSystem.CreationClassName=\"OMC_UnitaryComputerSystem\",Name=\"node-0.machine."
    "example\"";
const char* const kSlot =
    ":OMC_ProcessorSlot.CreationClassName=\"OMC_ProcessorSlot\",Tag=\"Processor Socket 3\"";
const char* const kEcho =
    ":OMC_EchoService.SystemCreationClassName=\"OMC_UnitaryComputerSystem\",SystemName=\"node-0.machine."
    "example\","
    "CreationClassName=\"OMC_EchoService\",Name=\"echo\"";

TEST_F(WbemcliTest, ListsAllClassNames) {
    const Lines expected = expectedClasses(httpPort_);
    EXPECT_GT(expected.size(), 30U);
    EXPECT_EQ(succeed({"wbemcli", "ecn", http("")}), expected);
}

TEST_F(WbemcliTest, ListsAllClassNamesOverHttpsWithAPassword) {
    EXPECT_EQ(succeed({"wbemcli", "-noverify", "ecn", https("")}), expectedClasses(httpsPort_));
}

TEST_F(WbemcliTest, ListsClassesBelowAClass) {
    Lines names;
    for (const std::string& line : succeed({"wbemcli", "ec", http(":CIM_Sensor")})) {
        names.push_back(line.substr(0, line.find(' ')));
    }
    EXPECT_EQ(names, (Lines{host(httpPort_) + ":CIM_NumericSensor", host(httpPort_) + ":OMC_NumericSensor",
                            host(httpPort_) + ":OMC_DiscreteSensor"}));
}

TEST_F(WbemcliTest, ShowsAClassWithInheritedProperties) {
    const Lines lines = succeed({"wbemcli", "-nl", "-t", "gc", http(":OMC_ProcessorSlot")});
    EXPECT_EQ(lines.at(0), host(httpPort_) + ":OMC_ProcessorSlot");
    for (const char* line :
         {"-Tag#=", "-CreationClassName#=", "-OperationalStatus[]=", "-Number=", "-Occupied="}) {
        EXPECT_NE(std::find(lines.begin(), lines.end(), line), lines.end()) << line;
    }
}

TEST_F(WbemcliTest, ListsInstanceNames) {
    EXPECT_EQ(succeed({"wbemcli", "ein", http(":OMC_NumericSensor")}), expectedSensors(host(httpPort_)));
}

TEST_F(WbemcliTest, ListsInstanceNamesOverHttpsWithAPassword) {
    EXPECT_EQ(succeed({"wbemcli", "-noverify", "ein", https(":OMC_NumericSensor")}),
              expectedSensors(host(httpsPort_)));
}

TEST_F(WbemcliTest, ListsInstances) {
    const Lines lines = succeed({"wbemcli", "ei", http(":OMC_ProcessorSlot"), "Number,Occupied"});
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[2], host(httpPort_) + kSlot + " Number=70000,Occupied=FALSE");
}

TEST_F(WbemcliTest, ListsInstancesOverHttpsWithAPassword) {
    const Lines lines = succeed({"wbemcli", "-noverify", "ei", https(":OMC_ProcessorSlot"), "Number"});
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0],
              host(httpsPort_) +
                  ":OMC_ProcessorSlot.CreationClassName=\"OMC_ProcessorSlot\",Tag=\"Processor Socket 1\" "
                  "Number=1");
}

TEST_F(WbemcliTest, GetsAnInstance) {
    EXPECT_EQ(succeed({"wbemcli", "gi", http(kSlot), "Number"}),
              (Lines{host(httpPort_) + kSlot + " Number=70000"}));
}

TEST_F(WbemcliTest, GetsAProperty) {
    EXPECT_EQ(succeed({"wbemcli", "gp", http(kSlot), "Number"}), Lines{"70000"});
}

TEST_F(WbemcliTest, CallsAMethod) {
    EXPECT_EQ(succeed({"wbemcli", "cm", http(kEcho), "EchoUint8.Value=7,Values=1,2,255"}),
              (Lines{host(httpPort_) + kEcho +
                     " EchoUint8: 7, ValueEcho (uint8): 7, ValuesEcho (uint8): 1,2,255"}));
}

TEST_F(WbemcliTest, CallsMethodsWhoseOutputsAreNull) {
    EXPECT_EQ(succeed({"wbemcli", "cm", http(kComputerSystem), "RequestStateChange.RequestedState=3"}),
              (Lines{host(httpPort_) + kComputerSystem + " RequestStateChange: 0"}));
}

TEST_F(WbemcliTest, FollowsAssociations) {
    const Lines sensors = expectedSensors(host(httpPort_));
    const Lines all = succeed({"wbemcli", "ain", http(kComputerSystem)});
    EXPECT_EQ(all.size(), 5U);
    EXPECT_EQ(succeed({"wbemcli", "ain", "-ac", "OMC_SystemDevice", "-arc", "CIM_Sensor", "-ar",
                       "GroupComponent", "-arr", "PartComponent", http(kComputerSystem)}),
              Lines(sensors.begin(), sensors.begin() + 3));
    EXPECT_EQ(succeed({"wbemcli", "ain", "-ar", "PartComponent", http(kComputerSystem)}), Lines());
    EXPECT_EQ(succeed({"wbemcli", "ai", "-arc", "CIM_Sensor", http(kComputerSystem), "CurrentReading"}).at(0),
              sensors[0] + " CurrentReading=23");
    EXPECT_EQ(succeed({"wbemcli", "rin", http(kComputerSystem)}).size(), 6U);
    EXPECT_EQ(
        succeed({"wbemcli", "ri", "-arc", "OMC_AssociatedSensor", "-ar", "Dependent", http(kComputerSystem)})
            .size(),
        1U);
    EXPECT_EQ(succeed({"wbemcli", "ri", "-ar", "Antecedent", http(kComputerSystem)}), Lines());
}

TEST_F(WbemcliTest, CreatesChangesAndDeletesAnInstance) {
    const std::string slot = ":OMC_ProcessorSlot.CreationClassName=\"OMC_ProcessorSlot\",Tag=\"New\"";
    EXPECT_EQ(succeed({"wbemcli", "ci", http(slot), "CreationClassName=OMC_ProcessorSlot,Tag=New,Number=5"}),
              Lines{host(httpPort_) + slot});
    EXPECT_EQ(succeed({"wbemcli", "mi", http(slot), "Occupied=TRUE"}), Lines());
    EXPECT_EQ(succeed({"wbemcli", "gi", http(slot), "Number,Occupied"}),
              Lines{host(httpPort_) + slot + " Number=5,Occupied=TRUE"});
    EXPECT_EQ(succeed({"wbemcli", "sp", http(slot), "Number=6"}), Lines());
    EXPECT_EQ(succeed({"wbemcli", "gp", http(slot), "Number"}), Lines{"6"});
    EXPECT_NE(failure({"wbemcli", "ci", http(slot), "CreationClassName=OMC_ProcessorSlot,Tag=New"})
                  .find("(11) CIM_ERR_ALREADY_EXISTS"),
              std::string::npos);
    EXPECT_EQ(succeed({"wbemcli", "di", http(slot)}), Lines());
    EXPECT_NE(failure({"wbemcli", "di", http(slot)}).find("(6) CIM_ERR_NOT_FOUND"), std::string::npos);
}

TEST_F(WbemcliTest, DeletesAClassThatNothingHangsOn) {
    EXPECT_NE(failure({"wbemcli", "dc", http(":OMC_ProcessorSlot")}).find("(9) CIM_ERR_CLASS_HAS_INSTANCES"),
              std::string::npos);
    EXPECT_EQ(succeed({"wbemcli", "dc", http(":OMC_SensorAlert")}), Lines());
    EXPECT_NE(failure({"wbemcli", "gc", http(":OMC_SensorAlert")}).find("(6) CIM_ERR_NOT_FOUND"),
              std::string::npos);
}

TEST_F(WbemcliTest, IsToldWhatIsMissing) {
    const ProcessResult result = runProcess({"wbemcli", "gc", http(":Nothing")});
    EXPECT_NE(result.status, 0);
    EXPECT_NE(result.err.find("(6) CIM_ERR_NOT_FOUND"), std::string::npos) << result.err;
}

TEST_F(WbemcliTest, IsRefusedWithAWrongPassword) {
    const ProcessResult result = runProcess({"wbemcli", "-noverify", "ecn", https("", "wrong")});
    EXPECT_NE(result.status, 0);
    EXPECT_NE(result.err.find("wbemcli: "), std::string::npos) << result.err;
    EXPECT_EQ(server_.requests().back().status, 401);
}

}  // namespace
}  // namespace cimom
