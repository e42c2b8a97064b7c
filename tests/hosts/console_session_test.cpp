#include <gtest/gtest.h>

#include "tests/hosts/console_driver.h"

namespace qv {
namespace {

using test::ConsoleDriver;
using test::TwoServers;
using Texts = std::vector<std::string>;

constexpr const char* kThreeFilters = R"({"filters": [
  {"FilterEntryID": "FLT1", "CriteriaID": "CRT1", "Description": "Zulu", "Status": 1},
  {"FilterEntryID": "{SPAM_FILTER}", "Description": "Spam", "Status": 1},
  {"FilterEntryID": "FLT2", "CriteriaID": "CRT2", "Description": "alpha", "Status": 0},
  {"FilterEntryID": "FLT3", "CriteriaID": "CRT3", "Description": "Mike", "Status": 2}]})";

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

TEST_F(Console, StartsWithTheRootExpandedAndNothingElse) {
  ConsoleDriver c(world.servers());
  EXPECT_EQ(c.at("/tree/id"), "servers");
  EXPECT_EQ(c.at("/tree/expanded"), true);
  EXPECT_EQ(c.at("/tree/children/0/id"), "server:LOCALHOST");
  EXPECT_EQ(c.at("/tree/children/1/id"), "server:MAIL2");
  EXPECT_EQ(c.at("/tree/children/0/expandable"), true);
  EXPECT_EQ(c.at("/tree/children/0/expanded"), false);
  EXPECT_EQ(c.at("/tree/children/0/children"), boost::json::array());
  EXPECT_TRUE(c.at("/view").is_null() && c.at("/menu").is_null() && c.at("/sheet").is_null());
  EXPECT_TRUE(c.at("/message").is_null());
  EXPECT_EQ(c.at("/dialogs"), boost::json::array());
  EXPECT_EQ(c.at("/started"), boost::json::array());
  EXPECT_EQ(c.Verbs(), "");
}

TEST_F(Console, AServersBranchesAreAddedOnceBehindItsOwn) {
  ConsoleDriver c(world.servers());
  c.Do(R"({"do":"expand","node":"server:LOCALHOST"})");
  c.Do(R"({"do":"expand","node":"server:LOCALHOST"})");
  const auto children = c.at("/tree/children/0/children").as_array();
  ASSERT_EQ(children.size(), 3u);
  EXPECT_EQ(children[0].at("id"), "server:LOCALHOST/postoffices");
  EXPECT_EQ(children[1].at("id"), "server:LOCALHOST/filters");
  EXPECT_EQ(children[1].at("name"), "Filters");
  EXPECT_EQ(children[1].at("image"), 1);
  EXPECT_EQ(children[2].at("id"), "server:LOCALHOST/spam");
  EXPECT_EQ(children[2].at("name"), "Spam Protection");
  EXPECT_EQ(children[2].at("image"), 8);
}

TEST_F(Console, TheFilterListIsInStoreOrderWithoutTheSpamFilter) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  EXPECT_EQ(c.Cells(), (Texts{"Zulu|Enabled", "alpha|Disabled", "Mike|Disabled"}));
  EXPECT_EQ(c.Keys(), (Texts{"FILTER-FLT1", "FILTER-FLT2", "FILTER-FLT3"}));
  EXPECT_EQ(c.at("/view/items/0/icon"), "7");
  EXPECT_EQ(c.at("/view/items/2/icon"), "6");
  EXPECT_EQ(c.at("/view/host"), "LOCALHOST");
  EXPECT_EQ(c.at("/view/total"), 3);
  EXPECT_TRUE(c.at("/view/sort").is_null());
}

TEST_F(Console, SortingTheFilterListLeavesItsOrder) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  for (const bool descending : {false, true, false}) {
    c.Do(R"({"do":"sort","column":0})");
    EXPECT_EQ(c.at("/view/sort/column"), 0);
    EXPECT_EQ(c.at("/view/sort/descending"), descending);
    EXPECT_EQ(c.Keys(), (Texts{"FILTER-FLT1", "FILTER-FLT2", "FILTER-FLT3"}));
  }
  c.Refused(R"({"do":"sort","column":2})");
  c.Refused(R"({"do":"sort","column":-1})");
}

