// The order of the filters.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/filter_order_dialog.h"
#include "platform/runtime_error.h"
#include "tests/support/test_run.h"

namespace qv {
namespace {

using test::Person;
using test::ShownMessage;
using test::TestRun;
using testing::ElementsAre;
using testing::IsEmpty;

class Order : public testing::Test {
 protected:
  void Add(const std::string& id, const std::string& description, int status = 1) {
    run.store.server().filters.push_back({id, "CRT" + id.substr(3), "act", description, "note", status, "", ""});
  }
  void Show(const std::function<void(Person&)>& visit) {
    run.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(person);
      if (form.Loaded()) person.Click("cmdCancel");
    });
    dialog().ShowModal();
  }
  frmFilters& dialog() { return run.run.The<frmFilters>(); }
  // Each row as "key|text|status".
  std::vector<std::string> Rows() {
    std::vector<std::string> rows;
    for (const ListRow& row : dialog().lvwFilters.Rows()) {
      rows.push_back(row.Key + "|" + row.Text + "|" + row.SubItems.at(0));
    }
    return rows;
  }
  std::vector<std::string> Stored() {
    std::vector<std::string> ids;
    for (const auto& row : run.store.server().filters) ids.push_back(row.FilterEntryID);
    return ids;
  }
  // "up", "down", "up down" or "": the move buttons that are enabled.
  std::string Moves() {
    std::string moves = dialog().cmdUp.Enabled() ? "up" : "";
    if (dialog().cmdDown.Enabled()) moves += moves.empty() ? "down" : " down";
    return moves;
  }
  TestRun run;
};

TEST_F(Order, TheDialogHasItsCaptionsAndColumns) {
  Show([&](Person&) {
    EXPECT_EQ(dialog().name(), "frmFilters");
    EXPECT_EQ(dialog().Caption(), "Order Filters");
    ASSERT_EQ(dialog().lvwFilters.Columns().size(), 2u);
    EXPECT_EQ(dialog().lvwFilters.Columns()[0].Header, "Filter Name");
    EXPECT_EQ(dialog().lvwFilters.Columns()[0].Width, 3598);
    EXPECT_EQ(dialog().lvwFilters.Columns()[1].Header, "Status");
    EXPECT_EQ(dialog().lvwFilters.Columns()[1].Width, 2540);
    EXPECT_EQ(dialog().cmdCancel.Caption(), "Close");
    EXPECT_EQ(dialog().cmdCancel.role(), Button::Role::Cancel);
    EXPECT_EQ(dialog().cmdUp.picture(), Button::Picture::Up);
    EXPECT_EQ(dialog().cmdDown.picture(), Button::Picture::Down);
  });
}

TEST_F(Order, ListsEverySystemFilterInStoreOrder) {
  Add("FLT2", "Two");
  Add("{SPAM_FILTER}", "Spam", 0);
  Add("FLT1", "One", 2);
  run.store.server().filters.push_back({"FLT3", "CRT3", "", "Of abc", "", 1, "abc", ""});
  Show([&](Person&) {
    EXPECT_THAT(Rows(), ElementsAre("FLT2|Two|Enabled", "{SPAM_FILTER}|Spam|Disabled", "FLT1|One|Enabled"));
    EXPECT_EQ(dialog().lvwFilters.Selected(), -1);
  });
}

TEST_F(Order, WorksOnTheLocalMachineWhateverTheServer) {
  run.run.ServerHost = "MAIL2";
  run.store.server("MAIL2").filters.push_back({"FLT9", "CRT9", "", "Far", "", 1, "", ""});
  Add("FLT1", "One");
  Show([&](Person&) { EXPECT_THAT(Rows(), ElementsAre("FLT1|One|Enabled")); });
}

TEST_F(Order, AnEmptyListHasBothButtonsDisabled) {
  Show([&](Person& person) {
    EXPECT_EQ(Moves(), "");
    person.Pick("lvwFilters", -1);
    EXPECT_EQ(Moves(), "");
  });
}

TEST_F(Order, OneRowHasBothButtonsDisabled) {
  Add("FLT1", "One");
  Show([&](Person& person) {
    EXPECT_EQ(Moves(), "");
    person.Pick("lvwFilters", 0);
    EXPECT_EQ(Moves(), "");
  });
}

TEST_F(Order, TheButtonsFollowTheSelectedRow) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  Show([&](Person& person) {
    person.Pick("lvwFilters", 0);
    EXPECT_EQ(Moves(), "down");
    person.Pick("lvwFilters", 1);
    EXPECT_EQ(Moves(), "up");
  });
  Add("FLT3", "Three");
  Show([&](Person& person) {
    person.Pick("lvwFilters", 1);
    EXPECT_EQ(Moves(), "up down");
  });
}

TEST_F(Order, WithoutASelectedRowTheButtonsDoNothing) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  Show([&](Person& person) {
    EXPECT_EQ(Moves(), "up down");
    run.store.calls.clear();
    person.Click("cmdUp");
    person.Click("cmdDown");
    EXPECT_THAT(run.store.calls, IsEmpty());
    EXPECT_THAT(Rows(), ElementsAre("FLT1|One|Enabled", "FLT2|Two|Enabled"));
  });
}

