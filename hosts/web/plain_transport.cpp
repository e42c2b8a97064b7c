#include <unistd.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/posix/stream_descriptor.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>
#include <csignal>

#include "hosts/web/connection.h"

namespace qv {
namespace {

using web::Error;
using Tcp = boost::asio::ip::tcp;
namespace asio = boost::asio;

constexpr std::chrono::milliseconds kBreath{200};

class PlainTransport : public Transport {
 public:
  explicit PlainTransport(const TransportOptions& options);

  unsigned short port() const override { return acceptor_.local_endpoint().port(); }
  void Run(WebSite& site) override;
  void Post(std::function<void()> work) override { asio::post(io_, std::move(work)); }
  void Stop() override;
  void StopOnSignals() override;
  void OnLine(int terminal, std::function<void()> handler) override;

 private:
  void Accept();
  void Accepted(Tcp::socket socket);
  void WaitForLine();
  void TakeLine();

  const TransportOptions options_;
  web::Hall hall_{options_, nullptr, {}, nullptr};  // outlives the connections, which the context holds
  asio::io_context io_{1};
  Tcp::acceptor acceptor_{io_};
  asio::steady_timer pause_{io_}, farewell_{io_}, line_pause_{io_};
  asio::signal_set signals_{io_};
  asio::posix::stream_descriptor terminal_{io_};
  std::function<void()> on_line_;
  bool stopping_ = false;
};

PlainTransport::PlainTransport(const TransportOptions& options) : options_(options) {
  const auto check = [&](const Error& error) {
    if (!error) return;
    throw RuntimeError("The server cannot listen on " + options_.address + ", port " + std::to_string(options_.port) +
                       ": " + error.message() + ".");
  };
  Error error;
  const auto address = asio::ip::make_address(options_.address, error);
  check(error);
  const Tcp::endpoint endpoint(address, options_.port);
  acceptor_.open(endpoint.protocol(), error);
  check(error);
  acceptor_.set_option(asio::socket_base::reuse_address(true), error);
  check(error);
  acceptor_.bind(endpoint, error);
  check(error);
  acceptor_.listen(asio::socket_base::max_listen_connections, error);
  check(error);
}

void PlainTransport::Run(WebSite& site) {
  hall_.site = &site;
  Accept();
  io_.run();
  hall_.emptied = nullptr;
  // Those that took too long to close.
  const auto left = hall_.connections;
  for (web::Connection* connection : left) connection->Drop();
}

void PlainTransport::Stop() {
  if (stopping_) return;
  stopping_ = true;
  Error ignored;
  acceptor_.close(ignored);
  signals_.clear(ignored);
  signals_.cancel(ignored);
  terminal_.close(ignored);
  pause_.cancel();
  line_pause_.cancel();
  const auto open = hall_.connections;
  for (web::Connection* connection : open) connection->Shut();
  if (hall_.connections.empty()) return;
  hall_.emptied = [this] { farewell_.cancel(); };
  farewell_.expires_after(options_.farewell);
  farewell_.async_wait([this](Error error) {
    if (!error) io_.stop();
  });
}

void PlainTransport::StopOnSignals() {
  signals_.add(SIGINT);
  signals_.add(SIGTERM);
  signals_.async_wait([this](Error error, int) {
    if (!error) Stop();
  });
}

void PlainTransport::Accept() {
  acceptor_.async_accept([this](Error error, Tcp::socket socket) {
    if (stopping_) return;
    if (!error) {
      Accepted(std::move(socket));
      return Accept();
    }
    // Out of descriptors, for one: others may close theirs.
    pause_.expires_after(kBreath);
    pause_.async_wait([this](Error cancelled) {
      if (!cancelled && !stopping_) Accept();
    });
  });
}

void PlainTransport::Accepted(Tcp::socket socket) {
  if (hall_.connections.size() >= options_.max_connections) return;
  Error ignored;
  socket.set_option(Tcp::no_delay(true), ignored);
  using Connection = web::HttpConnection<boost::beast::tcp_stream>;
  std::make_shared<Connection>(hall_, boost::beast::tcp_stream(std::move(socket)))->Read();
}

void PlainTransport::OnLine(int terminal, std::function<void()> handler) {
  on_line_ = std::move(handler);
  terminal_.assign(dup(terminal));
  WaitForLine();
}

void PlainTransport::WaitForLine() {
  terminal_.async_wait(asio::posix::descriptor_base::wait_read, [this](Error error) {
    if (!error && !stopping_) TakeLine();
  });
}

void PlainTransport::TakeLine() {
  // A program in the background that reads from its terminal is stopped by the system.
  if (tcgetpgrp(terminal_.native_handle()) == getpgrp()) {
    char text[256];
    const auto count = read(terminal_.native_handle(), text, sizeof text);
    if (count <= 0) return;
    if (text[count - 1] == '\n') on_line_();
    return WaitForLine();
  }
  line_pause_.expires_after(kBreath);
  line_pause_.async_wait([this](Error cancelled) {
    if (!cancelled && !stopping_) WaitForLine();
  });
}

}  // namespace

std::unique_ptr<Transport> ListenPlain(const TransportOptions& options) {
  return std::make_unique<PlainTransport>(options);
}

}  // namespace qv
