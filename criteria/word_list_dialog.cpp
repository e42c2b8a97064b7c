#include "criteria/word_list_dialog.h"

#include <optional>
#include <string_view>
#include <utility>

#include "criteria/word_lists.h"
#include "platform/text.h"
#include "services/server_context.h"
#include "services/text_utilities.h"

namespace qv {

namespace {

constexpr std::string_view kPrefix = "QVFILTER-";
constexpr std::string_view kExtension = ".TXT";
constexpr std::string_view kReference = "<REFERENCE>";

// The pattern name of a word file, whose prefix counts as it is written and whose extension in any case.
std::optional<std::string> PatternName(std::string_view file_name) {
  if (!StartsWith(file_name, kPrefix)) return std::nullopt;
  const std::string_view rest = file_name.substr(kPrefix.size());
  if (LowerCase(Right(rest, kExtension.size())) != ".txt") return std::nullopt;
  return std::string(rest.substr(0, rest.size() - kExtension.size()));
}

std::string FileName(const std::string& pattern) { return std::string(kPrefix) + pattern + std::string(kExtension); }

std::string CleanWord(const std::string& typed) {
  std::string word = typed;
  for (const char* end : {"\t", "\r\n", "\r", "\n"}) word = Replace(word, end, " ");
  return Trim(word);
}

}  // namespace

frmCriteriaWordList::frmCriteriaWordList(Run& run)
    : CriterionDialog(run, {"frmCriteriaWordList", "Word List Properties", "Description goes here"}) {
  CmdDelete.SetEnabled(false);
  optUseWordList.Click = [this] { optUseWordList_Click(); };
  optUseExternal.Click = [this] { optUseExternal_Click(); };
  lstWords.Click = [this] { CmdDelete.SetEnabled(true); };
  CmdAdd.Click = [this] { CmdAdd_Click(); };
  CmdDelete.Click = [this] { CmdDelete_Click(); };
  cmdEdit.Click = [this] { cmdEdit_Click(); };
}

std::string frmCriteriaWordList::PatternFolder() const {
  const std::string root = GetConfigurationDirectory(run(), Host);
  if (!Mailbox.empty()) return root + "\\postoffices\\" + Postoffice + "\\mailboxes\\" + Mailbox + "\\rules";
  if (!Postoffice.empty()) return root + "\\postoffices\\" + Postoffice + "\\rules";
  return root + "\\filters\\patterns";
}

void frmCriteriaWordList::Form_Load() {
  const std::string folder = PatternFolder();
  if (run().files.FolderExists(folder)) {
    for (const std::string& file_name : run().files.FileNames(folder)) {
      if (const auto pattern = PatternName(file_name)) cboPattern.AddItem(*pattern);
    }
  }
  if (cboPattern.ListCount() > 0) {
    cboPattern.SetListIndex(0);
  } else {
    cmdEdit.SetEnabled(false);
  }
}

void frmCriteriaWordList::SetFormControls() {
  CriterionDialog::SetFormControls();
  if (Values.empty()) {
    lstWords.Clear();
  } else if (!StartsWith(Values, kReference)) {
    optUseWordList.SetChecked(true);
    ShowWords(lstWords, Values);
  } else {
    optUseExternal.SetChecked(true);
    if (const auto pattern = PatternName(GetTagContents(Values, "<FILE>"))) SelectComboEntry(cboPattern, *pattern);
  }
}

void frmCriteriaWordList::GetFormControls() {
  CriterionDialog::GetFormControls();
  Values.clear();
  if (optUseExternal.Checked()) {
    Values = "<REFERENCE><FILE>" + FileName(cboPattern.Text()) + "</FILE></REFERENCE>";
  } else if (optUseWordList.Checked()) {
    Values = Join(lstWords.Items(), ",");
  }
}

bool frmCriteriaWordList::Validate() {
  if (optUseExternal.Checked() && cboPattern.ListIndex() < 0) {
    return Refuse("You must either select an external word list file, or create a new one and select that.", "Warning");
  }
  GetFormControls();
  if (chkStatus.Checked() && Values.empty()) return Refuse("You must enter at least one word to match.", "Warning");
  return true;
}

void frmCriteriaWordList::SetWordListEnabled(bool enabled) {
  txtWords.SetEnabled(enabled);
  lstWords.SetEnabled(enabled);
  CmdAdd.SetEnabled(enabled);
  CmdDelete.SetEnabled(enabled);
}

void frmCriteriaWordList::optUseWordList_Click() {
  SetWordListEnabled(true);
  cboPattern.SetEnabled(false);
  cmdEdit.SetEnabled(false);
}

void frmCriteriaWordList::optUseExternal_Click() {
  SetWordListEnabled(false);
  cboPattern.SetEnabled(true);
  cmdEdit.SetEnabled(cboPattern.ListCount() > 0);
}

void frmCriteriaWordList::CmdAdd_Click() {
  if (!ListTakes(lstWords, txtWords.Text())) {
    toolkit().ShowMessage("You have reach the maximum number of words for this criteria.", "Warning",
                          MessageIcon::Information);
    return;
  }
  for (const std::string& piece : Split(txtWords.Text(), ",")) {
    if (std::string word = CleanWord(piece); !word.empty()) lstWords.AddItem(std::move(word));
  }
  txtWords.SetText("");
  chkStatus.SetEnabled(lstWords.ListCount() > 0);
}

void frmCriteriaWordList::CmdDelete_Click() {
  if (RemoveSelectedWord(lstWords)) {
    CmdDelete.SetEnabled(false);
    chkStatus.SetChecked(false);
  }
  chkStatus.SetEnabled(lstWords.ListCount() > 0);
}

void frmCriteriaWordList::cmdEdit_Click() {
  const std::string path = PatternFolder() + "\\" + FileName(cboPattern.Text());
  // A file that has gone since is the editor's to tell.
  (void)run().files.FileExists(path);
  toolkit().StartProgram("notepad \"" + path + "\"");
}

std::vector<Layout> frmCriteriaWordList::Body() const {
  using namespace layout;
  return {Item(optUseWordList),
          Indent({Side(Field(Label1, txtWords, 3), {&CmdAdd}), Side(Grow(Field(Label2, lstWords, 6)), {&CmdDelete}),
                  Item(Label3)}),
          Item(optUseExternal), Indent({Side(Item(cboPattern), {&cmdEdit})})};
}

}  // namespace qv
