#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "editor/criteria_list.h"
#include "platform/forms.h"
#include "tests/support/test_run.h"

namespace qv::test {

class ListForm : public Form {
 public:
  explicit ListForm(Run& run) : Form(run.toolkit, "frmTest", "Test"), criteria(run, lvwCriteria) {}
  RowList lvwCriteria{*this, "lvwCriteria", {{"status", "Status", 1}, {"description", "Description", 1}}};
  CriteriaList criteria;
};

// A list of criteria in a form of its own.
class CriteriaRows : public testing::Test {
 protected:
  void SetUp() override { form.Load(); }
  void Add(const std::string& rule, int status = 0, const std::string& postoffice = "", const std::string& mailbox = "",
           const std::string& id = "CRT1") {
    run.store.server().criteria.push_back({id, rule, "", "Rule " + rule, status, "", 1, postoffice, mailbox});
  }
  void AddAll(const std::string& postoffice, const std::string& mailbox) {
    for (int n = 1; n <= 24; ++n) Add(std::to_string(n), 0, postoffice, mailbox);
  }
  void Load(const std::string& postoffice = "", const std::string& mailbox = "", const std::string& host = "",
            long select = 0) {
    form.criteria.Bind(postoffice, mailbox, host);
    form.criteria.lvLoadCriteria("CRT1", form.lvwCriteria, select);
  }
  std::string Rules() {
    std::string rules;
    for (const ListRow& row : form.lvwCriteria.Rows()) {
      rules += (rules.empty() ? "" : " ") + row.Key.substr(row.Key.rfind('-') + 1);
    }
    return rules;
  }
  long RowOf(const std::string& rule) {
    for (long n = 0; n < form.lvwCriteria.Count(); ++n) {
      if (form.lvwCriteria.Row(n).Key == "CRITERIA-CRT1-RULE-" + rule) return n;
    }
    return -1;
  }
  void Open(const std::string& rule) { Person(form).Open("lvwCriteria", RowOf(rule)); }
  std::string StatusOf(const std::string& rule) { return form.lvwCriteria.Row(RowOf(rule)).Text; }

  TestRun run;
  ListForm form{run.run};
};

}  // namespace qv::test
