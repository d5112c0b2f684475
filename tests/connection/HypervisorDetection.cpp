#include <gtest/gtest.h>

#include <locale>
#include <string>

#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/Declarations.h"
#include "tests/support/PluginTest.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"

namespace NQELVSK20 {
namespace {

using Access = TCimHTTPNamespaceTestAccess;

/// Whether the process began with its detection behind it; every test sets that as it needs it.
const bool kIsDoneFromTheStart = Access::IsDetectionDone();

class HypervisorDetectionTest : public PluginTest {
protected:
    HypervisorDetectionTest() { Access::SetDetectionDone(false); }

    static TestMachine::Options Bare() {
        TestMachine::Options options;
        options.sampleData = false;
        return options;
    }

    void DeclareHypervisor(const std::string& instanceProperties) {
        machine_.Repository(0).addDeclarations(
            "root/cimv2",
            Declarations({ClassXml("VMware_HypervisorSoftwareIdentity", "",
                                   KeyXml("InstanceID", "string") + PropertyXml("VersionString", "string")),
                          InstanceXml("VMware_HypervisorSoftwareIdentity",
                                      PropertyXml("InstanceID", "string", "1") + instanceProperties)}),
            "hypervisor");
    }

    /// Connects to a server whose identity has this version.
    boost::shared_ptr<TCimHTTPNamespace> ConnectToVersion(const char* version) {
        DeclareHypervisor(PropertyXml("VersionString", "string", version));
        const auto nameSpace = MakeNamespace("root/other");
        nameSpace->connect(machine_.Host(0), "", "");
        return nameSpace;
    }

    std::size_t Detections() const {
        std::size_t count = 0;
        for (const std::string& request : machine_.Requests()) {
            count += request == "0 EnumerateInstances VMware_HypervisorSoftwareIdentity" ? 1U : 0U;
        }
        return count;
    }

