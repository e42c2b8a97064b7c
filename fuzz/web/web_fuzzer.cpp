// Feeds what a browser may send: the parts of a request to the front door, one a line, and messages about files.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "hosts/web/front_door.h"
#include "hosts/web/text_files.h"
#include "platform/runtime_error.h"

namespace {

// One file that holds what was written last.
class OneFile : public qv::Files {
 public:
  explicit OneFile(std::string& text) : text_(text) {}
  bool FileExists(const std::string&) override { return true; }
  bool FolderExists(const std::string&) override { return true; }
  std::vector<std::string> FileNames(const std::string&) override { return {}; }
  std::string ReadAll(const std::string&) override {
    if (text_.empty()) throw qv::RuntimeError(62, "Input past end of file");
    return text_;
  }
  void Write(const std::string&, const std::string& text) override { text_ = text; }
  void Delete(const std::string&) override {}
  void Rename(const std::string&, const std::string&) override {}

 private:
  std::string& text_;
};

std::string_view TakeLine(std::string_view& text) {
  const auto end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

void Require(bool condition) {
  if (!condition) std::abort();
}

void TryRequest(std::string_view text) {
  static constexpr qv::Asset kAssets[] = {{"/index.html", "text/html", "tag", "gzip, not really"}};
  qv::FrontDoor door(kAssets, {}, 8080);
  door.NewAddress();  // so that a token is out
  qv::WebRequest request;
  request.method = TakeLine(text);
  request.target = TakeLine(text);
  if (const auto host = TakeLine(text); !host.empty()) request.host = host;
  if (const auto origin = TakeLine(text); !origin.empty()) request.origin = origin;
  request.cookies = TakeLine(text);
  request.if_none_match = TakeLine(text);
  request.accept_encoding = TakeLine(text);
  request.upgrade = !text.empty();
  bool redeemed = false;
  const qv::WebReply reply = door.Answer(request, redeemed);
  // Without the token nobody comes in.
  Require(!redeemed && !reply.session);
  Require(reply.status >= 400 && reply.status < 500);
}

void TryMessage(std::string_view text) {
  std::string content = "one\r\ntwo";
  qv::IsStopMessage(text);
  if (!qv::IsFileMessage(text)) return;
  const std::string answer = qv::AnswerFileMessage([&content] { return std::make_unique<OneFile>(content); }, text);
  Require(answer.rfind("{\"", 0) == 0);
  Require(!qv::IsFileMessage(answer) || answer.rfind("{\"file\":{", 0) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!text.empty() && text[0] == '{')
    TryMessage(text);
  else
    TryRequest(text);
  return 0;
}
