#pragma once

#include <Pegasus/Client/CIMClient.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "cimom/Server.h"
#include "tests/cimxml/ApiTesting.h"

/// A client, and an embedded server with the sample machine's first node to talk to.
class ClientTest : public testing::Test {
protected:
    /// Starts the server on a free loopback port.
    void serve(cimom::Endpoint endpoint = {}) {
        endpoint.repository = cimom::Repository::sampleNode(0);
        port = server.listen(endpoint);
        server.start();
    }

    void connect() { client.connect(host, port, Pegasus::String(), Pegasus::String()); }

    void serveAndConnect() {
        serve();
        connect();
    }

    void inject(cimom::Fault::Kind kind, int times = 1) {
        cimom::Fault fault;
        fault.kind = kind;
        fault.times = times;
        server.inject(fault);
    }

    /// The server's next answer is these bytes.
    void answerWith(const std::string& bytes) {
        cimom::Fault fault;
        fault.kind = cimom::Fault::Kind::RawAnswer;
        fault.times = 1;
        fault.text = bytes;
        server.inject(fault);
    }

    Pegasus::Array<Pegasus::CIMName> anyRequest() {
        return client.enumerateClassNames(nameSpace, Pegasus::CIMName("CIM_Sensor"), false);
    }

    /// HOST:PORT of the server.
    std::string locator() const { return "127.0.0.1:" + std::to_string(port); }

    cimom::Server server;
    Pegasus::Uint32 port = 0;
    const Pegasus::String host{"127.0.0.1"};
    const Pegasus::CIMNamespaceName nameSpace{"root/cimv2"};
    Pegasus::CIMClient client;
};

/// Message of the Expected that `action` throws, or of what is derived from it: the client's exceptions may
/// hold their cause.
template <class Expected, class Action>
std::string clientErrorOf(Action action) {
    try {
        action();
    } catch (const Expected& exception) {
        return utf8(exception.getMessage());
    } catch (const Pegasus::Exception& exception) {
        ADD_FAILURE() << "another exception: " << utf8(exception.getMessage());
        return {};
    }
    ADD_FAILURE() << "threw nothing";
    return {};
}
