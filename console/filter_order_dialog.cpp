#include "console/filter_order_dialog.h"

namespace qv {

frmFilters::frmFilters(Run& run)
    : Form(run.toolkit, "frmFilters", "Order Filters"), order_(run, {lvwFilters, cmdUp, cmdDown}) {
  // An empty list has both buttons disabled by this too.
  lvwFilters.Click = [this] { order_.UpdateMoveButtons(); };
  cmdCancel.Click = [this] { Unload(); };
}

Layout frmFilters::Arrange() const {
  using namespace layout;
  return Column({Grow(Side(Grow(Item(lvwFilters, 12)), {&cmdUp, &cmdDown})), Buttons({&cmdCancel})});
}

void frmFilters::Form_Load() {
  order_.LoadFilterList();
  lvwFilters.Click();
}

}  // namespace qv
