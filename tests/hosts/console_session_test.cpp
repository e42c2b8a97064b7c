#include "tests/hosts/console_session_fixture.h"

namespace qv::test {
namespace {

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

TEST_F(Console, ARefusedEventChangesNothing) {
  ConsoleDriver c(world.servers());
  c.OpenFilters();
  SelectRows(c, R"("FILTER-FLT1")");
  c.Do(R"({"do":"menu","on":"items"})");
  c.Refused(R"({"do":"selectItems","keys":["FILTER-FLT9"]})");
  c.Do(R"({"do":"choose","name":"mnuFilterDisable"})");  // the menu is still open
  EXPECT_EQ(c.Cells().front(), "Zulu|Disabled");
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
}  // namespace qv::test
