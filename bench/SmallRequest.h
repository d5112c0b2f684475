#pragma once

#include <Pegasus/Client/CIMClient.h>

#include <memory>
#include <string>

#include "bench/Contestant.h"

namespace bench {

/// A client of the server at that address.
std::shared_ptr<Pegasus::CIMClient> ConnectedClient(const std::string& address, bool tls);

/// A small request through the client library: one instance, one property of it. False: another answer.
bool AskForSlot(Pegasus::CIMClient& client);

/// Makes the small request so many times; counts those that were answered.
Contestant::Work AskRepeatedly(const std::shared_ptr<Pegasus::CIMClient>& client, std::size_t times);

}  // namespace bench
