#include "cimom/Server.h"

#include <algorithm>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <future>
#include <optional>
#include <thread>

#include "cimom/http/FaultPlan.h"
#include "cimom/http/Listener.h"
#include "cimom/http/RequestLog.h"

namespace cimom {

namespace net = boost::asio;

class Server::Impl {
public:
    ~Impl() { stop(); }  // NOLINT(bugprone-exception-escape): a thread that cannot be joined is fatal

    std::uint16_t listen(const Endpoint& endpoint) {
        auto listener = std::make_shared<Listener>(io_, endpoint, faults, log);
        listeners_.push_back(listener);
        if (thread_.joinable()) {
            onLoop([&] { listener->startAccepting(); });
        }
        return listener->endpoint().port;
    }

    void start() {
        if (thread_.joinable()) {
            return;
        }
        io_.restart();
        work_.emplace(io_.get_executor());
        for (const auto& listener : listeners_) {
            listener->startAccepting();
        }
        thread_ = std::thread([this] { io_.run(); });
    }

    void stop() {
        onLoop([&] {
            for (const auto& listener : listeners_) {
                listener->close();
            }
        });
        listeners_.clear();
        if (thread_.joinable()) {
            work_.reset();
            io_.stop();
            thread_.join();
        }
    }

    void close(const std::string& address, std::uint16_t port) {
        const auto found = std::find_if(listeners_.begin(), listeners_.end(), [&](const auto& listener) {
            return listener->endpoint().address == address && listener->endpoint().port == port;
        });
        if (found != listeners_.end()) {
            onLoop([&] { (*found)->close(); });
            listeners_.erase(found);
        }
    }

    FaultPlan faults;
    RequestLog log;

private:
    /// Runs a task on the server's thread and waits for it; at once when that thread does not run.
    template <typename Task>
    void onLoop(const Task& task) {
        if (!thread_.joinable()) {
            task();
            return;
        }
        // Shared, since set_value may still be at work when the waiting side goes on.
        const auto done = std::make_shared<std::promise<void>>();
        net::post(io_, [done, &task] {
            task();
            done->set_value();
        });
        done->get_future().wait();
    }

    // After what the connections borrow, so that they end first.
    net::io_context io_{1};
    std::optional<net::executor_work_guard<net::io_context::executor_type>> work_;
    std::vector<std::shared_ptr<Listener>> listeners_;
    std::thread thread_;
};

Server::Server() : impl_(std::make_unique<Impl>()) {}

Server::~Server() = default;

std::uint16_t Server::listen(const Endpoint& endpoint) {
    return impl_->listen(endpoint);
}

void Server::start() {
    impl_->start();
}

void Server::stop() {
    impl_->stop();
}

void Server::close(const std::string& address, std::uint16_t port) {
    impl_->close(address, port);
}

void Server::inject(const Fault& fault) {
    impl_->faults.add(fault);
}

void Server::clearFaults() {
    impl_->faults.clear();
}

std::vector<SeenRequest> Server::requests() const {
    return impl_->log.all();
}

void Server::clearRequests() {
    impl_->log.clear();
}

void Server::keepRequests(bool on) {
    impl_->log.keep(on);
}

void Server::observe(std::function<void(const SeenRequest&)> observer) {
    impl_->log.setObserver(std::move(observer));
}

std::size_t Server::connectionsAccepted() const {
    return impl_->log.connections();
}

}  // namespace cimom