TEST_F(Console, TheServerExpandedLastIsTheCurrentOneForAllLists) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  c.Do(R"({"do":"expand","node":"server:MAIL2"})");
  EXPECT_EQ(c.at("/view/host"), "MAIL2");
  EXPECT_EQ(c.Cells(), (Texts{"Far|Enabled"}));
  c.Do(R"({"do":"select","node":"server:LOCALHOST/filters"})");
  EXPECT_EQ(c.Cells(), (Texts{"Far|Enabled"}));
  c.Do(R"({"do":"expand","node":"server:LOCALHOST"})");
  EXPECT_EQ(c.at("/view/host"), "LOCALHOST");
  EXPECT_EQ(c.Cells().size(), 3u);
}

TEST_F(Console, ACommandWorksOnTheCurrentServer) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  SelectRows(c, R"("FILTER-FLT1")");
  c.Do(R"({"do":"expand","node":"server:MAIL2"})");
  c.Do(R"({"do":"menu","on":"items"})");
  c.Do(R"({"do":"choose","name":"mnuFilterDisable"})");
  EXPECT_EQ(world.Section("MAIL2", "filters").at(0).at("Status"), 0);
  EXPECT_EQ(world.Section("LOCALHOST", "filters").at(0).at("Status"), 1);
  EXPECT_EQ(ReloadsOn("LOCALHOST"), 1);
  EXPECT_EQ(ReloadsOn("MAIL2"), 0);
}

TEST_F(Console, VerbsFollowTheSelection) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  EXPECT_EQ(c.Verbs(), "refresh");
  SelectRows(c, R"("FILTER-FLT1")");
  EXPECT_EQ(c.Verbs(), "delete,refresh");
  SelectRows(c, "");
  EXPECT_EQ(c.Verbs(), "refresh");
  c.Refused(R"({"do":"verb","name":"delete"})");
  c.Refused(R"({"do":"verb","name":"properties"})");
  c.Refused(R"({"do":"verb","name":"rename"})");
  c.Do(R"({"do":"select","node":"server:LOCALHOST/spam"})");
  EXPECT_EQ(c.Verbs(), "properties,refresh");
}

TEST_F(Console, MenusFollowTheSelection) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  c.Do(R"({"do":"menu","on":"node"})");
  EXPECT_EQ(c.Menu("new"), (Texts{"New Filter..."}));
  EXPECT_EQ(c.Menu("top"), (Texts{"Order Filters..."}));
  c.Refused(R"({"do":"menu","on":"items"})");
  SelectRows(c, R"("FILTER-FLT1")");
  EXPECT_TRUE(c.at("/menu").is_null());
  c.Do(R"({"do":"menu","on":"items"})");
  EXPECT_EQ(c.Menu("new"), Texts{});
  EXPECT_EQ(c.Menu("top"), (Texts{"(Enable)", "Disable", "Manage...", "Rename...", "Order Filters..."}));
  EXPECT_EQ(c.at("/menu/verbs"), (boost::json::array{"delete", "refresh"}));
  SelectRows(c, R"("FILTER-FLT3")");
  c.Do(R"({"do":"menu","on":"items"})");
  EXPECT_EQ(c.Menu("top"), (Texts{"Enable", "(Disable)", "Manage...", "Rename...", "Order Filters..."}));
  SelectRows(c, R"("FILTER-FLT1","FILTER-FLT3")");
  c.Do(R"({"do":"menu","on":"items"})");
  EXPECT_EQ(c.Menu("top"), Texts{});
}

TEST_F(Console, AnItemIsChosenFromAnOpenMenuOnly) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  SelectRows(c, R"("FILTER-FLT1")");
  c.Refused(R"({"do":"choose","name":"mnuFilterDisable"})");
  c.Do(R"({"do":"menu","on":"items"})");
  c.Refused(R"({"do":"choose","name":"mnuFilterEnable"})");
  c.Refused(R"({"do":"choose","name":"mnuSetToDefault"})");
  c.Do(R"({"do":"choose","name":"mnuFilterDisable"})");
  EXPECT_TRUE(c.at("/menu").is_null());
  EXPECT_EQ(c.Cells().front(), "Zulu|Disabled");
}

