#include "cimom/program/StopSignal.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>
#include <csignal>

namespace cimom {

class StopSignal::Impl {
public:
    Impl() : signals_(io_, SIGINT, SIGTERM) {
#if defined(SIGBREAK)
        signals_.add(SIGBREAK);  // Windows: Ctrl-Break, or the window was closed
#endif
        signals_.async_wait([](boost::system::error_code, int) {});
    }

    void wait() {
        io_.run();
    }

private:
    boost::asio::io_context io_;
    boost::asio::signal_set signals_;
};

StopSignal::StopSignal() : impl_(std::make_unique<Impl>()) {}

StopSignal::~StopSignal() = default;

void StopSignal::wait() {
    impl_->wait();
}

}  // namespace cimom
