#include "bench/RawExchange.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>
#include <vector>

namespace bench {

namespace {

/// A connected socket that closes itself.
class Socket {
public:
    Socket(const std::string& address, std::uint16_t port) : descriptor_(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in peer{};
        peer.sin_family = AF_INET;
        peer.sin_port = htons(port);
        inet_pton(AF_INET, address.c_str(), &peer.sin_addr);
        if (connect(descriptor_, reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0) {
            throw std::runtime_error("cannot connect to " + address);
        }
    }
    ~Socket() { close(descriptor_); }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    void Send(const std::string& text) const {
        if (send(descriptor_, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) {
            throw std::runtime_error("cannot send");
        }
    }

    std::string ReceiveAll() const {
        std::string text;
        std::vector<char> buffer(1 << 16);
        for (;;) {
            const ssize_t count = recv(descriptor_, buffer.data(), buffer.size(), 0);
            if (count < 0) {
                throw std::runtime_error("cannot receive");
            }
            if (count == 0) {
                return text;
            }
            text.append(buffer.data(), static_cast<std::size_t>(count));
        }
    }

private:
    int descriptor_;
};

std::string RequestBody(const std::string& className) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
           "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ><IMETHODCALL NAME=\"EnumerateInstances\">"
           "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH>"
           "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"" +
           className + "\"/></IPARAMVALUE></IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";
}

}  // namespace

std::string RawEnumerateInstances(const std::string& address, std::uint16_t port,
                                  const std::string& className) {
    const std::string body = RequestBody(className);
    const Socket connection(address, port);
    connection.Send("POST /cimom HTTP/1.1\r\nHost: " + address +
                    "\r\nContent-Type: application/xml; charset=\"utf-8\"\r\nConnection: close\r\n"
                    "CIMOperation: MethodCall\r\nCIMMethod: EnumerateInstances\r\nCIMObject: root%2Fcimv2\r\n"
                    "Content-Length: " +
                    std::to_string(body.size()) + "\r\n\r\n" + body);
    const std::string answer = connection.ReceiveAll();
    const std::size_t headEnd = answer.find("\r\n\r\n");
    if (headEnd == std::string::npos) {
        throw std::runtime_error("no answer");
    }
    return answer.substr(headEnd + 4);
}

}  // namespace bench
