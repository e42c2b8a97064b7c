#pragma once

#include "criteria/criterion_dialog.h"

namespace qv {

// The rows that match words: a short list kept in Values, or a reference to a word file in the folder of the row's
// scope. The files themselves are only listed and opened in an editor.
class frmCriteriaWordList : public CriterionDialog {
 public:
  explicit frmCriteriaWordList(Run& run);

  OptionButton optUseWordList{*this, "optUseWordList",
                              "Use short word list (maximum of 2000 characters, but better performance)"};
  Label Label1{*this, "Label1", "To add to the list, enter details (comma delimited) below:"};
  TextBox txtWords{*this, "txtWords", nullptr, true};
  Button CmdAdd{*this, "CmdAdd", "Add"};
  Label Label2{*this, "Label2", "List:"};
  ListBox lstWords{*this, "lstWords"};
  Button CmdDelete{*this, "CmdDelete", "Remove"};
  Label Label3{*this, "Label3",
               "The * character can be used as a wildcard. Words are strings which are separated by a space, carriage "
               "return, linefeed, and either a single or double quote. Other symbols are determined to be part of the "
               "word.",
               Label::Look::Help};
  OptionButton optUseExternal{*this, "optUseExternal", "Use external word list file"};
  ComboBox cboPattern{*this, "cboPattern"};
  Button cmdEdit{*this, "cmdEdit", "Edit..."};
  ConfirmButtons buttons{*this};

  void SetFormControls() override;
  void GetFormControls() override;
  Size size() const override { return Size::Medium; }

 protected:
  void Form_Load() override;
  bool Validate() override;
  std::vector<Layout> Body() const override;

 private:
  // The folder of the word files of the row's scope, on the local machine whatever the host.
  std::string PatternFolder() const;
  void SetWordListEnabled(bool enabled);
  void optUseWordList_Click();
  void optUseExternal_Click();
  void CmdAdd_Click();
  void CmdDelete_Click();
  void cmdEdit_Click();
};

}  // namespace qv
