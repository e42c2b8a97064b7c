#include <gmock/gmock.h>

#include "platform/runtime_error.h"
#include "tests/store/store_fixture.h"

namespace qv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FiltersTest : public StoreTest {
 protected:
  std::unique_ptr<Filter> New(const std::string& postoffice = "", const std::string& mailbox = "",
                              const std::string& host = "") {
    auto filter = Bound(components->CreateFilter(), host);
    filter->Postoffice = postoffice;
    filter->Mailbox = mailbox;
    return filter;
  }

  int Add(const std::string& id, const std::string& postoffice = "", const std::string& mailbox = "",
          const std::string& host = "") {
    auto filter = New(postoffice, mailbox, host);
    filter->FilterEntryID = id;
    filter->Description = "Name of " + id;
    filter->Status = 1;
    return filter->AddFilter();
  }

  std::vector<std::string> List(const std::string& postoffice = "", const std::string& mailbox = "",
                                const std::string& host = "") {
    std::vector<std::string> ids;
    auto filter = New(postoffice, mailbox, host);
    for (int found = filter->FindFirstFilter(); found == 1; found = filter->FindNextFilter()) {
      ids.push_back(filter->FilterEntryID);
      filter->FilterEntryID = filter->CriteriaID = filter->ActionID = filter->Description = filter->Note = "";
      filter->Status = -1;
    }
    return ids;
  }

  int Move(const std::string& id, int order) {
    auto filter = New();
    filter->FilterEntryID = id;
    return filter->EditFilter(id, 1, "Name of " + id, "", "", "", order);
  }
};

TEST_F(FiltersTest, AScopeWithoutFiltersFindsNothingAndLeavesTheFields) {
  auto filter = New();
  filter->Description = "";
  filter->Status = -1;
  EXPECT_EQ(filter->FindFirstFilter(), 0);
  EXPECT_EQ(filter->FindNextFilter(), 0);
  EXPECT_EQ(filter->FilterEntryID, "");
  EXPECT_EQ(filter->Status, -1);
  EXPECT_EQ(filter->Order, -1);
}

TEST_F(FiltersTest, FindNextWithoutFindFirstFindsNothing) {
  Add("FLT1");
  EXPECT_EQ(New()->FindNextFilter(), 0);
}

TEST_F(FiltersTest, AddedFiltersStandAtTheEndOfTheirScope) {
  EXPECT_EQ(Add("FLT3"), 1);
  EXPECT_EQ(Add("FLT1"), 1);
  EXPECT_EQ(Add("{SPAM_FILTER}"), 1);
  EXPECT_EQ(Add("FLT2"), 1);
  EXPECT_THAT(List(), ElementsAre("FLT3", "FLT1", "{SPAM_FILTER}", "FLT2"));
  EXPECT_THAT(List(), ElementsAre("FLT3", "FLT1", "{SPAM_FILTER}", "FLT2"));
}

TEST_F(FiltersTest, EveryFieldIsKept) {
  auto filter = New("abc", "joe");
  filter->FilterEntryID = "FLTA1";
  filter->CriteriaID = "CRTA1";
  filter->ActionID = "odd \"action\" 'id'";
  filter->Description =
      "Gr\xC3\xBC\xC3\x9F"
      "e\r\nzweite";
  filter->Note = std::string("a\0b", 3);
  filter->Status = 7;
  ASSERT_EQ(filter->AddFilter(), 1);

  auto read = New("abc", "joe");
  read->FilterEntryID = "FLTA1";
  ASSERT_EQ(read->getfilter(), 1);
  EXPECT_EQ(read->CriteriaID, "CRTA1");
  EXPECT_EQ(read->ActionID, "odd \"action\" 'id'");
  EXPECT_EQ(read->Description,
            "Gr\xC3\xBC\xC3\x9F"
            "e\r\nzweite");
  EXPECT_EQ(read->Note, std::string("a\0b", 3));
  EXPECT_EQ(read->Status, 7);
  EXPECT_EQ(read->Order, 1);
  EXPECT_EQ(read->Postoffice, "abc");
  EXPECT_EQ(read->Mailbox, "joe");
}

