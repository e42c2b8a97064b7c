#include "criteria/criterion_catalogue.h"

#include <set>

#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

struct GoldenRow {
  const char *rule, *description, *dialog;
  Offered offered;
};

const std::vector<GoldenRow>& Golden() {
  static const std::vector<GoldenRow> rows = {
      {"1", "Where the Subject header line contains specific words", "frmCriteriaWordList", Offered::All},
      {"2", "Where the message body contains specific words", "frmCriteriaWordList", Offered::All},
      {"3", "Where the To header line contains specific words", "frmCriteriaWordList", Offered::All},
      {"4", "Where the CC header line contains specific words", "frmCriteriaWordList", Offered::All},
      {"5", "Where the To or CC header line contains specific words", "frmCriteriaWordList", Offered::All},
      {"6", "Where the message is marked as priority", "", Offered::All},
      {"7", "Where the From header line contains specific words", "frmCriteriaWordList", Offered::All},
      {"8", "Where the message size is more than limit", "frmCriteriaSizeLimit", Offered::All},
      {"9", "Where the message has attachments", "frmCriteriaAttachment", Offered::All},
      {"10", "Where the message has an attachment", "frmCriteriaItem", Offered::All},
      {"11", "Where the message is secure", "frmCriteriaItem", Offered::Never},
      {"12", "Where a message header contains specific words", "frmCriteriaWordList", Offered::All},
      {"13", "Where the message has over a certain spam probability", "frmCriteriaSpamProbability", Offered::System},
      {"14", "Where the SPF tests return results matching", "frmCriteriaSPFMatch", Offered::All},
      {"15", "Where the message contains a virus", "frmCriteriaContainsVirus", Offered::System},
      {"16", "All Messages - Process this filter actions for all messages", "frmCriteriaAllMessages", Offered::All},
      {"17", "Where the sender has authenticated", "frmCriteriaSenderAuthenticated", Offered::All},
      {"18", "Where the originators IP address matches", "frmCriteriaIPMatch", Offered::All},
      {"19", "Where the message is associated with this postoffice", "frmCriteriaForPostoffice", Offered::All},
      {"20", "Where the message is associated with this connector", "frmCriteriaFromConnector", Offered::All},
      {"21", "Where the message contains a URL to a blacklisted IP address", "frmCriteriaItem", Offered::System},
      {"22", "Where the MIME boundary headers contain specific words", "frmCriteriaWordList", Offered::System},
      {"23", "Where the sender IP address is whitelisted", "frmCriteriaItem", Offered::System},
      {"24", "Where the message DomainKey verification return results matching", "frmCriteriaDKIMMatch",
       Offered::System},
  };
  return rows;
}

struct Catalogue : CriteriaTest {};

TEST_F(Catalogue, HasThe24RowsInOrder) {
  const auto& rows = CriterionCatalogue();
  ASSERT_EQ(rows.size(), 24u);
  for (std::size_t n = 0; n < rows.size(); ++n) {
    const GoldenRow& golden = Golden()[n];
    EXPECT_STREQ(rows[n].RuleID, golden.rule);
    EXPECT_STREQ(rows[n].Description, golden.description);
    EXPECT_EQ(rows[n].offered, golden.offered) << golden.rule;
  }
}

TEST_F(Catalogue, OpensTheDialogOfEachRow) {
  for (const GoldenRow& golden : Golden()) {
    const CriterionDialog* dialog = DialogForRule(run, golden.rule);
    EXPECT_EQ(dialog ? dialog->name() : "", golden.dialog) << golden.rule;
  }
}

TEST_F(Catalogue, SharesOneInstanceOfADialog) {
  EXPECT_EQ(DialogForRule(run, "1"), DialogForRule(run, "22"));
  EXPECT_EQ(DialogForRule(run, "10"), DialogForRule(run, "11"));
  EXPECT_NE(DialogForRule(run, "15"), DialogForRule(run, "16"));
}

TEST_F(Catalogue, ComparesTheRuleAsText) {
  EXPECT_STREQ(FindCriterion("24")->RuleID, "24");
  for (const char* rule : {"", "0", "01", "1 ", " 1", "25", "30", "-1", "x"}) {
    EXPECT_EQ(FindCriterion(rule), nullptr) << rule;
    EXPECT_EQ(DialogForRule(run, rule), nullptr) << rule;
  }
}

}  // namespace
}  // namespace qv::test
