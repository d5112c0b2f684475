#include <Pegasus/Client/CIMClient.h>

#include <stdexcept>

#include "bench/HttpMessage.h"
#include "bench/Sample.h"
#include "bench/SampleServer.h"
#include "bench/SmallRequest.h"
#include "bench/Socket.h"
#include "bench/micro/Steps.h"
#include "bench/micro/wire/Wire.h"
#include "cimxml/wire/ResponseReader.h"

namespace bench {

namespace {

using cimxml::ResponseReader;
using Pegasus::CIMName;
using Pegasus::CIMObjectPath;

/// An answer as a server gave it, and what it answers.
struct Recorded {
    std::string body;
    ResponseReader::Expected expected;

    ResponseReader Open() const { return ResponseReader(body, expected, cimxml::Limits()); }
};

/// Between two texts, of which the first stands once at least.
std::string Between(const std::string& text, const std::string& before, char behind) {
    const std::size_t begin = text.find(before) + before.size();
    return text.substr(begin, text.find(behind, begin) - begin);
}

/// Has the client ask, and the same request answered once more, where its answer can be seen.
template <class TAsk>
Recorded Record(bool intrinsic, const TAsk& ask) {
    const SampleServer server;
    ask(*ConnectedClient(SampleServer::Address(), false));
    const std::string request = server.Requests().back();
    const Socket connection = Socket::Connect(SampleServer::Address(), 5988);
    connection.Send(request);
    HttpMessage answer;
    if (!ReceiveMessage(connection, answer)) {
        throw std::runtime_error("no answer was recorded");
    }
    return {answer.body,
            {Between(request, "<MESSAGE ID=\"", '"'), Between(request, "CIMMethod: ", '\r'), intrinsic}};
}

const Pegasus::CIMNamespaceName& Where() {
    static const Pegasus::CIMNamespaceName nameSpace(kNamespace);
    return nameSpace;
}

/// A step that reads a list of items.
template <class TRead>
void AddList(const std::string& operation, const TRead& read) {
    const std::size_t items = read().size();
    if (items == 0) {
        throw std::runtime_error(operation + " was answered with nothing");
    }
    AddStep("decode/" + operation + ", " + std::to_string(items) + " items", read, items);
}

void AddSchemaAnswers() {
    const Recorded oneClass = Record(true, [](Pegasus::CIMClient& client) {
        client.getClass(Where(), CIMName(kManyClass), false, true, true);
    });
    const Recorded classes = Record(true, [](Pegasus::CIMClient& client) {
        client.enumerateClasses(Where(), CIMName("CIM_LogicalDevice"), true, false, true, true);
    });
    const Recorded names = Record(
        true, [](Pegasus::CIMClient& client) { client.enumerateClassNames(Where(), CIMName(), true); });
    AddStep("decode/GetClass, with qualifiers", [=] { return oneClass.Open().readClass(); });
    AddList("EnumerateClasses", [=] { return classes.Open().readClasses(); });
    AddList("EnumerateClassNames", [=] { return names.Open().readClassNames(); });
}

void AddInstanceAnswers() {
    const Recorded one = Record(true, [](Pegasus::CIMClient& client) { AskForSlot(client); });
    const Recorded instances = Record(true, [](Pegasus::CIMClient& client) {
        client.enumerateInstances(Where(), CIMName(kManyClass), true, true, false, false);
    });
    const Recorded paths = Record(true, [](Pegasus::CIMClient& client) {
        client.enumerateInstanceNames(Where(), CIMName(kManyClass));
    });
    AddStep("decode/GetInstance, one property", [=] { return one.Open().readInstance(); });
    AddList("EnumerateInstances", [=] { return instances.Open().readInstances(); });
    AddList("EnumerateInstanceNames", [=] { return paths.Open().readInstanceNames(); });
}

void AddMethodAnswer() {
    const Recorded result = Record(false, [](Pegasus::CIMClient& client) {
        const auto services = client.enumerateInstanceNames(Where(), CIMName("OMC_EchoService"));
        Pegasus::Array<Pegasus::CIMParamValue> in;
        in.append(Pegasus::CIMParamValue("Value", Pegasus::CIMValue(Pegasus::Uint8(7))));
        Pegasus::Array<Pegasus::CIMParamValue> out;
        client.invokeMethod(Where(), services[0], CIMName("EchoUint8"), in, out);
    });
    AddStep("decode/method result", [=] {
        Pegasus::Array<Pegasus::CIMParamValue> out;
        return result.Open().readMethodResult(out);
    });
}

}  // namespace

void AddAnswers() {
    AddSchemaAnswers();
    AddInstanceAnswers();
    AddMethodAnswer();
}

}  // namespace bench