    TestMachine machine_{Bare()};
};

TEST_F(HypervisorDetectionTest, Version5IsEsxi5) {
    const auto nameSpace = ConnectToVersion("5.0.0 build-469512");
    EXPECT_TRUE(nameSpace->getIsServeESXi());
    EXPECT_TRUE(nameSpace->getIsServeESXi5());
}

TEST_F(HypervisorDetectionTest, Version4IsEsxiButNotEsxi5) {
    const auto nameSpace = ConnectToVersion("4.1.0 build-260247");
    EXPECT_TRUE(nameSpace->getIsServeESXi());
    EXPECT_FALSE(nameSpace->getIsServeESXi5());
}

TEST_F(HypervisorDetectionTest, Version6CountsAsEsxi5) {
    const auto nameSpace = ConnectToVersion("6.0.0 build-2494585");
    EXPECT_TRUE(nameSpace->getIsServeESXi());
    EXPECT_TRUE(nameSpace->getIsServeESXi5());
}

TEST_F(HypervisorDetectionTest, MajorNumberOfTwoDigitsIsReadWhole) {
    EXPECT_TRUE(ConnectToVersion("10.1.2 build-1")->getIsServeESXi5());
}

/// A host's locale that writes numbers with groups of three digits, parted by full stops.
class GroupedDigits : public std::numpunct<char> {
protected:
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// The process's C++ locale for as long as this lives.
class GlobalLocale {
public:
    explicit GlobalLocale(const std::locale& locale) : before_(std::locale::global(locale)) {}
    ~GlobalLocale() { std::locale::global(before_); }
    GlobalLocale(const GlobalLocale&) = delete;
    GlobalLocale& operator=(const GlobalLocale&) = delete;

private:
    std::locale before_;
};

TEST_F(HypervisorDetectionTest, VersionIsReadTheSameInEveryLocale) {
    const GlobalLocale grouped(std::locale(std::locale::classic(), new GroupedDigits));  // the locale owns it
    const auto version4 = ConnectToVersion("4.1.0 build-260247");
    EXPECT_TRUE(version4->getIsServeESXi());
    EXPECT_FALSE(version4->getIsServeESXi5()) << "not 410";
}

TEST_F(HypervisorDetectionTest, VersionThatIsNoNumberIsNotEsxi5) {
    const auto nameSpace = ConnectToVersion("ESXi 5.0.0");
    EXPECT_TRUE(nameSpace->getIsServeESXi());
    EXPECT_FALSE(nameSpace->getIsServeESXi5());
    EXPECT_TRUE(log_.LinesWith("TCimHTTPNamespace::Pegasus Client").empty());
}

TEST_F(HypervisorDetectionTest, IdentityWithoutAVersionIsLoggedAndStillEsxi) {
    machine_.Repository(0).addDeclarations(
        "root/cimv2",
        Declarations(
            {ClassXml("VMware_HypervisorSoftwareIdentity", "", KeyXml("InstanceID", "string")),
             InstanceXml("VMware_HypervisorSoftwareIdentity", PropertyXml("InstanceID", "string", "1"))}),
        "hypervisor");
    const auto nameSpace = MakeNamespace();
    nameSpace->connect(machine_.Host(0), "", "");
    EXPECT_TRUE(nameSpace->getIsServeESXi());
    EXPECT_FALSE(nameSpace->getIsServeESXi5());
    EXPECT_EQ(log_.LinesWith("TCimHTTPNamespace::Pegasus Client"),
              (std::vector<RecordingLogger::Line>{
                  {3, "TCimHTTPNamespace::Pegasus Client connect VMware_HypervisorSoftwareIdentity"}}));
}

TEST_F(HypervisorDetectionTest, ServerWithoutTheClassLeavesBothFlagsFalse) {
    const auto nameSpace = MakeNamespace();
    nameSpace->connect(machine_.Host(0), "", "");
    EXPECT_EQ(Detections(), 1U);
    EXPECT_FALSE(nameSpace->getIsServeESXi());
    EXPECT_FALSE(nameSpace->getIsServeESXi5());
}

TEST_F(HypervisorDetectionTest, AsksInTheFixedNamespaceWithTheFixedFlags) {
    ConnectToVersion("5.0.0 build-1");
    const auto requests = machine_.Server().requests();
    ASSERT_EQ(requests.size(), 1U);
    const std::string& body = requests[0].body;
    EXPECT_NE(body.find("<NAMESPACE NAME=\"root\"/>"), std::string::npos) << body;
    EXPECT_NE(body.find("<NAMESPACE NAME=\"cimv2\"/>"), std::string::npos) << body;
    EXPECT_TRUE(machine_.Option(0, "DeepInheritance"));
    EXPECT_TRUE(machine_.Option(0, "LocalOnly"));
    EXPECT_FALSE(machine_.Option(0, "IncludeQualifiers"));
    EXPECT_FALSE(machine_.Option(0, "IncludeClassOrigin"));
    EXPECT_EQ(body.find("PropertyList"), std::string::npos) << body;
}

TEST_F(HypervisorDetectionTest, AnswerMayTakeTenSeconds) {
    ConnectToVersion("5.0.0 build-1");
    EXPECT_EQ(timeouts_, (std::vector<unsigned int>{65535000, 10000}));
}

TEST_F(HypervisorDetectionTest, ProcessBeginsWithItsDetectionStillToCome) {
    EXPECT_FALSE(kIsDoneFromTheStart);
}

TEST_F(HypervisorDetectionTest, SecondNamespaceOfTheProcessIsNotAskedAndKeepsItsFlagsFalse) {
    ConnectToVersion("5.0.0 build-1");
    const auto second = MakeNamespace();
    second->connect(machine_.Host(0), "", "");
    EXPECT_EQ(Detections(), 1U);
    EXPECT_FALSE(second->getIsServeESXi());
    EXPECT_FALSE(second->getIsServeESXi5());
}

TEST_F(HypervisorDetectionTest, MultiNodeConnectAndViaHttpNeverDetect) {
    DeclareHypervisor(PropertyXml("VersionString", "string", "5.0.0 build-1"));
    const auto multi = MakeNamespace();
    multi->connect(machine_.Hosts(), {""}, {""});
    const auto plain = MakeNamespace();
    plain->ConnectViaHttp(machine_.Host(0), "", "", 5988);
    EXPECT_EQ(Detections(), 0U);
    EXPECT_FALSE(multi->getIsServeESXi());
    EXPECT_FALSE(plain->getIsServeESXi());
}

TEST_F(HypervisorDetectionTest, FailureOfTheRequestLeavesBothFlagsFalse) {
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CimError;
    fault.code = 1;
    fault.text = "no";
    machine_.Server().inject(fault);
    const auto nameSpace = ConnectToVersion("5.0.0 build-1");
    EXPECT_FALSE(nameSpace->getIsServeESXi());
    EXPECT_EQ(log_.LinesWith("CIMException in PegClient::EnumerateInstances(): no").size(), 1U);
}

}  // namespace
}  // namespace NQELVSK20
