#pragma once

// The connections of a transport, for any stream that Beast can carry. Compiles slowly: to be included by one source
// file for each kind of stream.

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/status.hpp>
#include <boost/beast/websocket/rfc6455.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <ctime>
#include <deque>
#include <iostream>
#include <set>

#include "hosts/web/transport.h"
#include "platform/runtime_error.h"

namespace qv::web {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using Error = beast::error_code;

constexpr int kGoingAway = 1001, kUnsupported = 1003, kTryLater = 1013;

class Connection;

// What the connections of a transport share.
struct Hall {
  const TransportOptions& options;
  WebSite* site = nullptr;
  std::set<Connection*> connections;
  std::function<void()> emptied;  // the last connection has gone
};

class Connection {
 public:
  explicit Connection(Hall& hall) : hall_(hall) { hall_.connections.insert(this); }
  virtual ~Connection() {
    hall_.connections.erase(this);
    if (hall_.connections.empty() && hall_.emptied) hall_.emptied();
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  virtual void Shut() = 0;  // in a friendly way, which may take a while
  virtual void Drop() = 0;  // nothing more is to come of it

 protected:
  Hall& hall_;
};

template <class Stream>
class SocketPeer : public WebPeer, public Connection, public std::enable_shared_from_this<SocketPeer<Stream>> {
 public:
  SocketPeer(Hall& hall, Stream stream) : Connection(hall), socket_(std::move(stream)) {}

  void Start(const http::request<http::empty_body>& request) {
    beast::get_lowest_layer(socket_).expires_never();
    socket_.set_option(websocket::stream_base::timeout{hall_.options.farewell, hall_.options.silence, true});
    socket_.auto_fragment(false);
    socket_.read_message_max(hall_.options.max_message_bytes);
    socket_.async_accept(request, [self = this->shared_from_this()](Error error) {
      if (!error) self->Opened();
    });
  }

  void Send(std::string message) override {
    if (!session_) return;
    outgoing_.push_back(std::move(message));
    if (outgoing_.size() == 1) Write();
  }

  void Close(int code, std::string_view reason) override {
    if (closing_) return;
    closing_ = true;
    Drop();
    if (!opened_) return beast::get_lowest_layer(socket_).close();
    websocket::close_reason why(static_cast<std::uint16_t>(code));
    why.reason.assign(reason.data(), reason.size());
    socket_.async_close(why, [self = this->shared_from_this()](Error) {});
  }

  void Shut() override { Close(kGoingAway, "The server is stopping."); }

  void Drop() override {
    if (const auto session = std::move(session_)) session->Gone();
    session_.reset();
  }

 private:
  void Opened() {
    if (closing_) return;
    opened_ = true;
    socket_.text(true);
    try {
      session_ = hall_.site->Open(this->weak_from_this());
    } catch (const RuntimeError& error) {
      std::cerr << "A session could not be started: " << error.description() << std::endl;
      Close(kTryLater, "The server could not start a session.");
    }
    Read();
  }

  void Read() {
    socket_.async_read(incoming_, [self = this->shared_from_this()](Error error, std::size_t) {
      if (error) {
        self->closing_ = true;
        return self->Drop();
      }
      self->Take();
      self->Read();
    });
  }

  void Take() {
    std::string message = beast::buffers_to_string(incoming_.data());
    incoming_.clear();
    if (incoming_.capacity() > kKeptBuffer) incoming_.shrink_to_fit();
    if (!session_) return;
    if (!socket_.got_text()) return Close(kUnsupported, "Messages are text.");
    // The session may end the connection meanwhile.
    const auto session = session_;
    session->Take(std::move(message));
  }

  void Write() {
    socket_.async_write(asio::buffer(outgoing_.front()),
                        [self = this->shared_from_this()](Error error, std::size_t bytes) {
                          self->outgoing_.pop_front();
                          if (error || !self->session_) return self->outgoing_.clear();
                          self->session_->Sent(bytes);
                          if (!self->outgoing_.empty()) self->Write();
                        });
  }

  static constexpr std::size_t kKeptBuffer = 4096;

  websocket::stream<Stream, false> socket_;
  std::shared_ptr<WebSession> session_;
  beast::flat_buffer incoming_;
  std::deque<std::string> outgoing_;  // the first is on its way
  bool opened_ = false, closing_ = false;
};

template <class Stream>
class HttpConnection : public Connection, public std::enable_shared_from_this<HttpConnection<Stream>> {
 public:
  HttpConnection(Hall& hall, Stream stream) : Connection(hall), stream_(std::move(stream)) {}

