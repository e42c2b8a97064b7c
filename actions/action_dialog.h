#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "actions/action_types.h"
#include "platform/forms.h"
#include "services/run.h"

namespace qv {

// What tells one action dialog from another, beside its own controls.
struct ActionDialogTraits {
  const char* name;
  const char* caption;
  const char* sentence;  // what the action does
  const ActionType& type;
  const char* add_failure = "Unable to Add Task";
  const char* edit_failure = "Unable to Add Task";
  const char* not_found = "Task Not Found";  // at edit; the delete view has the usual words always
  bool keeps_status = false;                 // loading takes the task's status into Status
  bool keeps_values = true;                  // and its Values into Values
  bool delete_caption = true;                // the delete view says so in the caption
};

// The frame of the dialogs that edit an action, a task of a filter. The opener sets the public fields and calls
// EditTask; what comes of it is seen in the store alone.
class ActionDialog : public Form {
 public:
  enum : int { kAdd = 0, kEdit = 1, kDeleteView = 2 };

  std::string ActionID;  // the filter's "CRT" identifier
  std::string TaskID;    // of the task to edit; takes no part at add
  int EditMode = kAdd;
  std::string Values;  // as last loaded
  int Status = 0;      // as last loaded or saved
  std::string Postoffice, Mailbox, Host;

  Label lblH1;
  Label lblDescription;

  // The controls that end every action dialog. Each class declares them last, so that they end its tab order.
  struct EndControls {
    explicit EndControls(ActionDialog& dialog);
    CheckBox chkStatus;
    Button cmdOK, cmdCancel;
  };

  // Loads the task and shows the dialog; returns when it has been closed. Raises what the store raises at loading.
  void EditTask();

  // Tells a dialog that serves several types which one comes next, and loads its form.
  virtual void SetType(const ActionType& /*type*/) {}

  Layout Arrange() const override;
  Size size() const override { return Size::Medium; }

 protected:
  ActionDialog(Run& run, const ActionDialogTraits& traits);

  Run& run() const { return run_; }
  CheckBox& chkStatus() const { return end_->chkStatus; }

  // What a dialog adds to the frame, in the order of the steps.
  virtual void BeforeLoad() {}
  virtual void ShowTask(const Task& /*task*/) {}  // fills the dialog's own controls
  virtual void AfterLoad() {}
  virtual void chkStatus_Click() {}
  virtual bool Validate() { return true; }  // false when the person has been told what is wrong
  virtual std::string StoredType() const { return std::string(traits_.type.TaskType); }
  virtual std::string StoredDescription() const { return std::string(traits_.type.Description); }
  virtual std::string StoredValues() const = 0;
  virtual void SaveDeleteView() {}

  // The text boxes that hold the task's data; the delete view disables them.
  const std::vector<TextBox*>& Boxes() const { return boxes_; }
  void SetBoxes(std::vector<TextBox*> boxes) { boxes_ = std::move(boxes); }
  // The layout of what stands between the sentence and the end controls.
  virtual std::vector<Layout> Fields() const { return {}; }

  void LoadTask();
  void LockDeleteView();
  // Writes the task as EditMode says, and raises the reload signal whatever came of it.
  void SaveTask();

  std::unique_ptr<Task> BoundTask() const;
  // Brings the query fields to the template of this one task.
  void SetTaskTemplate(Task& task) const;

  void ShowError(const std::string& text) { toolkit().ShowMessage(text, "Error", MessageIcon::Critical); }
  // The whole text of the box is selected when the Tab key brings the focus.
  void SelectOnTab(TextBox& box);

 private:
  void cmdOK_Click();
  void AddNewTask();
  void EditOldTask();

  Run& run_;
  const ActionDialogTraits& traits_;
  EndControls* end_ = nullptr;
  std::vector<TextBox*> boxes_;
};

// A dialog that serves several types: SetType says which, and the person reads its sentence.
template <class Dialog>
class ForSeveralTypes : public Dialog {
 public:
  std::string TaskType, Description;

  void SetType(const ActionType& type) override {
    TaskType = type.TaskType;
    Description = type.Description;
    this->Load();
    this->lblDescription.SetCaption(std::string(type.Sentence));
  }

 protected:
  using Dialog::Dialog;
  std::string StoredType() const override { return TaskType; }
  std::string StoredDescription() const override { return Description; }
};

}  // namespace qv
