#include "bench/ReplayServer.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

#include "bench/HttpMessage.h"
#include "bench/Socket.h"
#include "cimom/Server.h"

namespace bench {

namespace {

constexpr const char* kRecorded = "127.99.1.1";  // where the embedded server stands, which is asked once

/// Where the message's number stands in a CIM-XML text.
struct MessageId {
    std::size_t begin = 0;
    std::size_t end = 0;
};

MessageId FindMessageId(const std::string& body) {
    constexpr std::string_view start = "<MESSAGE ID=\"";
    const std::size_t at = body.find(start);
    if (at == std::string::npos) {
        throw std::runtime_error("a request without message ID");
    }
    return {at + start.size(), body.find('"', at + start.size())};
}

/// An answer with a gap where the message's number belongs.
struct Answer {
    std::string fields;  ///< Of the head, but for Content-Length.
    std::string before;
    std::string after;
};

class Recorder {
public:
    explicit Recorder(const ReplayServer::Fill& fill) {
        cimom::Endpoint endpoint;
        endpoint.address = kRecorded;
        endpoint.repository = fill();
        server_.keepRequests(false);
        port_ = server_.listen(endpoint);
        server_.start();
    }

    /// The answer to a request; valid as long as this.
    const Answer& Find(const HttpMessage& request) {
        const MessageId id = FindMessageId(request.body);
        const std::string key = request.body.substr(0, id.begin) + request.body.substr(id.end);
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto known = answers_.find(key);
        return known != answers_.end() ? known->second : answers_.emplace(key, Record(request)).first->second;
    }

private:
    Answer Record(const HttpMessage& request) const {
        const Socket connection = Socket::Connect(kRecorded, port_);
        connection.Send(request.head + request.body);
        HttpMessage answer;
        if (!ReceiveMessage(connection, answer)) {
            throw std::runtime_error("no answer to record");
        }
        const MessageId id = FindMessageId(answer.body);
        return {"CIMOperation: MethodResponse\r\nContent-Type: application/xml; charset=\"utf-8\"\r\n",
                answer.body.substr(0, id.begin), answer.body.substr(id.end)};
    }

    cimom::Server server_;
    std::uint16_t port_ = 0;
    std::mutex mutex_;
    std::map<std::string, Answer> answers_;
};

void Serve(const Socket& connection, Recorder& recorder) {
    HttpMessage request;
    while (ReceiveMessage(connection, request)) {
        const MessageId id = FindMessageId(request.body);
        const std::string number = request.body.substr(id.begin, id.end - id.begin);
        const Answer& answer = recorder.Find(request);
        const std::size_t size = answer.before.size() + number.size() + answer.after.size();
        connection.Send("HTTP/1.1 200 OK\r\n" + answer.fields + "Content-Length: " + std::to_string(size) +
                        "\r\n\r\n" + answer.before + number);
        connection.Send(answer.after);
    }
}

[[noreturn]] void Run(std::vector<Socket> listeners, const ReplayServer::Fill& fill) {
    try {
        Recorder recorder(fill);
        std::vector<std::thread> threads;
        for (const Socket& listener : listeners) {
            threads.emplace_back([&listener, &recorder] {
                for (;;) {
                    std::thread(
                        [&recorder](Socket connection) {
                            try {
                                Serve(connection, recorder);
                            } catch (const std::exception& error) {
                                std::fprintf(stderr, "server: %s\n", error.what());
                            }
                        },
                        listener.Accept())
                        .detach();
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "server: %s\n", error.what());
    }
    _exit(1);
}

}  // namespace

ReplayServer::ReplayServer(const std::vector<std::string>& addresses, std::uint16_t port, const Fill& fill) {
    std::vector<Socket> listeners;  // before the fork: who connects now, waits until the server is ready
    for (const std::string& address : addresses) {
        listeners.push_back(Socket::Listen(address, port));
    }
    process_ = fork();
    if (process_ < 0) {
        throw std::runtime_error("no process for the server");
    }
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        Run(std::move(listeners), fill);
    }
}

ReplayServer::~ReplayServer() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

}  // namespace bench
