#pragma once

#include <string>

#include "editor/action_list.h"
#include "editor/criteria_list.h"
#include "platform/forms.h"
#include "services/run.h"

namespace qv {

// The dialog in which one filter is edited: its criteria or its criteria script above, its actions below. Every change
// is written when it is made; closing settles only whether the script is active.
class frmManage : public Form {
 public:
  explicit frmManage(Run& run);

  // Shows the dialog for a filter and returns when it has been closed. An ID of the form FLT is rewritten to the CRT
  // form in place. Raises RuntimeError when the store can't be read; the dialog isn't shown then.
  void EditFilter(std::string& ID, const std::string& Postoffice, const std::string& Mailbox, const std::string& Host);

  Layout Arrange() const override;
  Size size() const override { return Size::Large; }

  Frame Frame1{*this, "Frame1", "Criteria"};
  Label Label1{*this, "Label1",
               "Enable the criteria which will be checked for this filter. If any of the criteria is met, then the "
               "action(s) will be performed. Double click an item to edit its properties.",
               &Frame1, Label::Look::Help};
  OptionButton optStandardCriteria{*this, "optStandardCriteria", "Use standard criteria", true, &Frame1};
  OptionButton optAdvancedScripting{*this, "optAdvancedScripting", "Use a criteria script", false, &Frame1};
  Button cmdAdvancedScripting{*this, "cmdAdvancedScripting", "Edit script...", &Frame1};
  RowList lvwCriteria{
      *this, "lvwCriteria", {{"status", "Status", 1200}, {"description", "Description", 7200}}, false, &Frame1};
  Frame Frame2{*this, "Frame2", "Actions"};
  Label Label2{
      *this, "Label2",
      "Add the actions that will be performed when the above criteria are met. Double click an item to edit its "
      "properties.",
      &Frame2, Label::Look::Help};
  RowList lvwActions{*this, "lvwActions", {{"", "Action", 5000}}, true, &Frame2};
  Button cmdAdd{*this, "cmdAdd", "Add Action...", &Frame2};
  Button cmdDelete{*this, "cmdDelete", "Delete Action", &Frame2};
  Button cmdUp{*this, "cmdUp", Button::Picture::Up, "Move action up", &Frame2};
  Button cmdDown{*this, "cmdDown", Button::Picture::Down, "Move action down", &Frame2};
  Label lblDisabled{
      *this, "lblDisabled",
      "Filters are currently disabled, so this filter will not occur until you have enabled filters on the "
      "server. This can be done under the Servers|[Servername]|Filters item.",
      Label::Look::Notice};
  Button cmdClose{*this, "cmdClose", "Close"};

 private:
  void Prepare(const std::string& id);
  void SetStandardCriteriaMode();
  void SetCriteriaScriptMode();
  void OfferScripting(bool offered);
  void ShowRemoteWarning();
  void cmdAdvancedScripting_Click();
  void cmdClose_Click();

  Run& run_;
  CriteriaList criteria_;
  ActionList actions_;
  std::string id_, postoffice_, mailbox_, host_;
};

}  // namespace qv
