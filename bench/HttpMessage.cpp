#include "bench/HttpMessage.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace bench {

namespace {

constexpr std::string_view kHeadEnd = "\r\n\r\n";

std::size_t BodySize(std::string_view head) {
    constexpr std::string_view name = "content-length:";
    const auto isEqual = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a + ('a' - 'A') : a) == b; };
    const auto found = std::search(head.begin(), head.end(), name.begin(), name.end(), isEqual);
    if (found == head.end()) {
        throw std::runtime_error("an HTTP message without Content-Length");
    }
    return std::strtoul(&*found + name.size(), nullptr, 10);
}

}  // namespace

bool ReceiveMessage(const Stream& connection, HttpMessage& message) {
    message.head.clear();
    std::size_t end = std::string::npos;
    for (char piece[4096]; end == std::string::npos; end = message.head.find(kHeadEnd)) {
        const std::size_t received = connection.Receive(piece, sizeof piece);
        if (received == 0) {
            if (message.head.empty()) {
                return false;
            }
            throw std::runtime_error("an HTTP message that ends in its head");
        }
        message.head.append(piece, received);
    }
    message.body.resize(BodySize(message.head));
    std::size_t filled = message.head.size() - end - kHeadEnd.size();
    message.head.copy(&message.body[0], filled, end + kHeadEnd.size());
    message.head.resize(end + kHeadEnd.size());
    while (filled < message.body.size()) {
        const std::size_t received = connection.Receive(&message.body[filled], message.body.size() - filled);
        if (received == 0) {
            throw std::runtime_error("an HTTP message that ends in its body");
        }
        filled += received;
    }
    return true;
}

std::string EnumerationRequest(const std::string& host, const std::string& className) {
    const std::string body =
        "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
        "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ><IMETHODCALL NAME=\"EnumerateInstances\">"
        "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH>"
        "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"" +
        className + "\"/></IPARAMVALUE></IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";
    return "POST /cimom HTTP/1.1\r\nHost: " + host +
           "\r\nContent-Type: application/xml; charset=\"utf-8\"\r\n"
           "CIMOperation: MethodCall\r\nCIMMethod: EnumerateInstances\r\nCIMObject: root/cimv2\r\n"
           "Content-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

}  // namespace bench
