// What a host may do without end leaves no more memory taken and no more descriptors open than doing it once.
// The number of rounds is CIMHTTP_ROUNDS, and each test prints what a round left behind.

#include <gtest/gtest.h>

#include <algorithm>
#include <boost/pointer_cast.hpp>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/memory/AllocatedBytes.h"
#include "tests/support/FakeNodes.h"
#include "tests/support/PluginTest.h"
#include "tests/support/Process.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMInstance.h"

namespace NQELVSK20 {
namespace {

using Names = std::vector<std::string>;

std::size_t Rounds(std::size_t usual) {
    const char* const asked = std::getenv("CIMHTTP_ROUNDS");
    return asked == nullptr ? usual : std::stoul(asked);
}

long OpenDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return static_cast<long>(std::distance(begin(all), end(all)));
}

class NothingGrows : public PluginTest {
protected:
    using Namespace = boost::shared_ptr<TCimHTTPNamespace>;

    /// Runs it often, the first tenth to warm up, and says how many bytes each further round left.
    double BytesPerRound(std::size_t rounds, const std::function<void()>& round) {
        const auto once = [&] {
            round();
            log_.Clear();
            timeouts_.clear();
        };
        for (std::size_t i = 0; i < rounds / 10 + 20; ++i) {
            once();
        }
        const long long before = support::AllocatedBytes();
        const long descriptors = OpenDescriptors();
        const auto start = std::chrono::steady_clock::now();
        for (std::size_t i = 0; i < rounds; ++i) {
            once();
        }
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
        const auto grown = static_cast<double>(support::AllocatedBytes() - before);
        EXPECT_LE(OpenDescriptors(), descriptors);
        std::printf("%zu rounds in %.1f s: %.0f bytes more, %ld descriptors more\n", rounds, passed.count(),
                    grown, OpenDescriptors() - descriptors);
        return grown / static_cast<double>(rounds);
    }

    static std::size_t InstancesOf(const Namespace& nameSpace, const std::string& className) {
        std::size_t count = 0;
        const auto cimClass = nameSpace->GetClass(className, TContext());
        if (cimClass) {
            cimClass->EnumerateInstances(
                [&](const boost::shared_ptr<ICIMInstance>&) {
                    ++count;
                    return true;
                },
                false, TContext());
        }
        return count;
    }

    static void Fill(FakeNodes& nodes) {
        using Pegasus::CIMName;
        using Pegasus::CIMValue;
        Pegasus::CIMClass definition{CIMName("N_Fan")};
        Pegasus::CIMProperty id(CIMName("Id"), CIMValue(Pegasus::String::EMPTY));
        id.addQualifier(Pegasus::CIMQualifier(CIMName("Key"), CIMValue(Pegasus::Boolean(true))));
        definition.addProperty(id);
        nodes.Define(definition);
        for (std::size_t node = 0; node < nodes.Hosts().size(); ++node) {
            for (const char* name : {"left", "right", "a fan with a name of some length"}) {
                Pegasus::CIMInstance fan{CIMName("N_Fan")};
                fan.addProperty(Pegasus::CIMProperty(
                    CIMName("Id"),
                    CIMValue(Pegasus::String(name) + Pegasus::String(nodes.Hosts()[node].c_str()))));
                nodes.Add(node, fan);
            }
        }
    }

    /// Nodes of the sample machine in a process of their own, whose memory is not looked at, over plain HTTP
    /// alone or over TLS alone.
    class Machine {
    public:
        explicit Machine(std::size_t nodes, bool https = false) {
            Names command{CIMOM_PROGRAM, https ? "--no-http" : "--no-https"};
            for (std::size_t node = 0; node < nodes; ++node) {
                hosts_.push_back(TestMachine::AddressOf(node));
                command.insert(command.end(), {"--address", hosts_.back()});
            }
            process_ = std::make_unique<support::Process>(command);
            for (std::size_t node = 0; node < nodes; ++node) {
                process_->readLine();
            }
        }

        void Connect(const Namespace& nameSpace) const {
            const Names none(hosts_.size());
            nameSpace->connect(hosts_, none, none);
        }

    private:
        Names hosts_;
        std::unique_ptr<support::Process> process_;
    };

