#include "store/postoffices.h"

#include <gmock/gmock.h>

#include "store/exchange.h"
#include "tests/store/store_fixture.h"

namespace qv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PostofficesTest : public StoreTest {
 protected:
  void Import(const std::string& json) { StoreDataSet(servers.Of(""), ReadDataSet(json)); }
};

TEST_F(PostofficesTest, TheFindersGiveTheOrderOfAdding) {
  Import(R"({"postoffices": [{"Name": "zeta", "Status": 1}, {"Name": "alpha", "Account": "acc", "Status": 0},
             {"Name": "beta", "Status": 1}]})");
  auto postoffice = Bound(components->CreatePostoffice());
  std::vector<std::string> names;
  for (int found = postoffice->FindFirstPostoffice(); found == 1; found = postoffice->FindNextPostoffice()) {
    names.push_back(postoffice->Name + ":" + postoffice->Account + ":" + std::to_string(postoffice->Status));
    postoffice->Name = postoffice->Account = "";
    postoffice->Status = -1;
  }
  EXPECT_THAT(names, ElementsAre("zeta::1", "alpha:acc:0", "beta::1"));
  EXPECT_THAT(servers.PostofficeNames("localhost"), ElementsAre("zeta", "alpha", "beta"));
  EXPECT_THAT(servers.PostofficeNames("Remote"), IsEmpty());
}

TEST_F(PostofficesTest, QueryFieldsThatAreSetMustBeEqual) {
  Import(R"({"postoffices": [{"Name": "a", "Account": "x"}, {"Name": "b", "Account": "y", "Status": 1}]})");
  auto postoffice = Bound(components->CreatePostoffice());
  postoffice->Account = "y";
  ASSERT_EQ(postoffice->FindFirstPostoffice(), 1);
  EXPECT_EQ(postoffice->Name, "b");
  EXPECT_EQ(postoffice->FindNextPostoffice(), 0);
  postoffice = Bound(components->CreatePostoffice());
  postoffice->Name = "A";
  EXPECT_EQ(postoffice->FindFirstPostoffice(), 0);
}

TEST_F(PostofficesTest, MailboxesInTheOrderOfAdding) {
  Import(R"({"mailboxes": [{"Postoffice": "b", "Mailbox": "z"}, {"Postoffice": "a", "Mailbox": "y"},
             {"Postoffice": "b", "Mailbox": "c"}]})");
  EXPECT_THAT(MailboxNamesOf(servers.Of(""), "b"), ElementsAre("z", "c"));
  EXPECT_THAT(MailboxNamesOf(servers.Of(""), "a"), ElementsAre("y"));
  EXPECT_THAT(MailboxNamesOf(servers.Of(""), "c"), IsEmpty());
}

TEST_F(PostofficesTest, RemovalTakesWhatStandsInItsScopesAndNothingElse) {
  Import(R"({"postoffices": [{"Name": "abc"}, {"Name": "xyz"}],
    "mailboxes": [{"Postoffice": "abc", "Mailbox": "joe"}, {"Postoffice": "abc", "Mailbox": "ann"},
                  {"Postoffice": "xyz", "Mailbox": "joe"}],
    "filters": [{"FilterEntryID": "S"}, {"FilterEntryID": "P", "Postoffice": "abc"},
                {"FilterEntryID": "M", "Postoffice": "abc", "Mailbox": "joe"},
                {"FilterEntryID": "X", "Postoffice": "xyz"}],
    "criteria": [{"CriteriaID": "S"}, {"CriteriaID": "M", "Postoffice": "abc", "Mailbox": "joe"}],
    "tasks": [{"ActionID": "S"}, {"ActionID": "P", "Postoffice": "abc"}],
    "options": [{"Scope": 0, "Query": "GLOBAL", "ValueName": "o"}, {"Scope": 1, "Query": "ABC", "ValueName": "o"},
                {"Scope": 2, "Query": "abc/joe", "ValueName": "o"}, {"Scope": 2, "Query": "abcd/joe", "ValueName": "o"},
                {"Scope": 1, "Query": "xyz", "ValueName": "o"}]})");
  Database& database = servers.Of("");
  EXPECT_EQ(ContentOf(database, "abc").mailboxes, 2);
  EXPECT_EQ(ContentOf(database, "abc").filters, 2);
  EXPECT_EQ(FiltersOf(database, "abc", "joe"), 1);

  EXPECT_TRUE(RemoveMailbox(database, "abc", "joe"));
  EXPECT_FALSE(RemoveMailbox(database, "abc", "joe"));
  EXPECT_EQ(ContentOf(database, "abc").filters, 1);
  EXPECT_EQ(LoadDataSet(database).options->size(), 4u);

  EXPECT_TRUE(RemovePostoffice(database, "abc"));
  EXPECT_FALSE(RemovePostoffice(database, "abc"));
  EXPECT_FALSE(RemovePostoffice(database, ""));
  const DataSet left = LoadDataSet(database);
  ASSERT_EQ(left.filters->size(), 2u);
  EXPECT_EQ(left.filters->at(0).FilterEntryID, "S");
  EXPECT_EQ(left.filters->at(1).FilterEntryID, "X");
  ASSERT_EQ(left.criteria->size(), 1u);
  ASSERT_EQ(left.tasks->size(), 1u);
  ASSERT_EQ(left.mailboxes->size(), 1u);
  ASSERT_EQ(left.options->size(), 3u);
  EXPECT_EQ(left.options->at(1).Query, "abcd/joe");
  EXPECT_THAT(servers.PostofficeNames(""), ElementsAre("xyz"));
}

TEST_F(PostofficesTest, AddingTwiceIsRefused) {
  Database& database = servers.Of("");
  EXPECT_TRUE(AddPostoffice(database, "abc", "acc"));
  EXPECT_FALSE(AddPostoffice(database, "abc", "acc"));
  EXPECT_TRUE(AddMailbox(database, "abc", "joe"));
  EXPECT_FALSE(AddMailbox(database, "abc", "joe"));
  EXPECT_EQ(LoadDataSet(database).postoffices->at(0).Status, 1);
}

}  // namespace
}  // namespace qv
