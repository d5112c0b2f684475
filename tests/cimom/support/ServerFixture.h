#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "cimom/Server.h"
#include "tests/cimom/support/RawConnection.h"
#include "tests/cimom/support/Requests.h"

namespace cimom::test {

/// A running server over small data, with no endpoint yet.
class ServerFixture : public testing::Test {
protected:
    ServerFixture();

    /// Listens on 127.0.0.1 and any port, with the small data unless the endpoint brings others.
    std::uint16_t listen(Endpoint endpoint = Endpoint());

    /// A connection to that port of 127.0.0.1.
    static RawConnection connect(std::uint16_t port, RawConnection::Tls tls = RawConnection::Tls::None);

    /// Sends one request over a connection of its own and reads the answer.
    static RawAnswer ask(std::uint16_t port, const std::string& request,
                         RawConnection::Tls tls = RawConnection::Tls::None);

    /// A request that the small data answer with three instances.
    static std::string instancesRequest(const std::string& fields = "");

    std::shared_ptr<Repository> repository_;
    Server server_;
};

}  // namespace cimom::test