TEST_F(Console, ARefusedEventChangesNothing) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  SelectRows(c, R"("FILTER-FLT1")");
  c.Do(R"({"do":"menu","on":"items"})");
  c.Refused(R"({"do":"selectItems","keys":["FILTER-FLT9"]})");
  c.Do(R"({"do":"choose","name":"mnuFilterDisable"})");  // the menu is still open
  EXPECT_EQ(c.Cells().front(), "Zulu|Disabled");
}

TEST_F(Console, ARebuiltPaneKeepsItsSortAndSelection) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  c.Do(R"({"do":"sort","column":1})");
  SelectRows(c, R"("FILTER-FLT1","FILTER-FLT3")");
  world.Import("LOCALHOST", R"({"filters": [{"FilterEntryID": "FLT3", "Description": "Mike", "Status": 1},
                                            {"FilterEntryID": "FLT4", "Description": "New", "Status": 1}]})");
  c.Do(R"({"do":"verb","name":"refresh"})");
  EXPECT_EQ(c.Keys(), (Texts{"FILTER-FLT3", "FILTER-FLT4"}));
  EXPECT_EQ(c.at("/view/items/0/selected"), true);
  EXPECT_EQ(c.at("/view/items/1/selected"), false);
  EXPECT_EQ(c.at("/view/sort/column"), 1);
  EXPECT_EQ(c.Verbs(), "delete,refresh");
}

TEST_F(Console, DeleteActsOnTheFirstSelectedRowInListOrder) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  SelectRows(c, R"("FILTER-FLT3","FILTER-FLT2")");
  c.Do(R"({"do":"verb","name":"delete"})");
  EXPECT_EQ(c.Message(), "Are you sure you wish to delete the filter 'alpha'?|Delete|critical");
  EXPECT_EQ(c.at("/message/buttons"), (boost::json::array{"yes", "no"}));
  c.Refused(R"({"do":"answer","button":"ok"})");
  c.Refused(R"({"do":"verb","name":"refresh"})");
  c.Do(R"({"do":"answer","button":"yes"})");
  EXPECT_EQ(c.Keys(), (Texts{"FILTER-FLT1", "FILTER-FLT3"}));
  EXPECT_EQ(ReloadsOn("LOCALHOST"), 1);
}

TEST_F(Console, DeletingWithNoLeavesEverything) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  SelectRows(c, R"("FILTER-FLT2")");
  c.Do(R"({"do":"verb","name":"delete"})");
  c.Do(R"({"do":"answer","button":"no"})");
  EXPECT_EQ(c.Keys().size(), 3u);
  EXPECT_EQ(ReloadsOn("LOCALHOST"), 0);
  c.Refused(R"({"do":"answer","button":"no"})");
}

TEST_F(Console, APostofficeListsItsMailboxes) {
  world.Import("LOCALHOST", R"({"postoffices": [{"Name": "beta"}, {"Name": "alpha"}],
      "mailboxes": [{"Postoffice": "beta", "Mailbox": "joe"}, {"Postoffice": "beta", "Mailbox": "ann"},
                    {"Postoffice": "alpha", "Mailbox": "sue"}]})");
  ConsoleDriver c(world.servers());
  c.Do(R"({"do":"expand","node":"server:LOCALHOST"})");
  c.Do(R"({"do":"expand","node":"server:LOCALHOST/postoffices"})");
  const auto nodes = c.at("/tree/children/0/children/0/children").as_array();
  ASSERT_EQ(nodes.size(), 2u);
  EXPECT_EQ(nodes[0].at("id"), "server:LOCALHOST/postoffice:beta");
  EXPECT_EQ(nodes[1].at("id"), "server:LOCALHOST/postoffice:alpha");
  c.Do(R"({"do":"select","node":"server:LOCALHOST/postoffice:beta"})");
  EXPECT_EQ(c.Keys(), (Texts{"MAILBOX-joe", "MAILBOX-ann"}));
  EXPECT_EQ(c.Verbs(), "properties,refresh");
  SelectRows(c, R"("MAILBOX-ann")");
  EXPECT_EQ(c.Verbs(), "properties,refresh");
  SelectRows(c, R"("MAILBOX-ann","MAILBOX-joe")");
  EXPECT_EQ(c.Verbs(), "refresh");
  c.Do(R"({"do":"sort","column":0})");
  EXPECT_EQ(c.Keys(), (Texts{"MAILBOX-ann", "MAILBOX-joe"}));
  c.Do(R"({"do":"sort","column":0})");
  EXPECT_EQ(c.Keys(), (Texts{"MAILBOX-joe", "MAILBOX-ann"}));
}

