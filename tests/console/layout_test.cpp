// The layouts of the console's and the editor's forms.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/filter_item_dialog.h"
#include "console/filter_order_dialog.h"
#include "console/filter_pages.h"
#include "editor/manage_dialog.h"
#include "tests/support/test_run.h"

namespace qv {
namespace {

void Collect(const Layout& layout, std::vector<std::string>& names) {
  for (const Control* control : {layout.label, layout.control}) {
    if (control) names.push_back(control->name());
  }
  for (const Layout& item : layout.items) Collect(item, names);
  for (const Control* control : layout.controls) names.push_back(control->name());
}

void ExpectEveryControlOnce(const Form& form) {
  std::vector<std::string> placed, declared;
  Collect(form.Arrange(), placed);
  for (const Control* control : form.controls()) declared.push_back(control->name());
  EXPECT_THAT(placed, testing::UnorderedElementsAreArray(declared)) << form.name();
}

TEST(Layout, PlacesEveryControlOnce) {
  test::TestRun run;
  ExpectEveryControlOnce(run.run.The<frmFilterItem>());
  ExpectEveryControlOnce(run.run.The<frmFilters>());
  ExpectEveryControlOnce(run.run.The<frmManage>());
  ExpectEveryControlOnce(ppgMailboxFilters(run.run));
  ExpectEveryControlOnce(ppgPostofficeFilters(run.run));
}

}  // namespace
}  // namespace qv
