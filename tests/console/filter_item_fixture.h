#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "console/filter_item_dialog.h"
#include "tests/support/test_run.h"

namespace qv::test {

inline ShownMessage Error(const std::string& text) {
  return {text, "Error", MessageIcon::Critical, MessageButtons::Ok};
}

// The dialog of a filter's name, and what a person does with it.
class ItemDialog : public testing::Test {
 protected:
  frmFilterItem& dialog() { return run.run.The<frmFilterItem>(); }

  // The person's name for the filter and OK; a dialog that is still open then is cancelled.
  bool Add(const std::string& name, const std::string& postoffice = "", const std::string& mailbox = "",
           const std::string& host = "") {
    run.desktop.Visit([&](Form& form) {
      Person person(form);
      person.Set("txtName", name);
      person.Click("cmdOK");
      if (form.Loaded()) person.Click("cmdCancel");
    });
    return dialog().AddFilter(handed_back, postoffice, mailbox, host);
  }
  void Edit(const std::string& id, const std::function<void(Person&)>& visit) {
    run.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(person);
    });
    dialog().AddMode = 0;
    dialog().FilterEntryID = id;
    dialog().ShowModal();
  }
  void Fill(int count) {
    for (int n = 0; n < count; ++n) {
      const std::string id = "X" + std::to_string(n);
      run.store.server().filters.push_back({"FLT" + id, "CRT" + id, "", "F" + std::to_string(n), "", 1, "", ""});
    }
  }
  std::vector<FilterRow>& filters() { return run.store.server().filters; }
  std::vector<CriteriaRow>& criteria() { return run.store.server().criteria; }

  TestRun run;
  std::string handed_back = "before";
};

}  // namespace qv::test
