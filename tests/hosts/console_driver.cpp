#include "tests/hosts/console_driver.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>

#include "hosts/console/session.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "store/database.h"
#include "store/exchange.h"

namespace qv::test {

namespace json = boost::json;

TwoServers::TwoServers() {
  std::string pattern = (std::filesystem::temp_directory_path() / "qvadmin-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary directory");
  root_ = pattern;
  for (const char* name : {"LOCALHOST", "MAIL2"}) {
    std::filesystem::create_directories(root_ / name / "config");
    Database::Create(DatabaseOf(name));
  }
  servers_ = std::make_unique<Servers>(root_ / "LOCALHOST");
  servers_->Add("MAIL2", root_ / "MAIL2");
}

TwoServers::~TwoServers() {
  servers_.reset();
  std::filesystem::remove_all(root_);
}

std::filesystem::path TwoServers::DatabaseOf(const std::string& server) const { return DatabaseFile(root_ / server); }

void TwoServers::Import(const std::string& server, const std::string& text) {
  StoreDataSet(servers_->Of(server), ReadDataSet(text));
}

json::array TwoServers::Section(const std::string& server, const char* section) {
  return json::parse(WriteDataSet(LoadDataSet(servers_->Of(server)))).at(section).as_array();
}

HeldDatabase::HeldDatabase(const std::filesystem::path& file) {
  EXPECT_EQ(sqlite3_open(file.c_str(), &connection_), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(connection_, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
}

HeldDatabase::~HeldDatabase() { sqlite3_close(connection_); }

std::optional<std::string> ConsoleDriver::Pipe::Receive() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return closed_ || !in_.empty(); });
  if (in_.empty()) return std::nullopt;
  std::string message = in_.front();
  in_.erase(in_.begin());
  return message;
}

void ConsoleDriver::Pipe::Send(std::string message) {
  const std::lock_guard lock(mutex_);
  out_.push_back(std::move(message));
  changed_.notify_all();
}

void ConsoleDriver::Pipe::Put(const std::string& message) {
  const std::lock_guard lock(mutex_);
  in_.push_back(message);
  changed_.notify_all();
}

void ConsoleDriver::Pipe::Close() {
  const std::lock_guard lock(mutex_);
  closed_ = true;
  changed_.notify_all();
}

std::string ConsoleDriver::Pipe::Take() {
  std::unique_lock lock(mutex_);
  if (!changed_.wait_for(lock, std::chrono::seconds(20), [this] { return !out_.empty(); })) {
    throw std::runtime_error("the console gave no answer");
  }
  std::string message = out_.front();
  out_.erase(out_.begin());
  return message;
}

ConsoleDriver::ConsoleDriver(Servers& servers) : thread_([this, &servers] { RunSession(servers, pipe_); }) {
  state_ = json::parse(pipe_.Take()).as_object().at("state").as_object();
}

ConsoleDriver::~ConsoleDriver() { Leave(); }

void ConsoleDriver::Leave() {
  pipe_.Close();
  if (thread_.joinable()) thread_.join();
}

json::object ConsoleDriver::Send(const std::string& line) {
  pipe_.Put(line);
  return json::parse(pipe_.Take()).as_object();
}

const json::object& ConsoleDriver::Do(const std::string& event) {
  const json::object answer = Send(event);
  if (!answer.contains("state")) throw std::runtime_error("refused: " + json::serialize(answer));
  state_ = answer.at("state").as_object();
  return state_;
}

std::string ConsoleDriver::Refused(const std::string& event) {
  const json::object answer = Send(event);
  EXPECT_FALSE(answer.contains("state")) << event;
  return answer.contains("error") ? std::string(answer.at("error").as_string()) : std::string();
}

json::value ConsoleDriver::at(const std::string& pointer) const { return json::value(state_).at_pointer(pointer); }

std::vector<std::string> ConsoleDriver::Cells() const {
  std::vector<std::string> rows;
  for (const json::value& item : state_.at("view").at("items").as_array()) {
    std::vector<std::string> cells;
    for (const json::value& cell : item.at("cells").as_array()) cells.emplace_back(cell.as_string());
    rows.push_back(Join(cells, "|"));
  }
  return rows;
}

std::vector<std::string> ConsoleDriver::Keys() const {
  std::vector<std::string> keys;
  for (const json::value& item : state_.at("view").at("items").as_array())
    keys.emplace_back(item.at("key").as_string());
  return keys;
}

std::string ConsoleDriver::Verbs() const {
  std::vector<std::string> on;
  for (const char* name : {"delete", "properties", "refresh"}) {
    if (state_.at("verbs").at(name).as_bool()) on.emplace_back(name);
  }
  return Join(on, ",");
}

std::vector<std::string> ConsoleDriver::Menu(const char* list) const {
  std::vector<std::string> items;
  for (const json::value& item : state_.at("menu").at(list).as_array()) {
    const std::string caption(item.at("caption").as_string());
    items.push_back(item.at("enabled").as_bool() ? caption : "(" + caption + ")");
  }
  return items;
}

std::string ConsoleDriver::Message() const {
  const json::value& message = state_.at("message");
  if (message.is_null()) return "";
  return std::string(message.at("text").as_string()) + "|" + std::string(message.at("title").as_string()) + "|" +
         std::string(message.at("icon").as_string());
}

void ConsoleDriver::OpenFilters(const std::string& server) {
  Do(R"({"do":"expand","node":"server:)" + server + R"("})");
  Do(R"({"do":"select","node":"server:)" + server + R"(/filters"})");
}

}  // namespace qv::test