TEST_F(Console, APostofficeThatIsGoneLeavesTheTree) {
  world.Import("LOCALHOST", R"({"postoffices": [{"Name": "beta"}, {"Name": "alpha"}]})");
  ConsoleDriver c(world.servers());
  c.Do(R"({"do":"expand","node":"server:LOCALHOST"})");
  c.Do(R"({"do":"expand","node":"server:LOCALHOST/postoffices"})");
  c.Do(R"({"do":"select","node":"server:LOCALHOST/postoffice:beta"})");
  world.Import("LOCALHOST", R"({"postoffices": [{"Name": "alpha"}, {"Name": "gamma"}]})");
  c.Do(R"({"do":"expand","node":"server:LOCALHOST/postoffices"})");
  EXPECT_EQ(c.at("/tree/children/0/children/0/selected"), true);
  EXPECT_EQ(c.Cells(), (Texts{"alpha", "gamma"}));
  c.Refused(R"({"do":"select","node":"server:LOCALHOST/postoffice:beta"})");
}

TEST_F(Console, TheNodesBelowOpenFromTheirRows) {
  world.Import("MAIL2", R"({"postoffices": [{"Name": "beta"}]})");
  ConsoleDriver c(world.servers());
  c.Do(R"({"do":"select","node":"servers"})");
  EXPECT_EQ(c.Keys(), (Texts{"server:LOCALHOST", "server:MAIL2"}));
  c.Do(R"({"do":"expand","node":"server:MAIL2"})");
  c.Do(R"({"do":"select","node":"server:MAIL2/postoffices"})");
  EXPECT_EQ(c.Cells(), (Texts{"beta"}));
  c.Do(R"({"do":"doubleClick","item":"server:MAIL2/postoffice:beta"})");
  EXPECT_EQ(c.at("/tree/children/1/children/0/children/0/selected"), true);
}

TEST_F(Console, ANodeThatIsSelectedListsWhatItsExpansionBrings) {
  world.Import("LOCALHOST", R"({"postoffices": [{"Name": "beta"}]})");
  ConsoleDriver c(world.servers());
  c.Do(R"({"do":"select","node":"server:LOCALHOST"})");
  EXPECT_EQ(c.Cells(), Texts{});
  c.Do(R"({"do":"expand","node":"server:LOCALHOST"})");
  EXPECT_EQ(c.Cells(), (Texts{"Postoffices", "Filters", "Spam Protection"}));
  c.Do(R"({"do":"select","node":"server:LOCALHOST/postoffices"})");
  world.Import("LOCALHOST", R"({"postoffices": [{"Name": "beta"}, {"Name": "alpha"}]})");
  c.Do(R"({"do":"expand","node":"server:LOCALHOST/postoffices"})");
  EXPECT_EQ(c.Cells(), (Texts{"beta", "alpha"}));
  EXPECT_EQ(c.at("/tree/children/0/children/0/children/1/id"), "server:LOCALHOST/postoffice:alpha");
}

TEST_F(Console, CollapsingSelectsTheNodeAboveTheSelectedOne) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  c.Do(R"({"do":"collapse","node":"server:LOCALHOST"})");
  EXPECT_EQ(c.at("/tree/children/0/expanded"), false);
  EXPECT_EQ(c.at("/tree/children/0/selected"), true);
}

