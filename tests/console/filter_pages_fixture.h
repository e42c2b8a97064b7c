#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/filter_pages.h"
#include "tests/support/test_run.h"

namespace qv::test {

inline ShownMessage PageError(const std::string& text) {
  return {text, "Error", MessageIcon::Critical, MessageButtons::Ok};
}

// A page of a mailbox and one of a postoffice, started as a sheet does.
class FilterPages : public testing::Test {
 protected:
  void SetUp() override {
    data.Add("postoffice", "abc");
    data.Add("mailbox", "joe");
  }
  // Loads a page as a sheet does.
  void Start(FilterPage& of) {
    of.Load();
    of.IMMCPropertyPage_Initialize(data);
  }
  void Add(const std::string& id, const std::string& description, int status = 1, const std::string& of = "joe") {
    run.store.server().filters.push_back({id, "CRT" + id.substr(3), "act", description, "note", status, "abc", of});
  }
  std::vector<std::string> Rows(const FilterPage& of) {
    std::vector<std::string> rows;
    for (const ListRow& row : of.lvwFilters.Rows()) rows.push_back(row.Key + "|" + row.Text + "|" + row.SubItems.at(0));
    return rows;
  }
  std::string Enabled(const FilterPage& of) {
    std::string names;
    for (const Button* button :
         {&of.cmdAdd, &of.cmdEdit, &of.cmdDelete, &of.cmdEnable, &of.cmdDisable, &of.cmdUp, &of.cmdDown}) {
      if (button->Enabled()) names += (names.empty() ? "" : " ") + button->name().substr(3);
    }
    return names;
  }
  std::vector<std::string> Stored() {
    std::vector<std::string> ids;
    for (const auto& row : run.store.server().filters) {
      if (row.Postoffice == "abc" && row.Mailbox == "joe") ids.push_back(row.FilterEntryID);
    }
    return ids;
  }
  TestRun run;
  Dictionary data;
  ppgMailboxFilters mailbox{run.run};
  ppgPostofficeFilters postoffice{run.run};
};

}  // namespace qv::test
