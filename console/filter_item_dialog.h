#pragma once

#include <string>

#include "platform/forms.h"
#include "services/run.h"

namespace qv {

// The dialog that makes a filter with its criteria, or changes one's name and status. Its fields survive from one use
// to the next: an edit happens in the scope and on the server of the last AddFilter.
class frmFilterItem : public Form {
 public:
  explicit frmFilterItem(Run& run);

  // For an edit a caller sets AddMode to 0 and FilterEntryID, and shows the dialog modally.
  int AddMode = 0;  // 1 add, 0 edit
  std::string FilterEntryID, ActionID, CriteriaID;
  std::string Description;
  int Status = 0;
  std::string Note;

  // Shows the dialog for a new filter of that scope and hands back its name. True when it has been saved.
  bool AddFilter(std::string& description, const std::string& postoffice, const std::string& mailbox,
                 const std::string& host);

  // Fills a list with the numbered names of the filters of the dialog's scope. Raises RuntimeError.
  void LoadFilters(ListControl& list);

  // Adds the rows of the criteria catalogue, all disabled, under an id. Raises RuntimeError.
  void CreateNewCriteria(const std::string& criteria_id);

  Layout Arrange() const override;

  Frame Frame2{*this, "Frame2", "General Properties"};
  Label Label1{*this, "Label1", "Name:", &Frame2};
  TextBox txtName{*this, "txtName", &Frame2};
  CheckBox chkStatus{*this, "chkStatus", "Filter is Enabled", true, &Frame2};
  Button cmdOK{*this, "cmdOK", "OK", Button::Role::Default};
  Button cmdCancel{*this, "cmdCancel", "&Cancel", Button::Role::Cancel};
  Label Label2{
      *this, "Label2",
      "Filters are currently disabled, so this filter will not occur until you have enabled the Quillvane Message "
      "Filter under the Filter options for the server.",
      Label::Look::Notice};
  // Below the form's lower edge at each of its heights; a new filter goes to the end of its scope whatever it says.
  Frame fmeSortOrder{*this, "fmeSortOrder", "Sort Order"};
  ListBox lstFilters{*this, "lstFilters", &fmeSortOrder};
  OptionButton optOrder0{*this, "optOrder(0)", "Insert before:", false, &fmeSortOrder};
  OptionButton optOrder1{*this, "optOrder(1)", "Move to end of list", true, &fmeSortOrder};

 protected:
  void Form_Load() override;

 private:
  void LoadForEdit();
  bool SaveFilter();
  bool AddNewFilter();
  bool UpdateFilter();
  int CountFilters();
  void ShowError(const std::string& text);

  Run& run_;
  std::string postoffice_, mailbox_, host_;
  bool saved_ = false;
};

}  // namespace qv
