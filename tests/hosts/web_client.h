#pragma once

#include <chrono>
#include <map>
#include <string>
#include <string_view>

namespace qv::testing {

// A browser in the raw: what it sends is written out, so that a test can also send what no browser would. Every wait
// ends after ten seconds with an empty result.
class WebClient {
 public:
  struct Reply {
    int status = 0;                              // 0 when the server closed the connection instead
    std::map<std::string, std::string> headers;  // names in small letters
    std::string body;
  };
  struct Frame {
    int opcode = -1;  // 1 text, 8 close, 9 ping; -1 when the connection has ended
    std::string payload;
    // Of a close frame.
    int code() const;
    std::string reason() const { return payload.substr(2); }
  };

  explicit WebClient(unsigned short port);
  ~WebClient();
  WebClient(const WebClient&) = delete;
  WebClient& operator=(const WebClient&) = delete;

  void Write(std::string_view bytes);
  // Reads one answer; `head` when it is one to a HEAD.
  Reply Read(bool head = false);
  // A GET with the headers of a browser that has been let in; `extra` are further header lines.
  Reply Get(const std::string& path, const std::string& extra = "");
  // Opens a WebSocket with the right Origin.
  Reply Upgrade(const std::string& cookie);

  void SendFrame(int opcode, std::string_view payload);
  void SendText(std::string_view text) { SendFrame(1, text); }
  Frame ReadFrame();
  // The next text, with the pings before it answered.
  std::string ReadText();

  // Closes the connection.
  void Leave();

  const std::string& host() const { return host_; }

 private:
  bool Fill();
  std::string Take(std::size_t count);

  std::string host_;
  int socket_ = -1;
  std::string unread_;
  std::string frame_;
};

}  // namespace qv::testing
