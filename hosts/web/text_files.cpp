#include "hosts/web/text_files.h"

#include <boost/json.hpp>
#include <cstdint>
#include <cstdio>
#include <optional>

#include "desktop/code_page.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace qv {
namespace {

namespace json = boost::json;

constexpr std::size_t kLargest = 512 << 10;  // bytes of UTF-8, so that the text always fits into one message
constexpr std::size_t kStack = 512 << 10;
constexpr long kFileNotFound = 53, kPastEnd = 62, kPathNotFound = 76;

bool InCodePage(char32_t c) { return c < 0x80 || ToCodePage(FromCharacters(std::u32string_view(&c, 1))) != "?"; }

struct Refused {
  std::string why;
};

json::value Parse(std::string_view message) {
  json::error_code error;
  json::value value = json::parse({message.data(), message.size()}, error);
  return error ? json::value() : value;
}

// The text of a member that has to be there.
std::string Text(const json::object& message, std::string_view member) {
  const json::value* value = message.if_contains({member.data(), member.size()});
  if (!value || !value->is_string()) throw Refused{std::string(member) + " is to be a text."};
  return std::string(value->get_string().c_str(), value->get_string().size());
}

bool Editable(const std::string& path) {
  const auto slash = path.rfind('\\');
  if (slash == std::string::npos) return false;
  const std::string name = path.substr(slash + 1);
  return name.size() >= 13 && StartsWith(name, "QVFILTER-") && LowerCase(name.substr(name.size() - 4)) == ".txt" &&
         name.find('/') == std::string::npos;
}

// The file's text, or nothing when there is no such file.
std::optional<std::string> Read(Files& files, const std::string& path) {
  try {
    return files.ReadAll(path);
  } catch (const RuntimeError& error) {
    if (error.number() == kPastEnd) return "";
    if (error.number() == kFileNotFound || error.number() == kPathNotFound) return std::nullopt;
    throw;
  }
}

std::string Version(const std::optional<std::string>& text) {
  if (!text) return "";
  std::uint64_t hash = 0xcbf29ce484222325;  // FNV-1a
  for (const char c : *text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  char version[48];
  std::snprintf(version, sizeof version, "%zx-%016llx", text->size(), static_cast<unsigned long long>(hash));
  return version;
}

std::string WithCrLf(std::string_view text) {
  std::string lines;
  lines.reserve(text.size() + text.size() / 16);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    if (text[i] == '\r' || text[i] == '\n')
      lines += "\r\n";
    else
      lines += text[i];
  }
  return lines;
}

void CheckCharacters(const std::string& text) {
  std::size_t line = 1;
  for (const char32_t c : ToCharacters(text)) {
    if (c == '\n') ++line;
    if (InCodePage(c)) continue;
    char number[16];
    std::snprintf(number, sizeof number, "U+%04lX", static_cast<unsigned long>(c));
    throw Refused{"Nothing has been saved: line " + std::to_string(line) + " holds the character " +
                  FromCharacters(std::u32string_view(&c, 1)) + " (" + number +
                  "), and the server's files hold Western European characters (code page 1252) only."};
  }
}

json::object ReadFile(Files& files, const std::string& path) {
  const auto text = Read(files, path);
  if (text && text->size() > kLargest) {
    throw Refused{"The file is too large to be edited here: " + std::to_string(text->size() >> 10) + " KB, at most " +
                  std::to_string(kLargest >> 10) + " KB."};
  }
  return {{"path", path}, {"text", text.value_or("")}, {"version", Version(text)}, {"exists", text.has_value()}};
}

json::object WriteFile(Files& files, const std::string& path, std::string text, const std::string& version) {
  CheckCharacters(text);
  const auto current = Read(files, path);
  if (!current || current->find("\r\n") != std::string::npos) text = WithCrLf(text);
  // What is there already need not be written, nor be a conflict when an answer went lost.
  if (current == text) return {{"path", path}, {"version", Version(current)}};
  if (Version(current) != version)
    return {{"path", path}, {"conflict", {{"text", current.value_or("")}, {"version", Version(current)}}}};
  files.Write(path, text);
  return {{"path", path}, {"version", Version(text)}};
}

json::object Answer(Files& files, const json::object& message) {
  const std::string what = Text(message, "file");
  if (what != "read" && what != "write") throw Refused{"file is to be read or write."};
  const std::string path = Text(message, "path");
  if (!Editable(path)) throw Refused{"Only word files and templates can be edited here: QVFILTER-*.TXT."};
  if (what == "read") return ReadFile(files, path);
  return WriteFile(files, path, Text(message, "text"), Text(message, "version"));
}

// Most messages don't even hold the word.
const json::value* Member(std::string_view message, std::string_view name, json::value& parsed) {
  if (message.find(name) == std::string_view::npos) return nullptr;
  parsed = Parse(message);
  return parsed.is_object() ? parsed.get_object().if_contains({name.data(), name.size()}) : nullptr;
}

}  // namespace

bool IsFileMessage(std::string_view message) {
  json::value parsed;
  return Member(message, "file", parsed) != nullptr;
}

bool IsStopMessage(std::string_view message) {
  json::value parsed;
  const json::value* stop = Member(message, "stop", parsed);
  return stop && stop->is_bool() && stop->get_bool();
}

std::string AnswerFileMessage(const OpenFiles& open, std::string_view message) {
  const json::value parsed = Parse(message);
  json::object answer;
  if (!parsed.is_object()) {
    answer["error"] = "A JSON object is wanted.";
  } else {
    try {
      answer["file"] = Answer(*open(), parsed.get_object());
    } catch (const Refused& refused) {
      answer["error"] = refused.why;
    } catch (const std::exception& error) {  // nothing that a file does may end the program
      answer["error"] = ValidUtf8(error.what());
    }
    if (const json::value* id = parsed.get_object().if_contains("id")) answer["id"] = *id;
  }
  return json::serialize(answer);
}

FileWindow::~FileWindow() {
  {
    std::lock_guard lock(mutex_);
    ending_ = true;
    changed_.notify_one();
  }
  thread_.reset();
}

void FileWindow::Ask(std::string message, std::function<void(std::string)> reply) {
  std::lock_guard lock(mutex_);
  questions_.push_back({std::move(message), std::move(reply)});
  if (!thread_) thread_ = std::make_unique<SmallThread>(kStack, [this] { Work(); });
  changed_.notify_one();
}

void FileWindow::Work() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return ending_ || !questions_.empty(); });
    if (ending_) return;
    const Question question = std::move(questions_.front());
    questions_.pop_front();
    lock.unlock();
    question.reply(AnswerFileMessage(open_, question.message));
    lock.lock();
  }
}

}  // namespace qv
