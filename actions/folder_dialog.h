#pragma once

#include "actions/text_dialog.h"

namespace qv {

// Moves or copies the message to a folder, which is taken as typed.
class frmTaskGenericFolder : public ForSeveralTypes<TextActionDialog> {
 public:
  explicit frmTaskGenericFolder(Run& run);

  Label Label1{*this, "Label1", "Folder:"};
  TextBox txtFolder{*this, "txtFolder"};
  EndControls end{*this};

 protected:
  void ShowValues(const std::string& values) override { txtFolder.SetText(values); }
  std::vector<Layout> Fields() const override { return {layout::Field(Label1, txtFolder)}; }
};

}  // namespace qv