TEST_F(FiltersTest, ScopesDoNotShowEachOthersFilters) {
  Add("FLT1");
  Add("FLT2", "abc");
  Add("FLT3", "abc", "joe");
  Add("FLT4", "ABC");
  EXPECT_THAT(List(), ElementsAre("FLT1"));
  EXPECT_THAT(List("abc"), ElementsAre("FLT2"));
  EXPECT_THAT(List("abc", "joe"), ElementsAre("FLT3"));
  EXPECT_THAT(List("ABC"), ElementsAre("FLT4"));
  EXPECT_THAT(List("", "joe"), IsEmpty());
}

TEST_F(FiltersTest, AnIdIsTakenInItsScopeOnly) {
  EXPECT_EQ(Add("FLT1"), 1);
  EXPECT_EQ(Add("FLT1"), 0);
  EXPECT_EQ(Add("FLT1", "abc"), 1);
  EXPECT_THAT(List(), ElementsAre("FLT1"));
}

TEST_F(FiltersTest, AnIdOfAnotherScopeIsNotFoundAndTheFieldsStay) {
  Add("FLT1", "abc");
  auto filter = New();
  filter->FilterEntryID = "FLT1";
  EXPECT_EQ(filter->getfilter(), 0);
  EXPECT_EQ(filter->Status, -1);
  EXPECT_EQ(filter->Description, "");
  EXPECT_EQ(filter->FilterEntryID, "FLT1");
}

TEST_F(FiltersTest, AKeyMatchesExactly) {
  Add("FLTa");
  auto filter = New();
  filter->FilterEntryID = "FLTA";
  EXPECT_EQ(filter->getfilter(), 0);
  filter->FilterEntryID = "";
  EXPECT_EQ(filter->getfilter(), 0) << "an empty key is no wildcard";
}

TEST_F(FiltersTest, AQueryFieldThatIsSetMustBeEqual) {
  Add("FLT1");
  Add("FLT2");
  auto edit = New();
  edit->FilterEntryID = "FLT2";
  ASSERT_EQ(edit->EditFilter("FLT2", 0, "Other", "", "", "", 0), 1);

  auto filter = New();
  filter->Status = 0;
  ASSERT_EQ(filter->FindFirstFilter(), 1);
  EXPECT_EQ(filter->FilterEntryID, "FLT2");
  EXPECT_EQ(filter->FindNextFilter(), 0);

  filter = New();
  filter->Description = "Name of FLT1";
  ASSERT_EQ(filter->FindFirstFilter(), 1);
  EXPECT_EQ(filter->FilterEntryID, "FLT1");
  EXPECT_EQ(filter->FindNextFilter(), 0);
}

TEST_F(FiltersTest, StatusMinusOneFindsEnabledAndDisabled) {
  Add("FLT1");
  Add("FLT2");
  auto edit = New();
  edit->FilterEntryID = "FLT2";
  edit->EditFilter("FLT2", 0, "", "", "", "", 0);
  EXPECT_THAT(List(), ElementsAre("FLT1", "FLT2"));
}

TEST_F(FiltersTest, AListingGoesOnWhateverTheFieldsHoldAndWhateverChanges) {
  Add("FLT1");
  Add("FLT2");
  Add("FLT3");
  auto filter = New();
  ASSERT_EQ(filter->FindFirstFilter(), 1);
  auto remove = New();
  remove->FilterEntryID = "FLT1";
  remove->RemoveFilter();
  Move("FLT3", 1);
  filter->Description = "nothing has this name";
  filter->Postoffice = "elsewhere";
  ASSERT_EQ(filter->FindNextFilter(), 1);
  EXPECT_EQ(filter->FilterEntryID, "FLT2");
  EXPECT_EQ(filter->Postoffice, "");
  ASSERT_EQ(filter->FindNextFilter(), 1);
  EXPECT_EQ(filter->FilterEntryID, "FLT3");
  EXPECT_EQ(filter->FindNextFilter(), 0);
  EXPECT_EQ(filter->FindNextFilter(), 0);
  EXPECT_THAT(List(), ElementsAre("FLT3", "FLT2"));
}

