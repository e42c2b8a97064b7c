#include "editor/script_editor.h"

#include <optional>

#include "editor/script_files.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "services/server_context.h"

namespace qv {

namespace {

// Each names a property of a message, under which a script tests it.
constexpr const char* kTokens[] = {"[QV_SUBJECT]",
                                   "[QV_BODY]",
                                   "[QV_TO]",
                                   "[QV_CC]",
                                   "[QV_TOorCC]",
                                   "[QV_SPF]",
                                   "[QV_PRIORITY]",
                                   "[QV_FROM]",
                                   "[QV_SIZE]",
                                   "[QV_HASATTACHMENTSMATCHING]",
                                   "[QV_HASANATTACHMENT]",
                                   "[QV_SECURE]",
                                   "[QV_HEADERS_CONTAIN]",
                                   "[QV_SPAM_PROBABILITY]",
                                   "[QV_HASVIRUS]",
                                   "[QV_ALLMESSAGES]",
                                   "[QV_SENDERAUTH]",
                                   "[QV_IPADDRESS]",
                                   "[QV_ACCOUNT]",
                                   "[QV_CONNECTOR]",
                                   "[QV_DKIM]"};

// Stands for a token in a trial run, where its brackets would not compile.
constexpr const char* kVariable = "QV_VARIABLE";

// What the server supplies around a script, in a form that finds nothing met. It stands behind the script, so that the
// script keeps its line numbers.
constexpr const char* kFrame = "\r\nFunction CriteriaMet(InVal1,InVal2)\r\nEnd Function\r\n";

constexpr const char* kHelpPage = "/quillvane/help/filtering_scripting.asp";

}  // namespace

frmScriptEditor::frmScriptEditor(Run& run)
    : Form(run.toolkit, "frmScriptEditor", "Advanced Criteria Script Editor"), run_(run) {
  txtCondition.SetCode(true);
  lstTokens.DblClick = [this] { IgnoreErrors([this] { lstTokens_DblClick(); }); };
  cmdCheck.Click = [this] { cmdCheck_Click(); };
  cmdSyntax.Click = [this] { cmdSyntax_Click(); };
  cmdExit.Click = [this] { cmdExit_Click(); };
  cmdCancel.Click = [this] { Unload(); };
}

Layout frmScriptEditor::Arrange() const {
  using namespace layout;
  return Column({Item(Label1), Grow(Field(Label2, txtCondition, 14)), Field(Label3, lstTokens, 6), Item(Label4),
                 Buttons({&cmdCheck, &cmdSyntax, &cmdExit, &cmdCancel})});
}

void frmScriptEditor::Form_Load() {
  txtCondition.SetText(ReadCriteriaScript(run_, CriteriaID, Postoffice));
  for (const char* token : kTokens) lstTokens.AddItem(token);
}

void frmScriptEditor::lstTokens_DblClick() {
  const std::string token = lstTokens.Text();
  if (token.empty()) return;
  const std::string insert = "\r\nCriteriaMet(" + token + ",\"Value\")\r\n";
  const std::size_t caret = txtCondition.SelStart();
  const std::string text = txtCondition.Text();
  if (caret == 0) {
    txtCondition.SetText(insert + text);
  } else {
    // The character before the caret stands on both sides of the insertion.
    txtCondition.SetText(Left(text, caret) + insert + Mid(text, caret - 1));
  }
}

int frmScriptEditor::CheckScriptSyntax(std::string ScriptText) {
  for (const std::string& token : lstTokens.Items()) ScriptText = Replace(ScriptText, token, kVariable);
  return EnumerateScript(ScriptText + kFrame);
}

int frmScriptEditor::EnumerateScript(const std::string& Code) {
  const std::optional<ScriptFault> fault = run_.scripts.AddCode(Code);
  if (!fault) return 1;
  const std::string number = std::to_string(fault->Number);
  run_.toolkit.ShowMessage("Line: " + std::to_string(fault->Line) + ", Column: " + std::to_string(fault->Column) +
                               ". Description: " + fault->Description + ".\r\nError Number: " + number + ". " +
                               fault->Source + ".\r\nError Text: " + fault->Text + "\r\nError: " + number + " " +
                               fault->Description,
                           "Script Compilation Error", MessageIcon::Critical);
  return 0;
}

void frmScriptEditor::cmdCheck_Click() {
  if (CheckScriptSyntax(txtCondition.Text()) == 0) return;
  if (LowerCase(txtCondition.Text()).find("filterresult") != std::string::npos) {
    run_.toolkit.ShowMessage("Script Enumeration Successful", "Quillvane Scripting", MessageIcon::Information);
  } else {
    run_.toolkit.ShowMessage(
        "Script Enumeration Completed with Warnings\r\n\r\nWARNING: FilterResult was not specified for this script. "
        "Please see examples by pressing the Help button.",
        "Quillvane Scripting", MessageIcon::Exclamation);
  }
}

// Only the path of the page is settled; whoever shows the console serves it.
void frmScriptEditor::cmdSyntax_Click() {
  IgnoreErrors([this] { run_.toolkit.OpenAddress(kHelpPage); });
}

void frmScriptEditor::cmdExit_Click() {
  if (CheckScriptSyntax(txtCondition.Text()) != 1) return;
  WriteCriteriaScript(run_, CriteriaID, txtCondition.Text(), Postoffice);
  SignalFilterReload(run_);
  Unload();
}

}  // namespace qv
