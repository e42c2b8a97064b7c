// The extension's events on the tree, the verbs and the property sheets.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/snap_in_control.h"
#include "platform/runtime_error.h"
#include "tests/console/fake_console.h"

namespace qv {
namespace {

using test::ConsoleRun;
using test::FakeData;
using test::FakeSheet;
using test::FakeVerbs;
using test::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kMachine = "{3B76413A-6AAB-4C74-B19A-5C80DE6181F4}";
constexpr const char* kPostoffice = "{2272C4D4-7EB1-41A2-BB84-478F42D56AA1}";

ScopeItem Parent(const std::string& guid) {
  ScopeItem parent;
  parent.Node.NodeTypeGUID = guid;
  return parent;
}

Selection OfNothing(int type) {
  Selection selection;
  selection.SelectionType = type;
  return selection;
}

TEST(Expand, AMachineGetsItsTwoBranchesAndItsServerIsTaken) {
  ConsoleRun run;
  FakeData data;
  data.formats["SERVER_NAME"] = "MAIL2";
  ScopeItem parent = Parent(kMachine);
  EXPECT_EQ(run.run.ServerHost, "");
  run.filtering.ExtensionSnapIn_Expand(data, parent);
  EXPECT_EQ(run.run.ServerHost, "MAIL2");
  EXPECT_THAT(run.console.nodes,
              ElementsAre("nodFiltering|nodFiltering|{3B76413A-6AAB-4C74-B19A-5C80DE6181F4}",
                          "nodSpamProtection|nodSpamProtection|{3B76413A-6AAB-4C74-B19A-5C80DE6181F4}"));
  EXPECT_THAT(run.console.formats, ElementsAre("1|4"));
}

TEST(Expand, AnotherNodeGetsNothingThoughItsServerIsTaken) {
  ConsoleRun run;
  FakeData data;
  data.formats["SERVER_NAME"] = "MAIL3";
  ScopeItem parent = Parent(kPostoffice);
  run.filtering.ExtensionSnapIn_Expand(data, parent);
  EXPECT_EQ(run.run.ServerHost, "MAIL3");
  EXPECT_THAT(run.console.nodes, IsEmpty());
}

TEST(Expand, WithoutAServerNameTheServerStays) {
  ConsoleRun run;
  run.run.ServerHost = "MAIL2";
  ScopeItem parent = Parent(kMachine);
  run.filtering.ExtensionSnapIn_Expand(FakeData(), parent);
  EXPECT_EQ(run.run.ServerHost, "MAIL2");
  EXPECT_EQ(run.console.nodes.size(), 2u);
}

TEST(Expand, ASecondServerCountsForListsThatAreOpen) {
  ConsoleRun run;
  run.Add("FLT1", "Near");
  run.Add("FLT2", "Far", 1, "MAIL2");
  EXPECT_THAT(run.Listed(), ElementsAre("Near|Near|Enabled"));
  FakeData data;
  data.formats["SERVER_NAME"] = "MAIL2";
  ScopeItem parent = Parent(kMachine);
  run.filtering.ExtensionSnapIn_Expand(data, parent);
  EXPECT_THAT(run.Listed(), ElementsAre("Far|Far|Enabled"));
}

TEST(Expand, BelowTheBranchesThereIsNothing) {
  ConsoleRun run;
  run.filtering.ScopeItems_Expand(run.node);
  EXPECT_THAT(run.console.nodes, IsEmpty());
}

TEST(Filtering, HasTwoMethodsThatDoNothing) {
  ConsoleRun run;
  EXPECT_EQ(run.filtering.EditRule(), "");
  EXPECT_EQ(run.filtering.EditTask(), "");
}

TEST(ExtensionPages, AMailboxGetsItsPageWithScopeAndHost) {
  ConsoleRun run;
  FakeData data;
  data.formats["POSITION_DETAIL"] = "abc\tjoe\tMAIL2";
  FakeSheet sheet;
  run.filtering.ExtensionSnapIn_CreatePropertyPages(data, sheet);
  ASSERT_THAT(sheet.pages, ElementsAre("ppgMailboxFilters|Filters|help"));
  EXPECT_EQ(sheet.data[0].Item("postoffice"), "abc");
  EXPECT_EQ(sheet.data[0].Item("mailbox"), "joe");
  EXPECT_EQ(sheet.data[0].Item("host"), "MAIL2");
  EXPECT_THAT(run.console.formats, ElementsAre("1|4"));
}

TEST(ExtensionPages, APostofficeGetsItsPageWithoutAHost) {
  ConsoleRun run;
  run.run.ServerHost = "MAIL2";
  FakeData data;
  data.formats["POSTOFFICE_NAME"] = "abc\tsomething else";
  FakeSheet sheet;
  run.filtering.ExtensionSnapIn_CreatePropertyPages(data, sheet);
  ASSERT_THAT(sheet.pages, ElementsAre("ppgPostofficeFilters|Filters|help"));
  EXPECT_EQ(sheet.data[0].Item("postoffice"), "abc");
  EXPECT_EQ(sheet.data[0].Item("mailbox"), "");
  EXPECT_EQ(sheet.data[0].Item("host"), "");
}

TEST(ExtensionPages, BothFormatsShareTheDictionary) {
  ConsoleRun run;
  FakeData data;
  data.formats["POSITION_DETAIL"] = "abc\tjoe\tMAIL2";
  data.formats["POSTOFFICE_NAME"] = "def";
  FakeSheet sheet;
  run.filtering.ExtensionSnapIn_CreatePropertyPages(data, sheet);
  ASSERT_EQ(sheet.pages.size(), 2u);
  EXPECT_EQ(sheet.data[1].Item("postoffice"), "def");
  EXPECT_EQ(sheet.data[1].Item("host"), "MAIL2");
}

TEST(ExtensionPages, OtherNodesGetNone) {
  ConsoleRun run;
  FakeSheet sheet;
  run.filtering.ExtensionSnapIn_CreatePropertyPages(FakeData(), sheet);
  EXPECT_THAT(sheet.pages, IsEmpty());
}

TEST(ExtensionPages, AnErrorComesInAnOrdinaryBox) {
  ConsoleRun run;
  FakeData data;
  data.formats["POSTOFFICE_NAME"] = "abc";
  data.broken = true;
  FakeSheet sheet;
  run.filtering.ExtensionSnapIn_CreatePropertyPages(data, sheet);
  EXPECT_THAT(run.desktop.messages,
              ElementsAre(ShownMessage{"Error adding the filtering property pages:The data is gone.", "Error",
                                       MessageIcon::Critical, MessageButtons::Ok}));
  EXPECT_THAT(run.console.messages, IsEmpty());
}

TEST(SpamPage, IsOfferedOnTheSpamNodeAlone) {
  ConsoleRun spam("nodSpamProtection"), filters;
  EXPECT_TRUE(spam.filtering.Views_QueryPagesFor(spam.Node()));
  EXPECT_FALSE(spam.filtering.Views_QueryPagesFor(OfNothing(0)));
  EXPECT_FALSE(filters.filtering.Views_QueryPagesFor(filters.Node()));
  Selection rows = spam.Node();
  rows.SelectionType = 1;
  EXPECT_FALSE(spam.filtering.Views_QueryPagesFor(rows));
}

TEST(SpamPage, GetsTheServerAndNoScope) {
  ConsoleRun run("nodSpamProtection");
  run.run.ServerHost = "MAIL2";
  FakeSheet sheet;
  run.filtering.Views_CreatePropertyPages(run.Node(), sheet);
  ASSERT_THAT(sheet.pages, ElementsAre("ppgSpamProtection|Spam Protection|help"));
  EXPECT_EQ(sheet.data[0].Item("host"), "MAIL2");
  EXPECT_EQ(sheet.data[0].Item("postoffice"), "");
  EXPECT_EQ(sheet.data[0].Item("mailbox"), "");
}

TEST(SpamPage, IsNotAddedElsewhere) {
  ConsoleRun run;
  FakeSheet sheet;
  run.filtering.Views_CreatePropertyPages(run.Node(), sheet);
  EXPECT_THAT(sheet.pages, IsEmpty());
}

TEST(SpamPage, AnErrorIsTold) {
  ConsoleRun run("nodSpamProtection");
  FakeSheet sheet;
  sheet.broken = true;
  run.filtering.Views_CreatePropertyPages(run.Node(), sheet);
  EXPECT_THAT(run.console.messages, ElementsAre(ShownMessage{"Views_CreatePropertyPages: The sheet is full.", "",
                                                             MessageIcon::None, MessageButtons::Ok}));
}

TEST(Verbs, ANodeHasRefreshAndTheSpamNodeProperties) {
  ConsoleRun filters, spam("nodSpamProtection");
  FakeVerbs of_filters, of_spam;
  filters.filtering.Views_Select(filters.view, filters.Node(), true, of_filters);
  spam.filtering.Views_Select(spam.view, spam.Node(), true, of_spam);
  EXPECT_THAT(of_filters.enabled, ElementsAre(Verb::Refresh));
  EXPECT_THAT(of_spam.enabled, ElementsAre(Verb::Refresh, Verb::Properties));
}

TEST(Verbs, FilterRowsHaveDeleteAndSpamRowsDoNot) {
  ConsoleRun run;
  run.Add("FLT1", "One");
  FakeVerbs of_row, of_none, of_spam;
  run.filtering.Views_Select(run.view, run.Rows({0}), true, of_row);
  EXPECT_THAT(of_row.enabled, ElementsAre(Verb::Refresh, Verb::Delete));
  run.filtering.Views_Select(run.view, run.Rows({}), true, of_none);
  EXPECT_THAT(of_none.enabled, ElementsAre(Verb::Refresh));
  const Selection row = run.Rows({0});
  run.pane.Name = "nodSpamProtection";
  run.filtering.Views_Select(run.view, row, true, of_spam);
  EXPECT_THAT(of_spam.enabled, ElementsAre(Verb::Refresh));
}

TEST(Verbs, RefreshNeedsAPaneItemAndASelection) {
  ConsoleRun run;
  FakeVerbs deselected, without_pane, other;
  run.filtering.Views_Select(run.view, run.Node(), false, deselected);
  run.filtering.Views_Select(run.view, OfNothing(2), true, other);
  run.console.current = nullptr;
  run.filtering.Views_Select(run.view, run.Node(), true, without_pane);
  EXPECT_THAT(deselected.enabled, IsEmpty());
  EXPECT_THAT(other.enabled, IsEmpty());
  EXPECT_THAT(without_pane.enabled, IsEmpty());
}

TEST(Verbs, ANodeOfTheTagFilterHasDelete) {
  ConsoleRun run;
  run.node.Tag = "filter\tsomething";
  FakeVerbs verbs;
  run.filtering.Views_Select(run.view, run.Node(), true, verbs);
  EXPECT_THAT(verbs.enabled, ElementsAre(Verb::Refresh, Verb::Delete));
}

TEST(Verbs, HaveTheConsolesNumbers) {
  EXPECT_EQ(static_cast<int>(Verb::Delete), 32771);
  EXPECT_EQ(static_cast<int>(Verb::Properties), 32772);
  EXPECT_EQ(static_cast<int>(Verb::Refresh), 32774);
}

TEST(Verbs, AnErrorIsTold) {
  ConsoleRun run;
  FakeVerbs verbs;
  verbs.broken = true;
  run.filtering.Views_Select(run.view, run.Node(), true, verbs);
  EXPECT_THAT(run.console.messages, ElementsAre(ShownMessage{"Error selecting item: The verb is gone.", "",
                                                             MessageIcon::None, MessageButtons::Ok}));
}

TEST(Refresh, BuildsTheViewAnewWithItsOwnStringAndType) {
  ConsoleRun run;
  run.filtering.Views_Refresh(run.view, run.Node());
  run.filtering.Views_Refresh(run.view, OfNothing(1));
  EXPECT_THAT(run.pane.redisplays, ElementsAre("display of nodFiltering|7", "display of nodFiltering|7"));
}

TEST(Refresh, NeedsAPaneItemAndASelection) {
  ConsoleRun run;
  run.filtering.Views_Refresh(run.view, OfNothing(2));
  run.console.current = nullptr;
  run.filtering.Views_Refresh(run.view, run.Node());
  EXPECT_THAT(run.pane.redisplays, IsEmpty());
  EXPECT_THAT(run.console.messages, IsEmpty());
}

TEST(Refresh, AnErrorIsTold) {
  ConsoleRun run;
  run.pane.fail = "No view.";
  run.filtering.Views_Refresh(run.view, run.Node());
  EXPECT_THAT(run.console.messages,
              ElementsAre(ShownMessage{"Error refreshing view: No view.", "", MessageIcon::None, MessageButtons::Ok}));
}

TEST(SnapInControl, MakesItsThreePages) {
  test::TestRun run;
  for (const char* name : {"ppgMailboxFilters", "ppgPostofficeFilters", "ppgSpamProtection"}) {
    EXPECT_EQ(CreatePage(run.run, name)->name(), name);
  }
}

TEST(SnapInControl, RefusesOtherNames) {
  test::TestRun run;
  try {
    CreatePage(run.run, "ppgOther");
    FAIL() << "a page was made";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.description(), "There is no property page ppgOther.");
  }
}

}  // namespace
}  // namespace qv
