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
#include "bench/TlsSocket.h"
#include "cimom/Server.h"

namespace bench {

namespace {

constexpr const char* kRecorded = "127.99.1.1";  // where the embedded server stands, which is asked once
constexpr std::size_t kShort = 64 * 1024;

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
    std::string before;
    std::string after;
};

/// What an endpoint answers.
class Recorder {
public:
    explicit Recorder(std::shared_ptr<cimom::Repository> repository) {
        cimom::Endpoint endpoint;
        endpoint.address = kRecorded;
        endpoint.repository = std::move(repository);
        server_.keepRequests(false);
        port_ = server_.listen(endpoint);
        server_.start();
    }

    /// The answer to a request; valid as long as this.
    const Answer& Find(const HttpMessage& request, const MessageId& id) {
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
        return {answer.body.substr(0, id.begin), answer.body.substr(id.end)};
    }

    cimom::Server server_;
    std::uint16_t port_ = 0;
    std::mutex mutex_;
    std::map<std::string, Answer> answers_;
};

std::string HeadOf(std::size_t bodySize, bool closes) {
    return std::string("HTTP/1.1 200 OK\r\nCIMOperation: MethodResponse\r\n") +
           (closes ? "Connection: close\r\n" : "") +
           "Content-Type: application/xml; charset=\"utf-8\"\r\nContent-Length: " + std::to_string(bodySize) +
           "\r\n\r\n";
}

/// A short answer goes in one piece. A long one is not copied for that.
void SendPlain(const Stream& connection, std::string start, const std::string& rest) {
    if (rest.size() > kShort) {
        connection.Send(start);
        connection.Send(rest);
    } else {
        connection.Send(start + rest);
    }
}

void SendInSegments(const Stream& connection, const std::string& head, const std::string& body) {
    connection.Send(head);
    connection.Send(std::string_view(body).substr(0, body.size() / 2));
    connection.Send(std::string_view(body).substr(body.size() / 2));
}

void SendAnswer(const Stream& connection, const ReplayServer::Endpoint& endpoint, const Answer& answer,
                const std::string& number) {
    const std::size_t size = answer.before.size() + number.size() + answer.after.size();
    const std::string head = HeadOf(size, endpoint.closes);
    if (endpoint.segments) {
        SendInSegments(connection, head, answer.before + number + answer.after);
    } else {
        SendPlain(connection, head + answer.before + number, answer.after);
    }
}

void Serve(const Stream& connection, const ReplayServer::Endpoint& endpoint, Recorder& recorder) {
    HttpMessage request;
    while (ReceiveMessage(connection, request)) {
        const MessageId id = FindMessageId(request.body);
        SendAnswer(connection, endpoint, recorder.Find(request, id),
                   request.body.substr(id.begin, id.end - id.begin));
        if (endpoint.closes) {
            return;
        }
    }
}

void ServeAccepted(Socket connection, const ReplayServer::Endpoint& endpoint, Recorder& recorder) {
    try {
        if (endpoint.segments) {
            connection.Delay();
        }
        if (endpoint.tls) {
            Serve(TlsSocket::Accept(std::move(connection)), endpoint, recorder);
        } else {
            Serve(connection, endpoint, recorder);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "server: %s\n", error.what());
    }
}

/// An endpoint that is bound, before there is anything to answer.
struct Bound {
    ReplayServer::Endpoint endpoint;
    Socket listener;
};

/// Never returns.
void Accept(const Bound& bound) {
    Recorder recorder(bound.endpoint.fill());
    for (;;) {
        std::thread(
            [&](Socket connection) { ServeAccepted(std::move(connection), bound.endpoint, recorder); },
            bound.listener.Accept())
            .detach();
    }
}

[[noreturn]] void Run(const std::vector<Bound>& endpoints) {
    std::vector<std::thread> threads;
    threads.reserve(endpoints.size());
    for (const Bound& bound : endpoints) {
        threads.emplace_back([&bound] {
            try {
                Accept(bound);
            } catch (const std::exception& error) {
                std::fprintf(stderr, "server: %s\n", error.what());
                _exit(1);  // rather than leave clients waiting
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    _exit(1);
}

}  // namespace

ReplayServer::ReplayServer(std::vector<Endpoint> endpoints) {
    std::vector<Bound> bound;  // before the fork: who connects now, waits until the server is ready
    for (Endpoint& endpoint : endpoints) {
        Socket listener = Socket::Listen(endpoint.address, endpoint.port);
        bound.push_back({std::move(endpoint), std::move(listener)});
    }
    process_ = fork();
    if (process_ < 0) {
        throw std::runtime_error("no process for the server");
    }
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        Run(bound);
    }
}

ReplayServer::~ReplayServer() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

std::string ReplayServer::Address(unsigned number) {
    static const int process = getpid();
    return "127." + std::to_string(99 + number) + "." + std::to_string(process / 250 % 250 + 2) + "." +
           std::to_string(process % 250 + 2);
}

}  // namespace bench
