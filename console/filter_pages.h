#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "console/filter_order_list.h"
#include "platform/property_page.h"
#include "services/run.h"

namespace qv {

// The "Filters" page of a mailbox or a postoffice: the filters of its scope, each change of which is in the store at
// once, and the switch of filter processing, which alone waits for the sheet's Apply. Nothing here makes the server
// reload.
class FilterPage : public PropertyPage {
 public:
  // What the pages of a mailbox and of a postoffice differ in.
  struct Kind {
    const char* class_name;
    const char* enabled_caption;
    const char* list_caption;
    const char* load_error;
    const char* option;
    std::int16_t option_scope;
    bool of_mailbox;
  };

  FilterPage(Run& run, const Kind& kind);

  // The data's keys are "postoffice", "host" and, for a mailbox, "mailbox". Errors are shown.
  void IMMCPropertyPage_Initialize(const Dictionary& initial_data) override;
  void IMMCPropertyPage_Help() override;
  // Saves the switch. Raises RuntimeError.
  bool ApplyChanges() override;

  Layout Arrange() const override;
  Size size() const override { return Size::Medium; }

  CheckBox chkEnabled;
  Label Label1;
  RowList lvwFilters{*this, "lvwFilters", FilterOrderList::Columns()};
  Button cmdAdd{*this, "cmdAdd", "Add..."};
  Button cmdEdit{*this, "cmdEdit", "Edit..."};
  Button cmdDelete{*this, "cmdDelete", "Delete..."};
  Button cmdEnable{*this, "cmdEnable", "Enable"};
  Button cmdDisable{*this, "cmdDisable", "Disable"};
  Button cmdUp{*this, "cmdUp", Button::Picture::Up, "Move filter up"};
  Button cmdDown{*this, "cmdDown", Button::Picture::Down, "Move filter down"};

 private:
  void LoadFilterList();
  std::unique_ptr<Option> CreateOption() const;
  // The selected row, or null.
  const ListRow* SelectedRow() const;
  void lvwFilters_Click();
  void cmdAdd_Click();
  void cmdEdit_Click();
  void cmdDelete_Click();
  void SetStatus(int status);

  Run& run_;
  const Kind& kind_;
  FilterOrderList order_;
  std::string postoffice_, mailbox_, host_;
  bool initialized_ = false;
};

class ppgMailboxFilters : public FilterPage {
 public:
  explicit ppgMailboxFilters(Run& run);
};

class ppgPostofficeFilters : public FilterPage {
 public:
  explicit ppgPostofficeFilters(Run& run);
};

}  // namespace qv