  void Read() {
    parser_.emplace();
    parser_->header_limit(static_cast<std::uint32_t>(hall_.options.max_header_bytes));
    Tcp().expires_after(hall_.options.request_time);
    http::async_read_header(stream_, buffer_, *parser_, [self = this->shared_from_this()](Error error, std::size_t) {
      if (error) return self->Refuse(error);
      self->Take();
    });
  }

  void Shut() override { Tcp().close(); }
  void Drop() override {}

 private:
  beast::tcp_stream& Tcp() { return beast::get_lowest_layer(stream_); }

  void Refuse(Error error) {
    if (error == http::error::end_of_stream || error == http::error::partial_message ||
        error.category() != http::make_error_code(http::error::bad_target).category())
      return Tcp().close();
    WebReply reply;
    reply.status = error == http::error::header_limit ? 431 : 400;
    Write(std::move(reply), true, false);
  }

  static std::optional<std::string_view> One(const http::request<http::empty_body>& request, http::field name) {
    const auto all = request.equal_range(name);
    if (all.first == all.second || std::next(all.first) != all.second) return std::nullopt;
    return std::string_view(all.first->value().data(), all.first->value().size());
  }

  void Take() {
    const auto& message = parser_->get();
    WebRequest request;
    request.method = message.method_string();
    request.target = message.target();
    request.host = One(message, http::field::host);
    request.origin = One(message, http::field::origin);
    for (auto [at, end] = message.equal_range(http::field::cookie); at != end; ++at) {
      request.cookies += at->value();
      request.cookies += ';';
    }
    request.if_none_match = message[http::field::if_none_match];
    request.accept_encoding = message[http::field::accept_encoding];
    request.upgrade = websocket::is_upgrade(message);
    WebReply reply;
    try {
      reply = hall_.site->Answer(request);
    } catch (const RuntimeError& error) {
      std::cerr << "A request failed: " << error.description() << std::endl;
      reply.status = 500;
    }
    if (!reply.session) {
      // A body that nobody wants to read ends the connection.
      const bool keep = message.keep_alive() && parser_->is_done();
      return Write(std::move(reply), request.method != "HEAD", keep);
    }
    if (buffer_.size() != 0) return Tcp().close();  // frames before the answer
    std::make_shared<SocketPeer<Stream>>(hall_, std::move(stream_))->Start(message);
  }

  void Write(WebReply reply, bool body, bool keep) {
    reply_ = std::move(reply);
    if (reply_.bytes.empty()) reply_.bytes = reply_.text;
    char date[64];
    const std::time_t now = std::time(nullptr);
    std::tm fields{};
    gmtime_r(&now, &fields);
    std::strftime(date, sizeof date, "%a, %d %b %Y %H:%M:%S GMT", &fields);
    head_ = "HTTP/1.1 " + std::to_string(reply_.status) + " ";
    head_ += http::obsolete_reason(static_cast<http::status>(reply_.status));
    head_ += std::string("\r\nDate: ") + date + "\r\nConnection: " + (reply_.status == 426 ? "upgrade, " : "") +
             (keep ? "keep-alive" : "close") + "\r\n";
    for (const auto& [name, value] : reply_.headers) {
      head_ += name;
      head_ += ": " + value + "\r\n";
    }
    if (reply_.status != 304) head_ += "Content-Length: " + std::to_string(reply_.bytes.size()) + "\r\n";
    head_ += "\r\n";
    const std::array<asio::const_buffer, 2> buffers{asio::buffer(head_),
                                                    asio::buffer(reply_.bytes.data(), body ? reply_.bytes.size() : 0)};
    Tcp().expires_after(hall_.options.request_time);
    asio::async_write(stream_, buffers, [self = this->shared_from_this(), keep](Error error, std::size_t) {
      if (error) return self->Tcp().close();
      if (keep) return self->Read();
      Error ignored;
      self->Tcp().socket().shutdown(asio::ip::tcp::socket::shutdown_send, ignored);
      self->buffer_.clear();
      self->Tcp().expires_after(self->hall_.options.farewell);
      self->ReadOff();
    });
  }

  // Takes in what still comes, as a connection that closes over unread data loses the answer.
  void ReadOff() {
    stream_.async_read_some(buffer_.prepare(4096), [self = this->shared_from_this()](Error error, std::size_t) {
      if (error) return self->Tcp().close();
      self->ReadOff();
    });
  }

  Stream stream_;
  beast::flat_buffer buffer_;
  std::optional<http::request_parser<http::empty_body>> parser_;
  WebReply reply_;
  std::string head_;
};

}  // namespace qv::web
