#pragma once

#include "console/filter_order_list.h"
#include "platform/forms.h"
#include "services/run.h"

namespace qv {

// The dialog that orders the filters. It always works on the local machine's system filters: nothing tells it another
// scope or server.
class frmFilters : public Form {
 public:
  explicit frmFilters(Run& run);

  Layout Arrange() const override;
  Size size() const override { return Size::Medium; }

  RowList lvwFilters{*this, "lvwFilters", FilterOrderList::Columns()};
  Button cmdUp{*this, "cmdUp", Button::Picture::Up, "Move filter up"};
  Button cmdDown{*this, "cmdDown", Button::Picture::Down, "Move filter down"};
  Button cmdCancel{*this, "cmdCancel", "Close", Button::Role::Cancel};

 protected:
  // Raises RuntimeError when the store can't be read.
  void Form_Load() override;

 private:
  FilterOrderList order_;
};

}  // namespace qv
