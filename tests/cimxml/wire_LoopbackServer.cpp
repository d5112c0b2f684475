#include "tests/cimxml/wire_LoopbackServer.h"

namespace cimxml_test {

using boost::asio::ip::tcp;

LoopbackServer::LoopbackServer(std::function<void(Socket&)> serve, const std::string& address)
    : acceptor_(context_, tcp::endpoint(boost::asio::ip::make_address(address), 0)),
      thread_([this, serve = std::move(serve)] {
          boost::system::error_code error;
          Socket socket(context_);
          acceptor_.accept(socket, error);
          if (!error) {
              serve(socket);
          }
      }) {}

LoopbackServer::~LoopbackServer() {
    // A test that never connected leaves the thread waiting for someone who does.
    boost::system::error_code ignored;
    Socket(context_).connect(acceptor_.local_endpoint(), ignored);
    thread_.join();
}

}  // namespace cimxml_test
