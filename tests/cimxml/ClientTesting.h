#pragma once

#include <Pegasus/Client/CIMClient.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "cimom/Server.h"

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

/// Message of the exception that `action` throws, which has to be an Expected.
template <class Expected, class Action>
std::string messageOf(Action action) {
    try {
        action();
    } catch (const Expected& exception) {
        return static_cast<const char*>(exception.getMessage().getCString());
    } catch (const Pegasus::Exception& exception) {
        ADD_FAILURE() << "another exception: "
                      << static_cast<const char*>(exception.getMessage().getCString());
        return {};
    }
    ADD_FAILURE() << "threw nothing";
    return {};
}

inline std::string textOf(const Pegasus::String& text) {
    return static_cast<const char*>(text.getCString());
}
