#include "tests/cimom/support/ServerFixture.h"

#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom::test {

ServerFixture::ServerFixture() : repository_(std::make_shared<Repository>()) {
    repository_->addDeclarations("root/cimv2", kSmallDeclarations, "small.xml");
    server_.start();
}

std::uint16_t ServerFixture::listen(Endpoint endpoint) {
    if (!endpoint.repository) {
        endpoint.repository = repository_;
    }
    return server_.listen(endpoint);
}

RawConnection ServerFixture::connect(std::uint16_t port, RawConnection::Tls tls) {
    return RawConnection("127.0.0.1", port, tls);
}

RawAnswer ServerFixture::ask(std::uint16_t port, const std::string& request, RawConnection::Tls tls) {
    RawConnection connection("127.0.0.1", port, tls);
    connection.send(request);
    return connection.readAnswer();
}

std::string ServerFixture::instancesRequest(const std::string& fields) {
    return intrinsicRequest("EnumerateInstanceNames", {{"ClassName", classNameXml("Base")}}, fields);
}

}  // namespace cimom::test
