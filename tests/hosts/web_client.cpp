#include "tests/hosts/web_client.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cstdint>
#include <stdexcept>

namespace qv::testing {

int WebClient::Frame::code() const {
  if (payload.size() < 2) return 0;
  return static_cast<unsigned char>(payload[0]) << 8 | static_cast<unsigned char>(payload[1]);
}

WebClient::WebClient(unsigned short port) : host_("127.0.0.1:" + std::to_string(port)) {
  socket_ = socket(AF_INET, SOCK_STREAM, 0);
  const timeval patience{10, 0};
  setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
  setsockopt(socket_, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
  const int on = 1;
  setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
    throw std::runtime_error("no connection to " + host_);
}

WebClient::~WebClient() { Leave(); }

void WebClient::Leave() {
  if (socket_ >= 0) close(socket_);
  socket_ = -1;
}

void WebClient::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto sent = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) return;  // the answer tells
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
}

bool WebClient::Fill() {
  char bytes[65536];
  const auto count = recv(socket_, bytes, sizeof bytes, 0);
  if (count <= 0) return false;
  unread_.append(bytes, static_cast<std::size_t>(count));
  return true;
}

std::string WebClient::Take(std::size_t count) {
  while (unread_.size() < count) {
    if (!Fill()) return "";
  }
  std::string taken = unread_.substr(0, count);
  unread_.erase(0, count);
  return taken;
}

WebClient::Reply WebClient::Read(bool head) {
  Reply reply;
  std::size_t end = 0;
  while ((end = unread_.find("\r\n\r\n")) == std::string::npos) {
    if (!Fill()) return reply;
  }
  const std::string lines = Take(end + 4);
  reply.status = std::stoi(lines.substr(9, 3));
  std::size_t at = lines.find("\r\n") + 2;
  while (at < end) {
    const std::size_t stop = lines.find("\r\n", at);
    const std::size_t colon = lines.find(": ", at);
    std::string name = lines.substr(at, colon - at);
    for (char& c : name) c = static_cast<char>(tolower(c));
    reply.headers[name] = lines.substr(colon + 2, stop - colon - 2);
    at = stop + 2;
  }
  if (!head && reply.headers.count("content-length"))
    reply.body = Take(static_cast<std::size_t>(std::stoul(reply.headers["content-length"])));
  return reply;
}

WebClient::Reply WebClient::Get(const std::string& path, const std::string& extra) {
  Write("GET " + path + " HTTP/1.1\r\nHost: " + host_ + "\r\nAccept-Encoding: gzip, deflate, br\r\n" + extra + "\r\n");
  return Read();
}

WebClient::Reply WebClient::Upgrade(const std::string& cookie) {
  return Get("/console",
             "Upgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\nSec-WebSocket-Key: "
             "dGhlIHNhbXBsZSBub25jZQ==\r\nOrigin: http://" +
                 host_ + "\r\nCookie: " + cookie + "\r\n");
}

void WebClient::SendFrame(int opcode, std::string_view payload) {
  constexpr unsigned char kMask[4] = {0x12, 0xA4, 0x5B, 0xF0};
  frame_.clear();
  frame_ += static_cast<char>(0x80 | opcode);
  const std::uint64_t size = payload.size();
  const int bytes = size < 126 ? 0 : size < 65536 ? 2 : 8;
  frame_ += static_cast<char>(0x80 | (bytes == 0 ? size : bytes == 2 ? 126 : 127));
  for (int i = bytes - 1; i >= 0; --i) frame_ += static_cast<char>(size >> (8 * i) & 0xFF);
  frame_.append(reinterpret_cast<const char*>(kMask), 4);
  const std::size_t start = frame_.size();
  frame_ += payload;
  for (std::size_t i = 0; i < payload.size(); ++i) frame_[start + i] ^= static_cast<char>(kMask[i % 4]);
  Write(frame_);
}

WebClient::Frame WebClient::ReadFrame() {
  Frame frame;
  const std::string start = Take(2);
  if (start.size() < 2) return frame;
  std::uint64_t size = static_cast<unsigned char>(start[1]) & 0x7F;
  if (size >= 126) {
    const std::string more = Take(size == 126 ? 2 : 8);
    size = 0;
    for (const char c : more) size = size << 8 | static_cast<unsigned char>(c);
  }
  frame.payload = Take(size);
  if (frame.payload.size() == size) frame.opcode = start[0] & 0x0F;
  return frame;
}

std::string WebClient::ReadText() {
  while (true) {
    Frame frame = ReadFrame();
    if (frame.opcode == 9)
      SendFrame(10, frame.payload);
    else
      return frame.opcode == 1 ? frame.payload : "";
  }
}

}  // namespace qv::testing
