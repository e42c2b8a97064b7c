#pragma once

#include <string>

#include "platform/forms.h"
#include "services/run.h"

namespace qv {

// The dialog that changes the two weights of one spam test.
class frmAdjustSpamWeight : public Form {
 public:
  explicit frmAdjustSpamWeight(Run& run);

  // Shows the weights of the test of a token; OK stores them as they stand in the boxes and generates the filter's
  // script. The host takes no part.
  void AdjustSpamWeight(const std::string& token, const std::string& positive, const std::string& negative,
                        const std::string& host);

  Layout Arrange() const override;

  Label Label1{*this, "Label1", "Spam weights can be adjusted for when the test matches or does not match.",
               Label::Look::Help};
  Label Label2{*this, "Label2", "Weight when matches:"};
  TextBox txtPositive{*this, "txtPositive"};
  Label Label3{*this, "Label3", "Weight when does not match:"};
  TextBox txtNegative{*this, "txtNegative"};
  Button cmdOK{*this, "cmdOK", "OK", Button::Role::Default};
  Button cmdCancel{*this, "cmdCancel", "Cancel", Button::Role::Cancel};

 private:
  void cmdOK_Click();

  Run& run_;
  std::string token_;
};

}  // namespace qv
