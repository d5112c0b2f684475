#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cimxml/wire/ByteStream.h"
#include "cimxml/wire/HttpSession.h"

namespace cimxml_test {

/// What a server does with one request.
struct Exchange {
    Exchange() = default;
    /// Sends `bytes` with the request's message ID in place of "{ID}".
    explicit Exchange(const std::string& bytes);

    std::function<std::string(const std::string& messageId)> answer;  ///< Makes the bytes that are sent.
    bool close = false;                                               ///< Closes after them.
    bool closeWhenIdle = false;  ///< Closes once the answer has been read.
    std::string stray;           ///< Sent unasked once the answer has been read.
};

/// A server in memory that works through a script. Nothing waits: reading where nothing will ever come runs
/// out of time at once.
class ScriptedServer {
public:
    /// Sizes of the pieces that reads return, one after the other; the last one repeats.
    using Pieces = std::vector<std::size_t>;

    explicit ScriptedServer(std::vector<Exchange> script, Pieces pieces = {std::size_t(-1)});

    /// Makes connections to this server, which must outlive them.
    cimxml::HttpSession::Connector connector();

    /// From now on connections are refused.
    void refuseConnections() { refusing_ = true; }

    const std::vector<std::string>& requests() const { return requests_; }
    std::size_t connections() const { return connections_; }
    bool scriptDone() const { return script_.empty(); }

private:
    class Stream;
    std::deque<Exchange> script_;
    Pieces pieces_;
    std::vector<std::string> requests_;
    std::size_t connections_ = 0;
    bool refusing_ = false;
};

std::string replaceAll(std::string text, const std::string& what, const std::string& with);

}  // namespace cimxml_test