TEST_F(Console, AWindowOfRowsIsShown) {
  std::string rows;
  for (int n = 0; n < 1203; ++n) {
    rows += (n ? "," : "") + std::string(R"({"Postoffice": "po", "Mailbox": "m)") + std::to_string(n) + R"("})";
  }
  world.Import("LOCALHOST", R"({"postoffices": [{"Name": "po"}], "mailboxes": [)" + rows + "]}");
  ConsoleDriver c(world.servers());
  c.Do(R"({"do":"expand","node":"server:LOCALHOST"})");
  c.Do(R"({"do":"expand","node":"server:LOCALHOST/postoffices"})");
  c.Do(R"({"do":"select","node":"server:LOCALHOST/postoffice:po"})");
  EXPECT_EQ(c.at("/view/total"), 1203);
  EXPECT_EQ(c.Keys().size(), 500u);
  c.Do(R"({"do":"scroll","offset":1000})");
  EXPECT_EQ(c.at("/view/offset"), 1000);
  EXPECT_EQ(c.Keys().size(), 203u);
  EXPECT_EQ(c.Keys().front(), "MAILBOX-m1000");
  c.Do(R"({"do":"scroll","offset":9999})");
  EXPECT_EQ(c.at("/view/offset"), 1202);
  c.Refused(R"({"do":"scroll","offset":-1})");
  SelectRows(c, R"("MAILBOX-m3")");  // a row outside the window
  EXPECT_EQ(c.Verbs(), "properties,refresh");
}

TEST_F(Console, AMailboxIsFoundByAPartOfItsName) {
  world.Import("LOCALHOST", R"({"postoffices": [{"Name": "po"}], "mailboxes": [{"Postoffice": "po", "Mailbox": "joe"},
      {"Postoffice": "po", "Mailbox": "Joanna"}, {"Postoffice": "po", "Mailbox": "sue"}]})");
  ConsoleDriver c(world.servers());
  c.Do(R"({"do":"expand","node":"server:LOCALHOST"})");
  c.Do(R"({"do":"expand","node":"server:LOCALHOST/postoffices"})");
  c.Do(R"({"do":"select","node":"server:LOCALHOST/postoffice:po"})");
  EXPECT_EQ(c.at("/view/filter"), "");
  SelectRows(c, R"("MAILBOX-joe","MAILBOX-sue")");
  c.Do(R"({"do":"filter","text":"JO"})");
  EXPECT_EQ(c.Keys(), (Texts{"MAILBOX-joe", "MAILBOX-Joanna"}));
  EXPECT_EQ(c.at("/view/total"), 2);
  EXPECT_EQ(c.at("/view/filter"), "JO");
  EXPECT_EQ(c.Verbs(), "properties,refresh");  // of the two selected rows one is left
  c.Do(R"({"do":"verb","name":"refresh"})");
  EXPECT_EQ(c.Keys().size(), 2u);
  c.Do(R"({"do":"filter","text":"zzz"})");
  EXPECT_EQ(c.Keys().size(), 0u);
  c.Refused(R"({"do":"selectItems","keys":["MAILBOX-joe"]})");
  c.Do(R"({"do":"filter","text":""})");
  EXPECT_EQ(c.Keys().size(), 3u);
  c.Do(R"({"do":"select","node":"server:LOCALHOST/filters"})");
  EXPECT_FALSE(c.state().at("view").as_object().contains("filter"));
  c.Refused(R"({"do":"filter","text":"a"})");
}

TEST_F(Console, AnErrorOfTheStoreIsToldAndTheRunGoesOn) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  SelectRows(c, R"("FILTER-FLT1")");
  c.Do(R"({"do":"menu","on":"items"})");
  {
    const test::HeldDatabase held(world.DatabaseOf("LOCALHOST"));
    c.Do(R"({"do":"choose","name":"mnuFilterDisable"})");
  }
  const std::string message = c.Message();
  EXPECT_NE(message.find("quillvane.db"), std::string::npos) << message;
  EXPECT_NE(message.find("|Quillvane Filtering Administration|critical"), std::string::npos) << message;
  EXPECT_EQ(c.at("/message/buttons"), (boost::json::array{"ok"}));
  c.Do(R"({"do":"answer","button":"ok"})");
  EXPECT_EQ(ReloadsOn("LOCALHOST"), 0);
  c.Do(R"({"do":"menu","on":"items"})");
  c.Do(R"({"do":"choose","name":"mnuFilterDisable"})");
  EXPECT_EQ(c.Cells().front(), "Zulu|Disabled");
}

