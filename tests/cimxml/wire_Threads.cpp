// No operation starts a thread, whatever comes of it.

#include <Pegasus/Client/CIMClient.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "cimom/Server.h"

namespace cimxml_test {
namespace {

using namespace Pegasus;

/// Threads of this process. Linux only.
std::ptrdiff_t threads() {
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
}

void useClient(cimom::Server& server, Uint32 port, bool tls) {
    const CIMNamespaceName nameSpace("root/cimv2");
    CIMClient client;
    if (tls) {
        client.connect(String("localhost"), port, SSLContext(String(), nullptr), String(), String());
    } else {
        client.connect(String("localhost"), port, String(), String());
    }
    const std::ptrdiff_t before = threads();
    client.enumerateInstances(nameSpace, CIMName("CIM_Sensor"));
    EXPECT_EQ(threads(), before);
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::NoAnswer;
    fault.times = 1;
    server.inject(fault);
    client.setTimeout(50);
    EXPECT_THROW(client.enumerateClassNames(nameSpace), ConnectionTimeoutException);
    EXPECT_EQ(threads(), before);
    client.setTimeout(20000);
    client.enumerateClassNames(nameSpace);
    EXPECT_EQ(threads(), before);
}

TEST(Threads, AreNotStarted) {
    cimom::Server server;
    cimom::Endpoint endpoint;
    endpoint.repository = cimom::Repository::sampleNode(0);
    const Uint32 http = server.listen(endpoint);
    endpoint.tls = true;
    const Uint32 https = server.listen(endpoint);
    server.start();
    const std::ptrdiff_t before = threads();
    useClient(server, http, false);
    useClient(server, https, true);
    CIMClient client;
    EXPECT_THROW(client.connect(String("no.such.host.invalid"), 1, String(), String()),
                 InvalidLocatorException);
    EXPECT_EQ(threads(), before);
}

}  // namespace
}  // namespace cimxml_test
