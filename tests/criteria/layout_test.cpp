#include <algorithm>

#include "criteria/criterion_catalogue.h"
#include "criteria/field_dialogs.h"
#include "criteria/importance_dialog.h"
#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

void Collect(const Layout& layout, std::vector<const Control*>& into) {
  if (layout.control) into.push_back(layout.control);
  if (layout.label) into.push_back(layout.label);
  into.insert(into.end(), layout.controls.begin(), layout.controls.end());
  for (const Layout& item : layout.items) Collect(item, into);
}

void ExpectEveryControlOnce(const Form& form) {
  std::vector<const Control*> laid_out;
  Collect(form.Arrange(), laid_out);
  for (const Control* control : form.controls()) {
    EXPECT_EQ(std::count(laid_out.begin(), laid_out.end(), control), 1) << form.name() << " " << control->name();
  }
  EXPECT_EQ(laid_out.size(), form.controls().size()) << form.name();
  EXPECT_EQ(form.Arrange().items.back().kind, Layout::Kind::Buttons) << form.name();
}

struct CriteriaLayout : CriteriaTest {};

TEST_F(CriteriaLayout, HasEveryControlOfEveryDialog) {
  for (const CriterionRow& row : CriterionCatalogue()) {
    if (const CriterionDialog* dialog = DialogForRule(run, row.RuleID)) ExpectEveryControlOnce(*dialog);
  }
  ExpectEveryControlOnce(run.The<frmCriteriaHeader>());
  ExpectEveryControlOnce(run.The<frmCriteriaImportance>());
}

}  // namespace
}  // namespace qv::test
