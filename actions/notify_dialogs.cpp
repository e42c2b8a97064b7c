#include "actions/notify_dialogs.h"

#include <utility>

#include "platform/text.h"
#include "services/address_utilities.h"
#include "services/server_context.h"
#include "services/text_utilities.h"

namespace qv {

namespace {

constexpr ActionDialogTraits kSender{.name = "frmTaskNotifySender",
                                     .caption = "Action - Notify Sender",
                                     .sentence =
                                         "This action sends a notification message to the sender, with the "
                                         "reason for the notification being the text below.",
                                     .type = action_types::kNotifySender,
                                     .add_failure = "Unable to add action"};

constexpr ActionDialogTraits kRecipients{.name = "frmTaskNotifyRecipients",
                                         .caption = "Action - Notify Recipient",
                                         .sentence =
                                             "This action sends a notification message to the recipient, with "
                                             "the reason for the notification being the text below.",
                                         .type = action_types::kNotifyRecipients};

constexpr ActionDialogTraits kAddress{.name = "frmTaskNotifyAddress",
                                      .caption = "Action - Notify Address",
                                      .sentence =
                                          "This action sends a notification message to the specified address, "
                                          "with the reason for the notification being the text below.",
                                      .type = action_types::kNotifyAddress};

constexpr const char* kPrefix = "QVFILTER-";
constexpr std::size_t kPrefixLength = 9;

}  // namespace

NotifyDialog::NotifyControls::NotifyControls(NotifyDialog& dialog)
    : optUseDefault(dialog, "optUseDefault", "Use default notification message", true),
      txtData(dialog, "txtData"),
      optUseTemplate(dialog, "optUseTemplate", "Use template for notification"),
      Label1(dialog, "Label1", "Select template:"),
      cboTemplate(dialog, "cboTemplate"),
      cmdEdit(dialog, "cmdEdit", "Edit...") {
  dialog.notify_ = this;
  optUseDefault.Click = [&dialog] { dialog.FollowOptions(); };
  optUseTemplate.Click = [&dialog] { dialog.FollowOptions(); };
  cmdEdit.Click = [&dialog] { dialog.cmdEdit_Click(); };
}

std::string NotifyDialog::TemplateFolder() const {
  return GetConfigurationDirectory(run(), Host) + "\\filters\\templates";
}

void NotifyDialog::FillTemplateList() {
  ComboBox& list = notify_->cboTemplate;
  const std::string folder = TemplateFolder();
  if (run().files.FolderExists(folder)) {
    for (const std::string& name : run().files.FileNames(folder)) {
      if (Left(name, kPrefixLength) != kPrefix) continue;
      const std::string rest = Mid(name, kPrefixLength);
      if (LowerCase(Right(rest, 4)) == ".txt") list.AddItem(Left(rest, TextLength(rest) - 4));
    }
  }
  if (list.ListCount() > 0) {
    list.SetListIndex(0);
  } else {
    notify_->cmdEdit.SetEnabled(false);
  }
}

void NotifyDialog::ShowFile(const std::string& file) {
  if (file.empty()) {
    notify_->optUseDefault.SetChecked(true);
    return;
  }
  notify_->optUseTemplate.SetChecked(true);
  const bool prefixed = UpperCase(Left(file, kPrefixLength)) == kPrefix;
  SelectComboEntry(notify_->cboTemplate, prefixed ? Mid(file, kPrefixLength) : file);
}

std::string NotifyDialog::ChosenFile() const {
  return notify_->optUseTemplate.Checked() ? kPrefix + notify_->cboTemplate.Text() : std::string();
}

void NotifyDialog::ShowTask(const Task& task) {
  notify_->txtData.SetText(task.Description);
  ShowFile(task.Values);
}

void NotifyDialog::FollowOptions() {
  const bool use_default = notify_->optUseDefault.Checked();
  notify_->txtData.SetEnabled(use_default);
  notify_->cboTemplate.SetEnabled(!use_default);
  notify_->cmdEdit.SetEnabled(!use_default);
}

void NotifyDialog::chkStatus_Click() {
  const bool enabled = chkStatus().Checked();
  notify_->optUseDefault.SetEnabled(enabled);
  notify_->optUseTemplate.SetEnabled(enabled);
  if (enabled) {
    FollowOptions();
    return;
  }
  notify_->txtData.SetEnabled(false);
  notify_->cboTemplate.SetEnabled(false);
  notify_->cmdEdit.SetEnabled(false);
}

void NotifyDialog::cmdEdit_Click() {
  // The editor is told of the file whether or not it is there, and deals with a missing one.
  const std::string path = TemplateFolder() + "\\" + kPrefix + notify_->cboTemplate.Text() + ".TXT";
  toolkit().StartProgram("notepad \"" + path + "\"");
}

bool NotifyDialog::Validate() {
  if (!notify_->optUseTemplate.Checked() || notify_->cboTemplate.ListCount() > 0) return true;
  toolkit().ShowMessage("There are no templates configured. You must create a template.", "Warning",
                        MessageIcon::Exclamation);
  return false;
}

std::vector<Layout> NotifyDialog::Fields() const {
  return {layout::Item(notify_->optUseDefault), layout::Indent({layout::Item(notify_->txtData)}),
          layout::Item(notify_->optUseTemplate),
          layout::Indent({layout::Field(notify_->Label1, notify_->cboTemplate, 0, {&notify_->cmdEdit})})};
}

frmTaskNotifySender::frmTaskNotifySender(Run& run) : NotifyDialog(run, kSender) { SetBoxes({&notify.txtData}); }

frmTaskNotifyRecipients::frmTaskNotifyRecipients(Run& run) : NotifyDialog(run, kRecipients) {
  SetBoxes({&notify.txtData});
}

frmTaskNotifyAddress::frmTaskNotifyAddress(Run& run) : NotifyDialog(run, kAddress) {
  SetBoxes({&txtAddress, &notify.txtData});
  SelectOnTab(txtAddress);
}

void frmTaskNotifyAddress::ShowTask(const Task& task) {
  notify.txtData.SetText(task.Description);
  std::string file;
  if (UpperCase(Left(task.Values, 11)) == "<REFERENCE>") {
    txtAddress.SetText(GetTagContents(task.Values, "<ADDRESS>"));
    file = GetTagContents(task.Values, "<FILE>");
  }
  ShowFile(file);
}

void frmTaskNotifyAddress::chkStatus_Click() {
  txtAddress.SetEnabled(chkStatus().Checked());
  NotifyDialog::chkStatus_Click();
}

bool frmTaskNotifyAddress::Validate() {
  const std::string& address = txtAddress.Text();
  if (Trim(address).empty() || !IsValidEmailAddress(address)) {
    toolkit().ShowMessage("The recipient email address is not valid.", "Error", MessageIcon::Exclamation);
    SetFocus(txtAddress);
    return false;
  }
  return NotifyDialog::Validate();
}

std::string frmTaskNotifyAddress::StoredValues() const {
  return "<REFERENCE><ADDRESS>" + txtAddress.Text() + "</ADDRESS><FILE>" + ChosenFile() + "</FILE></REFERENCE>";
}

std::vector<Layout> frmTaskNotifyAddress::Fields() const {
  std::vector<Layout> fields = NotifyDialog::Fields();
  fields.insert(fields.begin(), layout::Field(Label2, txtAddress));
  return fields;
}

}  // namespace qv
