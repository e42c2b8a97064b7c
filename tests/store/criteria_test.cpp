#include <gmock/gmock.h>

#include "tests/store/store_fixture.h"

namespace qv {
namespace {

using testing::ElementsAre;

class CriteriaTest : public StoreTest {
 protected:
  std::unique_ptr<Criteria> New(const std::string& rule_id = "", const std::string& postoffice = "") {
    auto criteria = Bound(components->CreateCriteria());
    criteria->CriteriaID = "CRT1";
    criteria->RuleID = rule_id;
    criteria->Postoffice = postoffice;
    return criteria;
  }

  int Add(const std::string& rule_id, const std::string& postoffice = "") {
    auto criteria = New(rule_id, postoffice);
    criteria->Description = "Rule " + rule_id;
    criteria->Status = 0;
    criteria->Frequency = 1;
    return criteria->AddCriteria();
  }

  std::vector<std::string> List(const std::string& postoffice = "") {
    std::vector<std::string> rules;
    auto criteria = New("", postoffice);
    for (int found = criteria->FindFirstCriteria(); found == 1; found = criteria->FindNextCriteria()) {
      rules.push_back(criteria->RuleID);
    }
    return rules;
  }
};

TEST_F(CriteriaTest, RowsComeInTheOrderOfAddingAndNeedNoFilter) {
  for (const char* rule : {"2", "10", "1", "24"}) EXPECT_EQ(Add(rule), 1);
  EXPECT_THAT(List(), ElementsAre("2", "10", "1", "24"));
}

TEST_F(CriteriaTest, ADuplicateOfAScopeIsRefused) {
  EXPECT_EQ(Add("1"), 1);
  EXPECT_EQ(Add("1"), 0);
  EXPECT_EQ(Add("1", "abc"), 1);
  EXPECT_THAT(List(), ElementsAre("1"));
  EXPECT_THAT(List("abc"), ElementsAre("1"));
}

TEST_F(CriteriaTest, ACallKeepsToItsScopeAndItsFilter) {
  Add("1");
  Add("1", "abc");
  auto edit = New("1", "abc");
  EXPECT_EQ(edit->EditCriteria("1", 1, "", "", "Of abc", "words", 1), 1);
  auto read = New("1");
  ASSERT_EQ(read->GetCriteria(), 1);
  EXPECT_EQ(read->Status, 0);
  EXPECT_EQ(read->Values, "");
  auto of_mailbox = New("1", "abc");
  of_mailbox->Mailbox = "joe";
  EXPECT_EQ(of_mailbox->GetCriteria(), 0);
  EXPECT_EQ(of_mailbox->EditCriteria("1", 1, "", "", "", "", 1), 0);
  EXPECT_EQ(of_mailbox->FindFirstCriteria(), 0);
  auto of_another = New("1");
  of_another->CriteriaID = "CRT2";
  EXPECT_EQ(of_another->GetCriteria(), 0);
  EXPECT_EQ(of_another->FindFirstCriteria(), 0);
}

TEST_F(CriteriaTest, ARowThatIsFoundBringsItsScope) {
  Add("1", "abc");
  auto criteria = New("", "abc");
  ASSERT_EQ(criteria->FindFirstCriteria(), 1);
  EXPECT_EQ(criteria->Postoffice, "abc");
  EXPECT_EQ(criteria->Mailbox, "");
  EXPECT_EQ(criteria->FindNextCriteria(), 0);
  EXPECT_EQ(criteria->RuleID, "1");
}

TEST_F(CriteriaTest, GetReadsEveryFieldOrLeavesAll) {
  Add("7");
  auto criteria = New("7");
  ASSERT_EQ(criteria->GetCriteria(), 1);
  EXPECT_EQ(criteria->CriteriaID, "CRT1");
  EXPECT_EQ(criteria->CriteriaType, "");
  EXPECT_EQ(criteria->Description, "Rule 7");
  EXPECT_EQ(criteria->Status, 0);
  EXPECT_EQ(criteria->Values, "");
  EXPECT_EQ(criteria->Frequency, 1);

  criteria = New("8");
  EXPECT_EQ(criteria->GetCriteria(), 0);
  EXPECT_EQ(criteria->Status, -1);
  EXPECT_EQ(criteria->Frequency, -1);
  EXPECT_EQ(criteria->RuleID, "8");
}

TEST_F(CriteriaTest, EditReplacesTheFields) {
  Add("1");
  Add("2");
  auto edit = New("1");
  EXPECT_EQ(edit->EditCriteria("1", 1, "", "type", "Other", "a,,b", -1), 1);
  auto read = New("1");
  ASSERT_EQ(read->GetCriteria(), 1);
  EXPECT_EQ(read->Status, 1);
  EXPECT_EQ(read->CriteriaType, "type");
  EXPECT_EQ(read->Description, "Other");
  EXPECT_EQ(read->Values, "a,,b");
  EXPECT_EQ(read->Frequency, -1);
  EXPECT_THAT(List(), ElementsAre("1", "2"));
  EXPECT_EQ(New("3")->EditCriteria("3", 1, "", "", "", "", 0), 0);
}

TEST_F(CriteriaTest, EditTakesAnotherRuleUnlessItIsTaken) {
  Add("1");
  Add("2");
  EXPECT_EQ(New("1")->EditCriteria("2", 1, "", "", "", "", 0), 0);
  EXPECT_EQ(New("1")->EditCriteria("99", 1, "", "", "", "", 0), 1);
  EXPECT_THAT(List(), ElementsAre("99", "2"));
}

TEST_F(CriteriaTest, QueryFieldsThatAreSetMustBeEqual) {
  Add("1");
  Add("2");
  New("2")->EditCriteria("2", 1, "", "", "Rule 2", "words", 5);
  for (auto set : {+[](Criteria& c) { c.Status = 1; }, +[](Criteria& c) { c.Values = "words"; },
                   +[](Criteria& c) { c.Frequency = 5; }, +[](Criteria& c) { c.Description = "Rule 2"; },
                   +[](Criteria& c) { c.RuleID = "2"; }}) {
    auto criteria = New();
    set(*criteria);
    ASSERT_EQ(criteria->FindFirstCriteria(), 1);
    EXPECT_EQ(criteria->RuleID, "2");
    EXPECT_EQ(criteria->FindNextCriteria(), 0);
  }
  auto criteria = New("1");
  criteria->Status = 1;
  EXPECT_EQ(criteria->EditCriteria("1", 0, "", "", "", "", 0), 0) << "the template selects the row";
}

}  // namespace
}  // namespace qv
