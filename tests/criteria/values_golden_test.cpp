#include "criteria/criterion_catalogue.h"
#include "criteria/importance_dialog.h"
#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

// What a person does in the dialog of each row, and what the store holds then.
struct Deed {
  const char* rule;
  void (*act)(Person& person);
  const char* values;
  int frequency;
};

void AddWords(Person& person) {
  person.Click("optUseWordList");
  person.Set("txtWords", "free money, *win*");
  person.Click("CmdAdd");
}
void Nothing(Person&) {}

const std::vector<Deed>& Deeds() {
  static const std::vector<Deed> deeds = {
      {"1", AddWords, "free money,*win*", 0},
      {"2", AddWords, "free money,*win*", 0},
      {"3", AddWords, "free money,*win*", 0},
      {"4", AddWords, "free money,*win*", 0},
      {"5", [](Person& person) { person.Click("optUseExternal"); },
       "<REFERENCE><FILE>QVFILTER-words.TXT</FILE></REFERENCE>", 0},
      {"6", [](Person& person) { person.Pick("cboImportance", 2); }, "High", 0},
      {"7", AddWords, "free money,*win*", 0},
      {"8", [](Person& person) { person.Type("txtSize", "50000"); }, "50000", 0},
      {"9",
       [](Person& person) {
         person.Set("txtWords", "*.exe,*.com");
         person.Click("CmdAdd");
       },
       "*.exe,*.com", 0},
      {"10", Nothing, "1", -1},
      {"11", Nothing, "1", -1},
      {"12", AddWords, "free money,*win*", 0},
      {"13", [](Person& person) { person.Type("txtProb", "92.5"); }, "92.5", 0},
      {"14", [](Person& person) { person.Pick("cboSPF", 2); }, "softfail", -1},
      {"15", Nothing, "", 0},
      {"16", Nothing, "", 0},
      {"17", Nothing, "1", 0},
      {"18", [](Person& person) { person.Type("txtIP", "10.*.*.1"); }, "10.*.*.1", 0},
      {"19", [](Person& person) { person.Pick("lstPostoffices", 1); }, "sales", 0},
      {"20", [](Person& person) { person.Pick("cboConnector", 3); }, "SMTP", 0},
      {"21", Nothing, "1", -1},
      {"22", AddWords, "free money,*win*", 0},
      {"23", Nothing, "1", -1},
      {"24", [](Person& person) { person.Pick("cboDKIM", 2); }, "2", -1},
  };
  return deeds;
}

struct GoldenValues : CriteriaTest {};

TEST_F(GoldenValues, OfThe24Rows) {
  store.server().postoffices = {"abc", "sales"};
  files.Put("C:\\Config\\filters\\patterns\\QVFILTER-words.txt", "x");
  const auto& catalogue = CriterionCatalogue();
  ASSERT_EQ(Deeds().size(), catalogue.size());
  for (const CriterionRow& row : catalogue) Put(row.RuleID).Description = row.Description;

  for (const Deed& deed : Deeds()) {
    const Visit visit = [&](Form& form) {
      Person person(form);
      person.Click("chkStatus");
      deed.act(person);
      person.Click("cmdOK");
    };
    if (std::string(deed.rule) == "6") {
      desktop.Visit(visit);
      EXPECT_EQ(run.The<frmCriteriaImportance>().SetImportance("CRT1", "6", "", ""), 1);
    } else {
      EXPECT_EQ(Open(deed.rule, visit), 1) << deed.rule;
    }
    EXPECT_EQ(registry.TakeReloads(), 1) << deed.rule;
  }
  EXPECT_TRUE(desktop.messages.empty());

  ASSERT_EQ(store.server().criteria.size(), 24u);
  for (std::size_t n = 0; n < 24; ++n) {
    const CriteriaRow& row = store.server().criteria[n];
    const Deed& deed = Deeds()[n];
    EXPECT_EQ(row.RuleID, deed.rule);
    EXPECT_EQ(row.Values, deed.values) << deed.rule;
    EXPECT_EQ(row.Status, 1) << deed.rule;
    EXPECT_EQ(row.Frequency, deed.frequency) << deed.rule;
    EXPECT_EQ(row.CriteriaType, "") << deed.rule;
    EXPECT_EQ(row.Description, catalogue[n].Description) << deed.rule;
  }

  // Opened again and saved untouched, every row stays what it is.
  const std::vector<CriteriaRow> before = store.server().criteria;
  for (const Deed& deed : Deeds()) {
    const Visit visit = [](Form& form) { Person(form).Click("cmdOK"); };
    if (std::string(deed.rule) == "6") {
      desktop.Visit(visit);
      EXPECT_EQ(run.The<frmCriteriaImportance>().SetImportance("CRT1", "6", "", ""), 1);
    } else {
      EXPECT_EQ(Open(deed.rule, visit), 1) << deed.rule;
    }
  }
  for (std::size_t n = 0; n < 24; ++n) EXPECT_EQ(store.server().criteria[n].Values, before[n].Values) << n + 1;
}

}  // namespace
}  // namespace qv::test
