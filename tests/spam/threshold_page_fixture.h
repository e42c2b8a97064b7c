#pragma once

#include <string>
#include <vector>

#include "spam/threshold_page.h"
#include "tests/spam/spam_fixture.h"

namespace qv::test {

// The threshold page of a server whose spam filter is on.
class ThresholdPageTest : public SpamFixture {
 protected:
  ThresholdPageTest() { AddFilter("", 1); }

  void AddFilter(const std::string& host, int status) {
    FilterRow filter;
    filter.FilterEntryID = "{SPAM_FILTER}";
    filter.CriteriaID = "CRT0";
    filter.ActionID = "A";
    filter.Description = "Spam filter";
    filter.Note = "kept";
    filter.Status = status;
    store.server(host).filters.push_back(filter);
  }

  void Start(const std::string& host = "") {
    Dictionary data;
    data.Add("mailbox", "");
    data.Add("postoffice", "");
    data.Add("host", host);
    page.Load();
    page.IMMCPropertyPage_Initialize(data);
    store.calls.clear();
  }

  std::vector<std::string> Texts() const { return {page.txtLow.Text(), page.txtMedium.Text(), page.txtHigh.Text()}; }
  void Set(const std::string& low, const std::string& medium, const std::string& high) {
    person.Set("txtLow", low);
    person.Set("txtMedium", medium);
    person.Set("txtHigh", high);
  }
  std::vector<std::string> Options(const std::string& host = "") {
    std::vector<std::string> options;
    for (const OptionRow& row : store.server(host).options) {
      options.push_back(std::to_string(row.Scope) + " " + row.Query + " " + row.ValueName + "=" + row.Value);
    }
    return options;
  }
  int Status(const std::string& host = "") { return store.server(host).filters.at(0).Status; }

  // Applies and expects a refusal with a message and the focus in a box, and that nothing has been saved.
  void ExpectRefusal(const std::string& text, const TextBox& box) {
    page.SetChanged(false);
    EXPECT_FALSE(page.ApplyChanges());
    const ShownMessage expected = {text, "Warning!", MessageIcon::Exclamation, MessageButtons::Ok};
    EXPECT_EQ(desktop.TakeMessages(), std::vector<ShownMessage>{expected});
    EXPECT_EQ(page.Focus(), &box);
    EXPECT_TRUE(page.Changed());
    EXPECT_EQ(store.calls, std::vector<std::string>{});
    EXPECT_EQ(files.writes, std::vector<std::string>{});
    EXPECT_EQ(registry.writes, std::vector<std::string>{});
  }

  ppgSpamProtection page{run};
  Person person{page};
};

}  // namespace qv::test