TEST_F(Console, AListThatCantBeReadIsTold) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  const std::filesystem::path database = world.DatabaseOf("LOCALHOST"), away = database.string() + ".away";
  const std::string missing = "The database '" + database.string() + "' is missing.|Quillvane Filtering Administration";
  std::filesystem::rename(database, away);
  c.Do(R"({"do":"verb","name":"refresh"})");
  EXPECT_EQ(c.Message(), "Error displaying filter list:" + missing + "|none");
  c.Refused(R"({"do":"verb","name":"refresh"})");
  c.Do(R"({"do":"answer","button":"ok"})");
  c.Do(R"({"do":"select","node":"server:LOCALHOST/postoffices"})");
  EXPECT_EQ(c.Message(), missing + "|critical");
  c.Do(R"({"do":"answer","button":"ok"})");
  c.Do(R"({"do":"expand","node":"server:LOCALHOST/postoffices"})");
  EXPECT_EQ(c.Message(), missing + "|critical");
  c.Do(R"({"do":"answer","button":"ok"})");
  std::filesystem::rename(away, database);
  c.Do(R"({"do":"select","node":"server:LOCALHOST/filters"})");
  EXPECT_EQ(c.Cells().size(), 3u);
}

TEST_F(Console, ADeleteThatTheStoreCantCarryOutIsTold) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  SelectRows(c, R"("FILTER-FLT1")");
  c.Do(R"({"do":"verb","name":"delete"})");
  const std::filesystem::path database = world.DatabaseOf("LOCALHOST"), away = database.string() + ".away";
  std::filesystem::rename(database, away);
  c.Do(R"({"do":"answer","button":"yes"})");
  EXPECT_EQ(c.Message(), "Error deleting item:The database '" + database.string() +
                             "' is missing.|Quillvane Filtering Administration|none");
  c.Do(R"({"do":"answer","button":"ok"})");
  std::filesystem::rename(away, database);
  EXPECT_EQ(c.Cells().size(), 3u);
  EXPECT_EQ(ReloadsOn("LOCALHOST"), 0);
}

TEST_F(Console, EveryEventIsAnsweredWithItsId) {
  ConsoleDriver c(world.servers());
  auto answer = c.Send(R"({"do":"expand","node":"server:LOCALHOST","id":7})");
  EXPECT_EQ(answer.at("id"), 7);
  EXPECT_TRUE(answer.contains("state"));
  answer = c.Send(R"({"do":"expand","node":"nowhere","id":"x"})");
  EXPECT_EQ(answer.at("id"), "x");
  EXPECT_TRUE(answer.contains("error"));
  EXPECT_FALSE(c.Send(R"({"do":"collapse","node":"servers"})").contains("id"));
}

TEST_F(Console, ALineThatIsNoEventIsAnError) {
  ConsoleDriver c(world.servers());
  for (const char* line :
       {"", "no json", "[]", "7", "{", R"({"do":7})", R"({})", R"({"do":"fly"})", R"({"do":"expand"})",
        R"({"do":"expand","node":7})", R"({"do":"close"})", R"({"do":"sheet","button":"ok"})",
        R"({"do":"page","index":0})", R"({"do":"click","control":"cmdOK"})", R"({"do":"menu","on":"node"})",
        R"({"do":"sort","column":0})", R"({"do":"answer","button":"ok"})", "{\"do\":\"expand\",\"node\":\"\xff\"}"}) {
    EXPECT_NE(c.Refused(line), "") << line;
  }
  c.OpenFilters();
  EXPECT_EQ(c.Cells().size(), 3u);
}

TEST_F(Console, APersonWhoGoesAwayEndsTheRunAlsoInsideABox) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  SelectRows(c, R"("FILTER-FLT1")");
  c.Do(R"({"do":"verb","name":"delete"})");
  c.Leave();
  EXPECT_EQ(world.Section("LOCALHOST", "filters").size(), 4u);
}

}  // namespace
}  // namespace qv
