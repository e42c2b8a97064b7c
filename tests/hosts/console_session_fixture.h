#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/hosts/console_driver.h"

namespace qv::test {

using Texts = std::vector<std::string>;

inline constexpr const char* kThreeFilters = R"({"filters": [
  {"FilterEntryID": "FLT1", "CriteriaID": "CRT1", "Description": "Zulu", "Status": 1},
  {"FilterEntryID": "{SPAM_FILTER}", "Description": "Spam", "Status": 1},
  {"FilterEntryID": "FLT2", "CriteriaID": "CRT2", "Description": "alpha", "Status": 0},
  {"FilterEntryID": "FLT3", "CriteriaID": "CRT3", "Description": "Mike", "Status": 2}]})";

// Two servers, of which the local one has filters, and the console on them.
class Console : public ::testing::Test {
 protected:
  Console() {
    world.Import("LOCALHOST", kThreeFilters);
    world.Import("MAIL2", R"({"filters": [{"FilterEntryID": "FLT1", "Description": "Far", "Status": 1}]})");
  }
  void SelectRows(ConsoleDriver& c, const std::string& keys) { c.Do(R"({"do":"selectItems","keys":[)" + keys + "]}"); }
  long ReloadsOn(const std::string& server) {
    for (const auto& row : world.Section(server, "registry")) {
      if (row.at("ValueName").as_string() == "Reload") return static_cast<long>(row.at("Data").as_int64());
    }
    return 0;
  }
  TwoServers world;
};

}  // namespace qv::test