    /// Fewer bytes of a round than the smallest block has.
    static constexpr double kNothing = 4;
};

TEST_F(NothingGrows, WithEnumerations) {
    FakeNodes nodes(2);
    Fill(nodes);
    const Namespace nameSpace = MakeNamespace();
    nameSpace->connect(nodes.Hosts(), Names(2), Names(2));
    EXPECT_LT(BytesPerRound(Rounds(2000),
                            [&] {
                                ASSERT_EQ(InstancesOf(nameSpace, "N_Fan"), 6U);
                                nodes.Clear();
                            }),
              kNothing);
}

TEST_F(NothingGrows, WithEnumerationsThatFail) {
    FakeNodes nodes(2);
    Fill(nodes);
    const Namespace nameSpace = MakeNamespace();
    nameSpace->connect(nodes.Hosts(), Names(2), Names(2));
    ASSERT_EQ(InstancesOf(nameSpace, "N_Fan"), 6U);
    EXPECT_LT(BytesPerRound(Rounds(2000),
                            [&] {
                                nodes.Clear();
                                nodes.Fail(1, Pegasus::CannotConnectException(Pegasus::String("gone")), 2);
                                ASSERT_EQ(InstancesOf(nameSpace, "N_Fan"), 3U);
                                ASSERT_FALSE(nameSpace->GetClass("N_Absent", TContext()));
                                pauses_.clear();
                            }),
              kNothing);
}

TEST_F(NothingGrows, WithEnumerationsOverSockets) {
    const Machine machine(2);
    const Namespace nameSpace = MakeNamespace();
    machine.Connect(nameSpace);
    EXPECT_LT(
        BytesPerRound(Rounds(100), [&] { ASSERT_EQ(InstancesOf(nameSpace, "OMC_NumericSensor"), 22U); }),
        kNothing);
}

TEST_F(NothingGrows, WithConnectingAndDisconnecting) {
    const Machine machine(3);
    const Namespace nameSpace = MakeNamespace();
    EXPECT_LT(BytesPerRound(Rounds(1000),
                            [&] {
                                machine.Connect(nameSpace);
                                nameSpace->disconnect();
                            }),
              kNothing);
}

TEST_F(NothingGrows, WithConnectingAndDisconnectingOverTls) {
    const Machine machine(1, true);
    const Namespace nameSpace = MakeNamespace();
    EXPECT_LT(BytesPerRound(Rounds(500),
                            [&] {
                                machine.Connect(nameSpace);
                                nameSpace->disconnect();
                            }),
              kNothing);
}

TEST_F(NothingGrows, WithConnectionsThatAreRefused) {
    const Namespace nameSpace = MakeNamespace();
    EXPECT_LT(BytesPerRound(Rounds(2000),
                            [&] {
                                nameSpace->connect(TestMachine::AddressOf(0), "anna", "one");
                                nameSpace->disconnect();
                            }),
              kNothing);
}

// The client of a namespace's first node outlives it; everything else goes.
TEST_F(NothingGrows, OverManyNamespacesButForTheFirstNodesClient) {
    const Machine machine(2);
    std::vector<std::unique_ptr<PegClient>> clients;
    const double ofAClient = BytesPerRound(500, [&] { clients.push_back(std::make_unique<PegClient>()); });
    const double left = BytesPerRound(Rounds(40), [&] {
        const Namespace nameSpace = MakeNamespace();
        machine.Connect(nameSpace);
        ASSERT_EQ(InstancesOf(nameSpace, "OMC_NumericSensor"), 22U);
    });
    std::printf("a client %.0f bytes, a namespace left %.0f\n", ofAClient, left);
    EXPECT_LT(left, ofAClient + 256);
}

TEST_F(NothingGrows, OverManyNamespacesThatAreNotConnectedButForTheFirstNodesClient) {
    std::vector<std::unique_ptr<PegClient>> clients;
    const double ofAClient = BytesPerRound(500, [&] { clients.push_back(std::make_unique<PegClient>()); });
    const double left = BytesPerRound(Rounds(500), [&] {
        const Namespace nameSpace = MakeNamespace();
        nameSpace->connect(TestMachine::AddressOf(0), "anna", "one");
    });
    std::printf("a client %.0f bytes, a namespace left %.0f\n", ofAClient, left);
    EXPECT_LT(left, ofAClient + 256);
}

}  // namespace
}  // namespace NQELVSK20
