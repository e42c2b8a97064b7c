#include "criteria/flag_dialogs.h"

#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

struct FlagDialogs : CriteriaTest {
  // Brings the row's status into a state and saves it.
  int Save(const std::string& rule, bool on) {
    return Open(rule, [on](Form& form) {
      if (Ticked(form) != on) Person(form).Click("chkStatus");
      Person(form).Click("cmdOK");
    });
  }
};

TEST_F(FlagDialogs, TheseStoreTheFlagTwice) {
  for (const char* rule : {"10", "11", "17", "21", "23"}) {
    Put(rule);
    EXPECT_EQ(Save(rule, true), 1) << rule;
    EXPECT_EQ(Row(rule).Values, "1") << rule;
    EXPECT_EQ(Row(rule).Status, 1) << rule;
    EXPECT_EQ(Save(rule, false), 2) << rule;
    EXPECT_EQ(Row(rule).Values, "0") << rule;
    EXPECT_EQ(Row(rule).Status, 0) << rule;
  }
}

TEST_F(FlagDialogs, TheseStoreTheStatusOnly) {
  for (const char* rule : {"15", "16"}) {
    Put(rule);
    EXPECT_EQ(Save(rule, true), 1) << rule;
    EXPECT_EQ(Row(rule).Values, "") << rule;
    EXPECT_EQ(Row(rule).Status, 1) << rule;
    Put(rule, 1, "odd");
    EXPECT_EQ(Save(rule, false), 2) << rule;
    EXPECT_EQ(Row(rule).Values, "odd") << rule;
    EXPECT_EQ(Row(rule).Status, 0) << rule;
  }
}

TEST_F(FlagDialogs, TheStatusAloneDecidesWhatIsShown) {
  Put("10", 0, "1");
  Open("10", [](Form& form) {
    EXPECT_FALSE(Ticked(form));
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(Row("10").Values, "0");
}

TEST_F(FlagDialogs, TheRowsOfOneDialogAreToldApartByTheirDescription) {
  Put("21").Description = "One";
  Put("23").Description = "Another";
  Open("21", [](Form& form) {
    EXPECT_EQ(form.Caption(), "Criteria Properties - One");
    Person(form).Click("cmdOK");
  });
  Open("23", [](Form& form) {
    EXPECT_EQ(form.Caption(), "Criteria Properties - Another");
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(Row("21").Description, "One");
  EXPECT_EQ(Row("23").Description, "Another");
}

TEST_F(FlagDialogs, HaveNothingButTheStatus) {
  for (const char* rule : {"10", "15", "16", "17"}) EXPECT_EQ(DialogForRule(run, rule)->controls().size(), 5u) << rule;
}

}  // namespace
}  // namespace qv::test
