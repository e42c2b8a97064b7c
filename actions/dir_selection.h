#pragma once

#include <string>
#include <vector>

#include "platform/folders.h"
#include "platform/forms.h"

namespace qv {

// A small picker of folders. No dialog opens it.
class frmDirSelection : public Form {
 public:
  frmDirSelection(Toolkit& toolkit, Folders& folders);

  ComboBox dirDrive{*this, "dirDrive"};
  // The folders from the drive's root down to the current one, and those in it. A double click on one goes there.
  ListBox dirDir{*this, "dirDir"};
  Button cmdOK{*this, "cmdOK", "OK", Button::Role::Default};
  Button cmdCancel{*this, "cmdCancel", "Cancel", Button::Role::Cancel};

  // Shows the dialog from a path on, and returns the chosen path, or an empty text. A path that can't be shown is no
  // error: the dialog then opens where it stands.
  std::string SelectDir(const std::string& path);

  Layout Arrange() const override;

 protected:
  void Form_Load() override;

 private:
  // Both raise RuntimeError, and change nothing, when the drive or the folder can't be used.
  void SetDrive(const std::string& drive);
  void SetDir(const std::string& path);
  void dirDrive_Change();

  Folders& folders_;
  std::string drive_, dir_, result_;
  std::vector<std::string> paths_;  // of the entries of dirDir
};

}  // namespace qv
