#pragma once

#include <initializer_list>
#include <string>

#include "cimhttp/PegClient.h"
#include "tests/support/TestMachine.h"

namespace NQELVSK20 {

/// A whole HTTP answer to GetClass: the message ID of the request, and the CLASS element that is returned.
inline std::string GetClassAnswer(unsigned long messageId, const std::string& cimClass) {
    const std::string body =
        "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"" +
        std::to_string(messageId) +
        "\" PROTOCOLVERSION=\"1.0\"><SIMPLERSP><IMETHODRESPONSE NAME=\"GetClass\">"
        "<IRETURNVALUE>" +
        cimClass + "</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>";
    return "HTTP/1.1 200 OK\r\nContent-Type: application/xml\r\nCIMOperation: MethodResponse\r\n"
           "Content-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

/// The number of the message that the client sent last, which it finds out by a request. The client library
/// numbers its messages one by one.
inline unsigned long LastMessageId(TestMachine& machine, PegClient& client) {
    client.EnumerateClassNames("root/cimv2", "", false, 5000);
    const std::string body = machine.Server().requests().back().body;
    const std::string mark = "<MESSAGE ID=\"";
    return std::stoul(body.substr(body.find(mark) + mark.size()));
}

/// Answers the next GetClass requests with these CLASS elements, one each, whatever they ask for; those that
/// follow are answered from the repository again.
///
/// No other request may come between.
inline void AnswerGetClassWith(TestMachine& machine, PegClient& client,
                               std::initializer_list<std::string> classes) {
    unsigned long messageId = LastMessageId(machine, client);
    for (const std::string& cimClass : classes) {
        cimom::Fault fault;
        fault.kind = cimom::Fault::Kind::RawAnswer;
        fault.operation = "GetClass";
        fault.times = 1;
        fault.text = GetClassAnswer(++messageId, cimClass);
        machine.Server().inject(fault);
    }
    machine.ClearRequests();
}

}  // namespace NQELVSK20
