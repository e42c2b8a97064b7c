#include "tests/hosts/console_session_fixture.h"

namespace qv::test {
namespace {

struct ConsolePanes : Console {};

TEST_F(ConsolePanes, TheFilterListIsInStoreOrderWithoutTheSpamFilter) {
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

TEST_F(ConsolePanes, SortingTheFilterListLeavesItsOrder) {
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

TEST_F(ConsolePanes, VerbsFollowTheSelection) {
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

TEST_F(ConsolePanes, MenusFollowTheSelection) {
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

TEST_F(ConsolePanes, AnItemIsChosenFromAnOpenMenuOnly) {
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

TEST_F(ConsolePanes, ARebuiltPaneKeepsItsSortAndSelection) {
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

TEST_F(ConsolePanes, DeleteActsOnTheFirstSelectedRowInListOrder) {
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

TEST_F(ConsolePanes, DeletingWithNoLeavesEverything) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  SelectRows(c, R"("FILTER-FLT2")");
  c.Do(R"({"do":"verb","name":"delete"})");
  c.Do(R"({"do":"answer","button":"no"})");
  EXPECT_EQ(c.Keys().size(), 3u);
  EXPECT_EQ(ReloadsOn("LOCALHOST"), 0);
  c.Refused(R"({"do":"answer","button":"no"})");
}

TEST_F(ConsolePanes, APostofficeListsItsMailboxes) {
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

TEST_F(ConsolePanes, TheNodesBelowOpenFromTheirRows) {
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

TEST_F(ConsolePanes, AWindowOfRowsIsShown) {
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

TEST_F(ConsolePanes, AMailboxIsFoundByAPartOfItsName) {
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

}  // namespace
}  // namespace qv::test
