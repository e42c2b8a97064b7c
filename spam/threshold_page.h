#pragma once

#include <array>

#include "platform/property_page.h"
#include "services/run.h"

namespace qv {

// The property page of the spam protection node: whether the system spam filter is on, and the three scores at which it
// marks a message.
class ppgSpamProtection : public PropertyPage {
 public:
  explicit ppgSpamProtection(Run& run);

  // Raises RuntimeError when a server can't be reached.
  void IMMCPropertyPage_Initialize(const Dictionary& initial_data) override;
  // False, after a message, when spam protection is enabled and a threshold is none. Raises RuntimeError; what has been
  // saved by then stays.
  bool ApplyChanges() override;
  void IMMCPropertyPage_Help() override;

  Layout Arrange() const override;
  Size size() const override { return Size::Medium; }

  Frame Frame1{*this, "Frame1", ""};
  Label Label1{*this, "Label1",
               "Spam protection will score emails that are likely to be spam when they fail one or more tests. "
               "Thresholds determine at what level the emails are marked.",
               &Frame1, Label::Look::Help};
  CheckBox chkEnabled{*this, "chkEnabled", "Enable spam protection", false, &Frame1};
  Label Label2{*this, "Label2", "Low threshold:", &Frame1};
  TextBox txtLow{*this, "txtLow", &Frame1};
  Label Label3{*this, "Label3", "(1..100)", &Frame1};
  Label Label4{*this, "Label4", "Medium threshold:", &Frame1};
  TextBox txtMedium{*this, "txtMedium", &Frame1};
  Label Label5{*this, "Label5", "(1..100)", &Frame1};
  Label Label6{*this, "Label6", "High threshold:", &Frame1};
  TextBox txtHigh{*this, "txtHigh", &Frame1};
  Label Label7{*this, "Label7", "(1..100)", &Frame1};

 private:
  // The boxes in the order of the thresholds.
  std::array<TextBox*, 3> Boxes() { return {&txtLow, &txtMedium, &txtHigh}; }
  bool IsValid();
  void MarkChanged();

  Run& run_;
  bool ready_ = false;  // the page has finished loading
};

}  // namespace qv
