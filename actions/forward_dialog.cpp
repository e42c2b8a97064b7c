#include "actions/forward_dialog.h"

#include "services/address_utilities.h"
#include "services/text_utilities.h"

namespace qv {

namespace {

constexpr ActionDialogTraits kTraits{.name = "frmForward",
                                     .caption = "Action - Forward message",
                                     .sentence =
                                         "This action creates a copy of the email and forwards it to a specified "
                                         "email address. The original email will not be deleted.",
                                     .type = action_types::kForwardToAddress};

}  // namespace

frmForward::frmForward(Run& run) : ActionDialog(run, kTraits) {
  SetBoxes({&txtData});
  SelectOnTab(txtData);
}

void frmForward::ShowTask(const Task& task) { txtData.SetText(StripSmtpAddress(task.Values)); }

bool frmForward::Validate() {
  if (!chkStatus().Checked() || IsValidEmailAddress(txtData.Text())) return true;
  toolkit().ShowMessage("You need to enter a valid email address.", "Error", MessageIcon::Exclamation);
  SetFocus(txtData);
  return false;
}

}  // namespace qv