TEST_F(Order, DownMovesTheRowInTheStoreAndInTheList) {
  Add("FLT1", "One");
  Add("FLT2", "Two", 0);
  Add("FLT3", "Three");
  Show([&](Person& person) {
    person.Pick("lvwFilters", 0);
    run.store.calls.clear();
    person.Click("cmdDown");
    EXPECT_THAT(run.store.calls, ElementsAre("Filter.Create", "Filter.SetHost@", "Filter.getfilter@(FLT1)",
                                             "Filter.EditFilter@(FLT1,1,One,act,note,CRT1,2)"));
    EXPECT_THAT(Stored(), ElementsAre("FLT2", "FLT1", "FLT3"));
    EXPECT_THAT(Rows(), ElementsAre("FLT2|Two|Disabled", "FLT1|One|Enabled", "FLT3|Three|Enabled"));
    EXPECT_EQ(dialog().lvwFilters.Selected(), 1);
    EXPECT_EQ(Moves(), "up down");
    person.Click("cmdDown");
    EXPECT_EQ(Moves(), "up");
    EXPECT_THAT(Stored(), ElementsAre("FLT2", "FLT3", "FLT1"));
  });
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(Order, UpUndoesDown) {
  Add("FLT1", "Same name");
  Add("{SPAM_FILTER}", "Spam", 0);
  Add("FLT2", "Same name");
  Show([&](Person& person) {
    person.Pick("lvwFilters", 1);
    person.Click("cmdUp");
    EXPECT_THAT(Stored(), ElementsAre("{SPAM_FILTER}", "FLT1", "FLT2"));
    EXPECT_EQ(dialog().lvwFilters.Selected(), 0);
    EXPECT_EQ(Moves(), "down");
    person.Click("cmdDown");
    EXPECT_THAT(Stored(), ElementsAre("FLT1", "{SPAM_FILTER}", "FLT2"));
    EXPECT_EQ(dialog().lvwFilters.Selected(), 1);
    EXPECT_THAT(Rows(), ElementsAre("FLT1|Same name|Enabled", "{SPAM_FILTER}|Spam|Disabled", "FLT2|Same name|Enabled"));
  });
}

TEST_F(Order, RowsOfOneNameSwapByTheirIds) {
  Add("FLT1", "Same");
  Add("FLT2", "Same");
  Show([&](Person& person) {
    person.Pick("lvwFilters", 0);
    person.Click("cmdDown");
    EXPECT_THAT(Rows(), ElementsAre("FLT2|Same|Enabled", "FLT1|Same|Enabled"));
  });
  EXPECT_THAT(Stored(), ElementsAre("FLT2", "FLT1"));
}

TEST_F(Order, ARefusalIsNotLookedAt) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  run.store.Refuse("Filter.EditFilter", 0);
  Show([&](Person& person) {
    person.Pick("lvwFilters", 0);
    person.Click("cmdDown");
    EXPECT_THAT(Rows(), ElementsAre("FLT2|Two|Enabled", "FLT1|One|Enabled"));
  });
  EXPECT_THAT(Stored(), ElementsAre("FLT1", "FLT2"));
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(Order, AFilterThatHasVanishedMovesInTheListAlone) {
  Add("FLT1", "One");
  Add("FLT2", "Two", 0);
  Show([&](Person& person) {
    run.store.server().filters.erase(run.store.server().filters.begin());
    person.Pick("lvwFilters", 0);
    run.store.calls.clear();
    person.Click("cmdDown");
    EXPECT_THAT(run.store.calls, ElementsAre("Filter.Create", "Filter.SetHost@", "Filter.getfilter@(FLT1)",
                                             "Filter.EditFilter@(FLT1,-1,,,,,2)"));
    EXPECT_THAT(Rows(), ElementsAre("FLT2|Two|Disabled", "FLT1|One|Enabled"));
    EXPECT_EQ(dialog().lvwFilters.Selected(), 1);
  });
  EXPECT_THAT(Stored(), ElementsAre("FLT2"));
  EXPECT_THAT(run.desktop.messages, IsEmpty());
  Show([&](Person&) { EXPECT_THAT(Rows(), ElementsAre("FLT2|Two|Disabled")); });
}

TEST_F(Order, AnErrorOfAMoveIsTold) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  const ShownMessage told = {"Error moving items:Locked.", "Error", MessageIcon::Critical, MessageButtons::Ok};
  run.store.Raise("Filter.EditFilter", "Locked.");
  Show([&](Person& person) {
    person.Pick("lvwFilters", 0);
    person.Click("cmdDown");
    EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(told));
    person.Pick("lvwFilters", 1);
    person.Click("cmdUp");
    EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(told));
    EXPECT_THAT(Rows(), ElementsAre("FLT1|One|Enabled", "FLT2|Two|Enabled"));
  });
}

TEST_F(Order, AListThatFailsBehindTheStoreIsTruedByTheNextLoading) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  Show([&](Person& person) {
    // A key that the exchange needs for itself.
    dialog().lvwFilters.AddRow({"X1X", "", {"Enabled"}, false});
    person.Pick("lvwFilters", 0);
    person.Click("cmdDown");
    ASSERT_EQ(run.desktop.messages.size(), 1u);
    EXPECT_EQ(run.desktop.messages[0].text, "Error moving items:Key is not unique in collection");
    EXPECT_EQ(Rows()[0], "FLT1|One|Enabled");
  });
  EXPECT_THAT(Stored(), ElementsAre("FLT2", "FLT1"));
  Show([&](Person&) { EXPECT_THAT(Rows(), ElementsAre("FLT2|Two|Enabled", "FLT1|One|Enabled")); });
}

TEST_F(Order, AnErrorOfTheLoadingGoesOn) {
  run.store.Raise("Filter.FindFirstFilter", "No store.");
  EXPECT_THROW(dialog().ShowModal(), RuntimeError);
  EXPECT_FALSE(dialog().Loaded());
}

}  // namespace
}  // namespace qv
