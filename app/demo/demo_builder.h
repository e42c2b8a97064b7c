#pragma once

#include <string>
#include <utility>
#include <vector>

#include "app/demo/demo_server.h"

namespace qv {

// What a demonstration server is built from: the parts that differ from a fresh one.
struct DemoPostoffice {
  std::string name, account;
  std::vector<std::string> mailboxes;
};

// A criterion that somebody has edited; the others of the filter are as they were born.
struct DemoCriterion {
  int rule;
  std::string values;
  int status = 1;
};

struct DemoTask {
  std::string type, values;
  std::string description = "";  // where it isn't the one of the type
  int status = 1;
};

struct DemoFilter {
  std::string description;
  std::string postoffice, mailbox;
  std::vector<DemoCriterion> criteria;
  std::vector<DemoTask> tasks;
  int status = 1;
  std::string note = "";
  std::string script = "";  // of a criteria script, where the filter has one
  bool script_active = true;
};

struct DemoSpamTest {
  std::string word;  // the token without its brackets
  std::string description;
  int positive, negative;
};

class DemoBuilder {
 public:
  // Identifiers follow from the seed, so that every making of a server is the same.
  explicit DemoBuilder(unsigned seed);

  void AddPostoffice(const DemoPostoffice& postoffice);
  void AddFilter(const DemoFilter& filter);
  void AddOption(int scope, const std::string& query, const std::string& name, const std::string& value);
  void AddWord(const std::string& key, const std::string& name, long long value);
  // A file of a path below the configuration directory, of lines.
  void AddFile(const std::string& path, const std::vector<std::string>& lines);
  // The spam tests with their defaults, the script template that uses all of them, and the system's spam filter.
  void AddSpamProtection(const std::vector<DemoSpamTest>& tests, int status);

  DemoServer Take() { return std::move(server_); }

 private:
  std::string NewGuidText();
  void AddCriteria(const DemoFilter& filter, const std::string& criteria_id);

  unsigned long long random_;
  DemoServer server_;
};

}  // namespace qv
