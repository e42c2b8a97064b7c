#pragma once

#include "actions/text_dialog.h"

namespace qv {

// Adds a header line to the message, or replaces it.
class frmTaskAddHeader : public TextActionDialog {
 public:
  explicit frmTaskAddHeader(Run& run);

  Label Label1{*this, "Label1", "Header item (e.g. X-Spam:):"};
  TextBox txtHeaderItem{*this, "txtHeaderItem"};
  Label Label2{*this, "Label2", "Header value:"};
  TextBox txtHeaderValue{*this, "txtHeaderValue"};
  EndControls end{*this};

 protected:
  bool Validate() override;
  std::vector<Layout> Fields() const override;
};

// Puts text in front of the message's subject. The stored prefix is read back up to a "|".
class frmTaskAddPrefix : public TextActionDialog {
 public:
  explicit frmTaskAddPrefix(Run& run);

  Label Label1{*this, "Label1", "Subject Prefix:"};
  TextBox txtPrefix{*this, "txtPrefix"};
  EndControls end{*this};

 protected:
  bool Validate() override;
  std::vector<Layout> Fields() const override;
};

}  // namespace qv
