#include "editor/action_select.h"

#include "editor/action_catalogue.h"

namespace qv {

frmActionSelect::frmActionSelect(Run& run) : Form(run.toolkit, "frmActionSelect", "Select Action") {
  lstActions.DblClick = [this] { cmdOK_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { Unload(); };
}

std::string frmActionSelect::SelectAction(const std::string& mailbox, const std::string& /*postoffice*/) {
  chosen_text_ = "";
  Load();
  for (const ActionItem& item : ActionCatalogue()) {
    // A postoffice's filters are offered what the system's are.
    if (mailbox.empty() ? item.at_servers : item.at_mailboxes) lstActions.AddItem(std::string(item.text));
  }
  lstActions.SetListIndex(0);
  ShowModal();
  const ActionItem* chosen = FindActionByText(chosen_text_);
  return chosen ? std::string(chosen->key) : "0";
}

void frmActionSelect::cmdOK_Click() {
  if (lstActions.ListIndex() < 0) return;
  chosen_text_ = lstActions.Text();
  Unload();
}

Layout frmActionSelect::Arrange() const {
  return layout::Column({layout::Grow(layout::Field(Label1, lstActions, 12)), layout::Buttons({&cmdOK, &cmdCancel})});
}

}  // namespace qv
