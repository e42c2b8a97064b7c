#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "hosts/web/small_thread.h"
#include "platform/files.h"

namespace qv {

using OpenFiles = std::function<std::unique_ptr<Files>()>;

// The text windows of a browser read and write the word files and templates past the console: the files that are named
// QVFILTER-*.TXT, in any case of the extension, below the configuration directory.

// Whether the message is one for AnswerFileMessage: a JSON object with the member "file".
bool IsFileMessage(std::string_view message);
// Whether the message is a JSON object whose member "stop" is true.
bool IsStopMessage(std::string_view message);

// The answer to such a message:
//
//   {"file":"read","path":P}                        {"file":{"path":P,"text":T,"version":V,"exists":b}}
//   {"file":"write","path":P,"text":T,"version":V}  {"file":{"path":P,"version":V}}, or, when the file is no longer of
//                                                   that version, {"file":{"path":P,"conflict":{"text":T,"version":V}}}
//
// or {"error":"..."}, each with the message's "id". A version stands for a content, "" for a missing file. A new file
// and one with CR LF in it are written with CR LF throughout, others with the text's own line ends. A text that the
// server's code page cannot hold is refused as a whole.
std::string AnswerFileMessage(const OpenFiles& open, std::string_view message);

// Answers file messages one after the other on a thread of its own.
class FileWindow {
 public:
  explicit FileWindow(OpenFiles open) : open_(std::move(open)) {}
  // Leaves what has not been begun.
  ~FileWindow();

  // `reply` is called with the answer, on the other thread.
  void Ask(std::string message, std::function<void(std::string)> reply);

 private:
  struct Question {
    std::string message;
    std::function<void(std::string)> reply;
  };
  void Work();

  const OpenFiles open_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Question> questions_;
  bool ending_ = false;
  std::unique_ptr<SmallThread> thread_;  // from the first question on
};

}  // namespace qv
