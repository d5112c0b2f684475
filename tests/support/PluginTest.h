#pragma once

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/RecordingLogger.h"
#include "tests/support/TestMachine.h"

namespace NQELVSK20 {

class TCimHTTPNamespace;
class TQELCNamespace;
class TInmemUnion;

/// A plug-in in its host: records the log, replaces the pause before a reconnection (and counts it), records
/// the time-outs of requests (and shortens them, when a test says so), puts the common-schema and union
/// namespaces behind every namespace, and starts without a hypervisor detection, which a test asks for when
/// it is about it.
class PluginTest : public ::testing::Test {
protected:
    PluginTest();
    ~PluginTest() override;

    /// An initialised namespace with node 0's client, not connected.
    boost::shared_ptr<TCimHTTPNamespace> MakeNamespace(const std::string& name = "root/cimv2",
                                                       bool replaceDuplicates = false);

    /// The same without Init: nothing remote exists.
    boost::shared_ptr<TCimHTTPNamespace> MakeUninitNamespace(const std::string& name = "root/cimv2",
                                                             bool replaceDuplicates = false);

    /// Connects a namespace to every node of a machine: by the single-node form for one node.
    static void ConnectTo(TCimHTTPNamespace& nameSpace, const TestMachine& machine);

    /// MakeNamespace and ConnectTo; the log and the machine's requests are then cleared.
    boost::shared_ptr<TCimHTTPNamespace> Connected(TestMachine& machine,
                                                   const std::string& name = "root/cimv2",
                                                   bool replaceDuplicates = false);

private:
    class ObservedLink;

protected:
    RecordingLogger log_;
    std::vector<unsigned int> pauses_;       // milliseconds of every pause that was asked for
    std::function<void()> whilePausing_;     // what happens elsewhere during each of them; may be empty
    std::vector<unsigned int> timeouts_;     // milliseconds of every time-out that the clients were given
    std::optional<unsigned int> shortened_;  // what a request's time-outs are in truth; none: what was asked
    unsigned int longestShortened_ = 0xffffffffU;  // longer ones than that are what was asked all the same
    boost::shared_ptr<TQELCNamespace> common_;
    boost::shared_ptr<TInmemUnion> union_;
};

}  // namespace NQELVSK20
