#pragma once

#include <string>

#include "platform/forms.h"
#include "services/run.h"

namespace qv {

// Edits the criteria script that can take the place of a filter's standard criteria. The script's files are local, so
// the dialog knows no host. The opener sets the fields and shows the form.
class frmScriptEditor : public Form {
 public:
  explicit frmScriptEditor(Run& run);

  std::string CriteriaID;  // the filter's "CRT" identifier
  std::string Postoffice;  // empty for a system filter

  // A trial run of a script as the server would frame it. 1 when the text passed, 0 when it didn't and the person has
  // been told why.
  int CheckScriptSyntax(std::string ScriptText);

  Layout Arrange() const override;
  Size size() const override { return Size::Large; }

  Label Label1{*this, "Label1", "This screen allows you to create a script that can be enumerated for this filter. ",
               Label::Look::Help};
  Label Label2{*this, "Label2", "Criteria Script e.g.: If CriteriaMet([QV_SUBJECT],\"*Viagra*\") Then"};
  TextBox txtCondition{*this, "txtCondition", nullptr, true};
  Label Label3{*this, "Label3", "Criteria Tokens:"};
  ListBox lstTokens{*this, "lstTokens"};
  Label Label4{*this, "Label4",
               "Criteria Tokens can be used in the script for enumeration. You can insert the criteria token into the "
               "script by double clicking on it.",
               Label::Look::Help};
  Button cmdCheck{*this, "cmdCheck", "&Check Syntax.."};
  Button cmdSyntax{*this, "cmdSyntax", "&Help..."};
  Button cmdExit{*this, "cmdExit", "&Save and Exit"};
  Button cmdCancel{*this, "cmdCancel", "&Cancel", Button::Role::Cancel};

 protected:
  void Form_Load() override;

 private:
  int EnumerateScript(const std::string& Code);
  void lstTokens_DblClick();
  void cmdCheck_Click();
  void cmdSyntax_Click();
  void cmdExit_Click();

  Run& run_;
};

}  // namespace qv
