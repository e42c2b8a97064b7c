#pragma once

#include <boost/json.hpp>
#include <condition_variable>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "hosts/console/carrier.h"
#include "store/servers.h"

struct sqlite3;

namespace qv::test {

// Two servers in a temporary directory, each with an empty database and a configuration directory.
class TwoServers {
 public:
  TwoServers();
  ~TwoServers();

  Servers& servers() { return *servers_; }
  // Replaces sections of a server's database with those of a JSON object. The server is "LOCALHOST" or "MAIL2".
  void Import(const std::string& server, const std::string& json);
  // A section of a server's export.
  boost::json::array Section(const std::string& server, const char* section);
  std::filesystem::path DatabaseOf(const std::string& server) const;

 private:
  std::filesystem::path root_;
  std::unique_ptr<Servers> servers_;
};

// Another program in the middle of a change of a database, for as long as the object lives.
class HeldDatabase {
 public:
  explicit HeldDatabase(const std::filesystem::path& file);
  ~HeldDatabase();

 private:
  sqlite3* connection_ = nullptr;
};

// Drives a console session that runs on a thread of its own: each call sends one event and waits for its answer.
class ConsoleDriver {
 public:
  explicit ConsoleDriver(Servers& servers);
  ~ConsoleDriver();

  // Sends a line as it is; the answer whole.
  boost::json::object Send(const std::string& line);
  // Sends an event that must be taken; the state that follows.
  const boost::json::object& Do(const std::string& event);
  // Sends an event that must be refused; the words of the error.
  std::string Refused(const std::string& event);

  const boost::json::object& state() const { return state_; }
  boost::json::value at(const std::string& pointer) const;
  // The cells of the rows of the result pane, joined by "|".
  std::vector<std::string> Cells() const;
  std::vector<std::string> Keys() const;
  // The names of the verbs that are on, in their order, joined by ",".
  std::string Verbs() const;
  // The captions of a list of the open menu, those that are disabled in parentheses.
  std::vector<std::string> Menu(const char* list) const;
  std::string Message() const;  // text, title and icon of the box, joined by "|"; empty for none

  void OpenFilters(const std::string& server = "LOCALHOST");
  // Ends the person's input and waits for the end of the session.
  void Leave();

 private:
  class Pipe : public Carrier {
   public:
    std::optional<std::string> Receive() override;
    void Send(std::string message) override;
    void Put(const std::string& message);
    void Close();
    std::string Take();

   private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> in_, out_;
    bool closed_ = false;
  };

  Pipe pipe_;
  boost::json::object state_;
  std::thread thread_;
};

}  // namespace qv::test
