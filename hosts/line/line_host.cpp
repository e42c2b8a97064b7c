#include "hosts/line/line_host.h"

#include <cerrno>
#include <cstring>
#include <string>

#include "platform/runtime_error.h"

namespace qv {
namespace {

class LineCarrier : public Carrier {
 public:
  LineCarrier(std::FILE* in, std::FILE* out, std::size_t longest) : in_(in), out_(out), longest_(longest) {}

  std::optional<std::string> Receive() override {
    while (error_ == 0) {
      std::string line;
      const Line read = Read(line);
      if (read == Line::End) break;
      if (read == Line::Whole) return line;
      Send(R"({"error":"The line is too long."})");
    }
    return std::nullopt;
  }

  void Send(std::string message) override {
    if (error_ != 0) return;
    message += '\n';
    if (std::fwrite(message.data(), 1, message.size(), out_) != message.size() || std::fflush(out_) != 0)
      error_ = errno != 0 ? errno : EIO;
  }

  // Why nothing more can be sent, or 0.
  int error() const { return error_; }

 private:
  enum class Line { Whole, TooLong, End };

  // A last line may end without a line feed.
  Line Read(std::string& line) {
    std::size_t length = 0;
    int c = 0;
    while ((c = getc_unlocked(in_)) != EOF && c != '\n') {
      if (++length <= longest_) line += static_cast<char>(c);
    }
    if (c == EOF && length == 0) return Line::End;
    return length > longest_ ? Line::TooLong : Line::Whole;
  }

  std::FILE* in_;
  std::FILE* out_;
  const std::size_t longest_;
  int error_ = 0;
};

}  // namespace

int RunLine(const std::function<void(Carrier&)>& session, std::FILE* in, std::FILE* out, std::size_t longest_line) {
  LineCarrier carrier(in, out, longest_line);
  try {
    session(carrier);
  } catch (const RunEnded&) {  // NOLINT(bugprone-empty-catch): the end of the input inside a dialog
  }
  if (carrier.error() == 0 || carrier.error() == EPIPE) return 0;
  std::fprintf(stderr, "The output could not be written: %s.\n", std::strerror(carrier.error()));
  return 1;
}

}  // namespace qv
