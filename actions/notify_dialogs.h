#pragma once

#include "actions/action_dialog.h"

namespace qv {

// The dialogs of the actions that send a notification: the server's own message with a reason, or a template, which is
// a file of the configuration directory that these dialogs list and open but never write.
class NotifyDialog : public ActionDialog {
 protected:
  // The controls that the three dialogs share, behind those of their own.
  struct NotifyControls {
    explicit NotifyControls(NotifyDialog& dialog);
    OptionButton optUseDefault;
    TextBox txtData;
    OptionButton optUseTemplate;
    Label Label1;
    ComboBox cboTemplate;
    Button cmdEdit;
  };

  using ActionDialog::ActionDialog;

  void FillTemplateList();
  // Takes up a file as Values name it: selects the template, or the default message for an empty one.
  void ShowFile(const std::string& file);
  // The file as Values name it: "QVFILTER-" and the template's name, or empty for the default message.
  std::string ChosenFile() const;

  void BeforeLoad() override { FillTemplateList(); }
  void ShowTask(const Task& task) override;
  void chkStatus_Click() override;
  // Whether a chosen template can be one; warns the person when not.
  bool Validate() override;
  std::string StoredDescription() const override { return notify_->txtData.Text(); }
  std::string StoredValues() const override { return ChosenFile(); }
  std::vector<Layout> Fields() const override;

 private:
  void cmdEdit_Click();
  void FollowOptions();
  std::string TemplateFolder() const;

  NotifyControls* notify_ = nullptr;
};

class frmTaskNotifySender : public NotifyDialog {
 public:
  explicit frmTaskNotifySender(Run& run);
  NotifyControls notify{*this};
  EndControls end{*this};
};

class frmTaskNotifyRecipients : public NotifyDialog {
 public:
  explicit frmTaskNotifyRecipients(Run& run);
  NotifyControls notify{*this};
  EndControls end{*this};
};

// The address is checked for a disabled action too.
class frmTaskNotifyAddress : public NotifyDialog {
 public:
  explicit frmTaskNotifyAddress(Run& run);
  Label Label2{*this, "Label2", "Address to send notification to:"};
  TextBox txtAddress{*this, "txtAddress"};
  NotifyControls notify{*this};
  EndControls end{*this};

 protected:
  void ShowTask(const Task& task) override;
  void AfterLoad() override { chkStatus_Click(); }
  void chkStatus_Click() override;
  bool Validate() override;
  std::string StoredValues() const override;
  std::vector<Layout> Fields() const override;
};

}  // namespace qv
