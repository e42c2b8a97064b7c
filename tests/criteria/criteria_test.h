#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "criteria/criterion_dialog.h"
#include "tests/support/test_run.h"

namespace qv::test {

inline const ShownMessage kNotUpdated{"Unable to update Criteria", "Error", MessageIcon::Critical};

// A run whose store holds rows of the filter "CRT1", opened as the list of criteria opens them.
struct CriteriaTest : ::testing::Test, TestRun {
  std::string mailbox, postoffice, host;
  using Visit = std::function<void(Form&)>;

  // Adds the row of that rule, or replaces it.
  CriteriaRow& Put(const std::string& rule, int status = 0, const std::string& values = "") {
    CriteriaRow row{"CRT1", rule, "", "Text " + rule, status, values, 1, postoffice, mailbox};
    for (CriteriaRow& known : store.server(host).criteria) {
      if (known.RuleID == rule) return known = row;
    }
    store.server(host).criteria.push_back(row);
    return store.server(host).criteria.back();
  }
  const CriteriaRow& Row(const std::string& rule) {
    for (const CriteriaRow& row : store.server(host).criteria) {
      if (row.RuleID == rule) return row;
    }
    throw std::logic_error("no row " + rule);
  }

  // Sets a dialog's fields as the list does.
  void Hand(CriterionDialog& dialog, const std::string& rule) {
    dialog.CriteriaID = "CRT1";
    dialog.RuleID = rule;
    dialog.Mailbox = mailbox;
    dialog.Postoffice = postoffice;
    dialog.Host = host;
    dialog.Status = -1;
    if (rule == "14" || rule == "24") {
      dialog.Values = dialog.CriteriaType = dialog.Description = "";
      dialog.Frequency = -1;
    }
    if (rule == "18" || rule == "19") dialog.Values = "";
  }

  // Opens the row's dialog, does the visit there, and gives back the result.
  int Open(CriterionDialog& dialog, const std::string& rule, Visit visit) {
    Hand(dialog, rule);
    desktop.Visit(std::move(visit));
    return dialog.SetCriteria();
  }
  int Open(const std::string& rule, Visit visit) { return Open(*DialogForRule(run, rule), rule, std::move(visit)); }
};

// The named control of a form, of the kind that is expected there.
template <class Kind>
Kind& Get(Form& form, const std::string& name) {
  Control* control = form.Find(name);
  if (!control) throw std::logic_error("no control " + name + " in " + form.name());
  return dynamic_cast<Kind&>(*control);
}

inline bool IsOn(Form& form, const std::string& name) { return Get<Control>(form, name).Usable(); }
inline const std::vector<std::string>& Items(Form& form, const std::string& name) {
  return Get<ListControl>(form, name).Items();
}
inline std::string TextOf(Form& form, const std::string& name) { return Get<TextBox>(form, name).Text(); }
inline bool Ticked(Form& form) { return Get<CheckBox>(form, "chkStatus").Checked(); }

using Texts = std::vector<std::string>;

}  // namespace qv::test