TEST_F(FiltersTest, AnotherFindFirstBeginsAnewInItsOwnScope) {
  Add("FLT1");
  Add("FLT2");
  Add("FLT3", "abc");
  auto filter = New();
  ASSERT_EQ(filter->FindFirstFilter(), 1);
  filter->FilterEntryID = filter->Description = "";
  filter->Status = -1;
  ASSERT_EQ(filter->FindFirstFilter(), 1);
  EXPECT_EQ(filter->FilterEntryID, "FLT1");
  filter->FilterEntryID = filter->Description = "";
  filter->Status = -1;
  filter->Postoffice = "abc";
  ASSERT_EQ(filter->FindFirstFilter(), 1);
  EXPECT_EQ(filter->FilterEntryID, "FLT3");
  EXPECT_EQ(filter->FindNextFilter(), 0);
}

TEST_F(FiltersTest, ChangesKeepToTheirScope) {
  for (const char* postoffice : {"", "abc"}) {
    Add("FLT1", postoffice);
    Add("FLT2", postoffice);
  }
  Add("FLT1", "abc", "joe");
  auto edit = New("abc");
  edit->FilterEntryID = "FLT2";
  EXPECT_EQ(edit->EditFilter("FLT2", 0, "Of abc", "", "", "", 1), 1);
  EXPECT_THAT(List("abc"), ElementsAre("FLT2", "FLT1"));
  EXPECT_THAT(List(), ElementsAre("FLT1", "FLT2"));
  auto remove = New("abc");
  remove->FilterEntryID = "FLT1";
  EXPECT_EQ(remove->RemoveFilter(), 1);
  EXPECT_THAT(List("abc"), ElementsAre("FLT2"));
  EXPECT_THAT(List(), ElementsAre("FLT1", "FLT2"));
  EXPECT_THAT(List("abc", "joe"), ElementsAre("FLT1"));
  auto read = New();
  read->FilterEntryID = "FLT2";
  ASSERT_EQ(read->getfilter(), 1);
  EXPECT_EQ(read->Description, "Name of FLT2");
}

TEST_F(FiltersTest, TheReservedFilterTakesAPlaceThatCounts) {
  for (const char* id : {"A", "{SPAM_FILTER}", "B"}) Add(id);
  EXPECT_EQ(Move("B", 2), 1);
  EXPECT_THAT(List(), ElementsAre("A", "B", "{SPAM_FILTER}"));
}

TEST_F(FiltersTest, EditReplacesTheFieldsAndKeepsThePlace) {
  Add("FLT1");
  Add("FLT2");
  auto edit = New();
  edit->FilterEntryID = "FLT1";
  ASSERT_EQ(edit->EditFilter("FLT1", 0, "New name", "ACT", "A note", "CRT1", 0), 1);
  auto read = New();
  ASSERT_EQ(read->FindFirstFilter(), 1);
  EXPECT_EQ(read->FilterEntryID, "FLT1");
  EXPECT_EQ(read->Status, 0);
  EXPECT_EQ(read->Description, "New name");
  EXPECT_EQ(read->ActionID, "ACT");
  EXPECT_EQ(read->Note, "A note");
  EXPECT_EQ(read->CriteriaID, "CRT1");
}

TEST_F(FiltersTest, EditOfNoFilterIsNoSuccess) {
  Add("FLT1", "abc");
  auto edit = New();
  edit->FilterEntryID = "FLT1";
  EXPECT_EQ(edit->EditFilter("FLT1", 0, "", "", "", "", 1), 0);
}

TEST_F(FiltersTest, EditTakesAnotherIdUnlessItIsTaken) {
  Add("FLT1");
  Add("FLT2");
  auto edit = New();
  edit->FilterEntryID = "FLT1";
  EXPECT_EQ(edit->EditFilter("FLT2", 0, "", "", "", "", 0), 0);
  EXPECT_THAT(List(), ElementsAre("FLT1", "FLT2"));
  EXPECT_EQ(edit->EditFilter("FLT9", 1, "", "", "", "", 2), 1);
  EXPECT_THAT(List(), ElementsAre("FLT2", "FLT9"));
}

