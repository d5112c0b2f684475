#include "tests/cimxml/wire_ScriptedServer.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

#include "cimxml/wire/WireError.h"

namespace cimxml_test {

using cimxml::Deadline;
using cimxml::WireError;

namespace {

std::string between(const std::string& text, const std::string& before, const std::string& after) {
    const std::size_t start = text.find(before);
    if (start == std::string::npos) {
        return {};
    }
    const std::size_t from = start + before.size();
    return text.substr(from, text.find(after, from) - from);
}

/// Whether `text` holds a whole request.
bool isComplete(const std::string& text) {
    const std::size_t end = text.find("\r\n\r\n");
    if (end == std::string::npos) {
        return false;
    }
    const std::string length = between(text, "Content-Length: ", "\r\n");
    return text.size() >= end + 4 + std::stoul(length);
}

}  // namespace

std::string replaceAll(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
    return text;
}

Exchange::Exchange(const std::string& bytes)
    : answer([bytes](const std::string& messageId) { return replaceAll(bytes, "{ID}", messageId); }) {}

class ScriptedServer::Stream : public cimxml::ByteStream {
public:
    explicit Stream(ScriptedServer& server) : server_(server) {}

    void write(std::string_view bytes, Deadline /*deadline*/) override {
        if (atEnd()) {
            throw WireError(WireError::Kind::Closed, "broken pipe");
        }
        request_ += bytes;
        if (isComplete(request_)) {
            serve();
        }
    }

    std::size_t read(char* buffer, std::size_t size, Deadline /*deadline*/) override {
        if (const auto received = readAvailable(buffer, size)) {
            return *received;
        }
        throw WireError(WireError::Kind::TimedOut, "connection timed out");
    }

    std::optional<std::size_t> readAvailable(char* buffer, std::size_t size) override {
        if (position_ < pending_.size()) {
            const std::size_t count = std::min({size, nextPiece(), pending_.size() - position_});
            pending_.copy(buffer, count, position_);
            position_ += count;
            afterReading();
            return count;
        }
        return closed_ ? std::optional<std::size_t>(0) : std::nullopt;
    }

private:
    bool atEnd() const { return closed_ && position_ == pending_.size(); }

    void serve() {
        server_.requests_.push_back(std::exchange(request_, {}));
        if (server_.script_.empty()) {
            throw std::logic_error("a request that the script does not know");
        }
        current_ = server_.script_.front();
        server_.script_.pop_front();
        const std::string id = between(server_.requests_.back(), "MESSAGE ID=\"", "\"");
        pending_ = current_.answer ? current_.answer(id) : std::string();
        position_ = 0;
        piece_ = 0;
        closed_ = current_.close;
    }

    std::size_t nextPiece() {
        const auto& pieces = server_.pieces_;
        return pieces[std::min(piece_++, pieces.size() - 1)];
    }

    void afterReading() {
        if (position_ < pending_.size()) {
            return;
        }
        pending_ += std::exchange(current_.stray, {});
        closed_ = closed_ || current_.closeWhenIdle;
    }

    ScriptedServer& server_;
    std::string request_;
    Exchange current_;
    std::string pending_;
    std::size_t position_ = 0;
    std::size_t piece_ = 0;
    bool closed_ = false;
};

ScriptedServer::ScriptedServer(std::vector<Exchange> script, Pieces pieces)
    : script_(std::make_move_iterator(script.begin()), std::make_move_iterator(script.end())),
      pieces_(std::move(pieces)) {}

cimxml::HttpSession::Connector ScriptedServer::connector() {
    return [this](Deadline /*deadline*/) -> std::unique_ptr<cimxml::ByteStream> {
        if (refusing_) {
            throw WireError(WireError::Kind::CannotConnect, "connection refused");
        }
        ++connections_;
        return std::make_unique<Stream>(*this);
    };
}

}  // namespace cimxml_test
