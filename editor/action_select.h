#pragma once

#include <string>

#include "platform/forms.h"
#include "services/run.h"

namespace qv {

// Offers the actions that there are at a filter's scope.
class frmActionSelect : public Form {
 public:
  explicit frmActionSelect(Run& run);

  Label Label1{*this, "Label1", "Select action to create:"};
  ListBox lstActions{*this, "lstActions"};
  Button cmdOK{*this, "cmdOK", "OK", Button::Role::Default};
  Button cmdCancel{*this, "cmdCancel", "Cancel", Button::Role::Cancel};

  // The key of the chosen action in the action catalogue, or "0" when none was chosen.
  std::string SelectAction(const std::string& mailbox, const std::string& postoffice);

  Layout Arrange() const override;

 private:
  void cmdOK_Click();

  std::string chosen_text_;
};

}  // namespace qv