TEST_F(FiltersTest, OrderMovesToThatPlaceAndTheOthersGiveWay) {
  for (const char* id : {"A", "B", "C", "D", "E"}) Add(id);
  EXPECT_EQ(Move("B", 3), 1);
  EXPECT_THAT(List(), ElementsAre("A", "C", "B", "D", "E"));
  EXPECT_EQ(Move("B", 2), 1);
  EXPECT_THAT(List(), ElementsAre("A", "B", "C", "D", "E"));
  EXPECT_EQ(Move("E", 1), 1);
  EXPECT_THAT(List(), ElementsAre("E", "A", "B", "C", "D"));
  EXPECT_EQ(Move("E", 4), 1);
  EXPECT_THAT(List(), ElementsAre("A", "B", "C", "E", "D"));
  EXPECT_EQ(Move("A", 99), 1);
  EXPECT_THAT(List(), ElementsAre("B", "C", "E", "D", "A"));
  EXPECT_EQ(Move("A", 5), 1);
  EXPECT_THAT(List(), ElementsAre("B", "C", "E", "D", "A"));
  EXPECT_EQ(Move("D", 0), 1);
  EXPECT_THAT(List(), ElementsAre("B", "C", "E", "D", "A"));
}

TEST_F(FiltersTest, PositionsCloseUpAfterARemovalAndAreThoseOfTheScope) {
  Add("X", "abc");
  for (const char* id : {"A", "B", "C", "D"}) Add(id);
  auto remove = New();
  remove->FilterEntryID = "B";
  EXPECT_EQ(remove->RemoveFilter(), 1);
  EXPECT_EQ(Move("D", 2), 1);
  EXPECT_THAT(List(), ElementsAre("A", "D", "C"));
  auto read = New();
  read->FilterEntryID = "C";
  ASSERT_EQ(read->getfilter(), 1);
  EXPECT_EQ(read->Order, 3);
  EXPECT_THAT(List("abc"), ElementsAre("X"));
}

TEST_F(FiltersTest, ARemovalTakesTheFilterAlone) {
  Add("FLT1");
  auto criteria = Bound(components->CreateCriteria());
  criteria->CriteriaID = "CRT1";
  criteria->RuleID = "1";
  criteria->AddCriteria();
  auto remove = New();
  remove->FilterEntryID = "FLT1";
  EXPECT_EQ(remove->RemoveFilter(), 1);
  EXPECT_EQ(remove->RemoveFilter(), 0);
  EXPECT_THAT(List(), IsEmpty());
  EXPECT_EQ(criteria->GetCriteria(), 1);
}

TEST_F(FiltersTest, TwoObjectsMayWorkOnOneFilter) {
  Add("FLT1");
  auto first = New(), second = New();
  first->FilterEntryID = second->FilterEntryID = "FLT1";
  ASSERT_EQ(first->getfilter(), 1);
  EXPECT_EQ(second->EditFilter("FLT1", 0, first->Description, "", "", "", 0), 1);
  first = New();
  first->FilterEntryID = "FLT1";
  ASSERT_EQ(first->getfilter(), 1);
  EXPECT_EQ(first->Status, 0);
}

TEST_F(FiltersTest, EachServerHasItsOwn) {
  Add("FLT1");
  Add("FLT2", "", "", "REMOTE");
  EXPECT_THAT(List("", "", "LocalHost"), ElementsAre("FLT1"));
  EXPECT_THAT(List("", "", "remote"), ElementsAre("FLT2"));
}

TEST_F(FiltersTest, AnUnknownServerIsAnError) {
  auto filter = components->CreateFilter();
  filter->Host = "nowhere";
  try {
    filter->SetHost();
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.description(), "The server 'nowhere' is not known.");
    EXPECT_EQ(error.number(), 440);
  }
}

TEST_F(FiltersTest, AnObjectThatIsNotBoundIsAnError) {
  EXPECT_THROW(components->CreateFilter()->FindFirstFilter(), RuntimeError);
  EXPECT_THROW(components->CreateCriteria()->GetCriteria(), RuntimeError);
  EXPECT_THROW(components->CreateTask()->AddTask(), RuntimeError);
  EXPECT_THROW(components->CreatePostoffice()->FindFirstPostoffice(), RuntimeError);
}

}  // namespace
}  // namespace qv
