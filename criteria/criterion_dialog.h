#pragma once

#include <string>
#include <vector>

#include "platform/forms.h"
#include "services/run.h"

namespace qv {

class CriterionForm;

// The last controls of every criterion dialog, declared behind its own.
struct ConfirmButtons {
  explicit ConfirmButtons(CriterionForm& form);
  Button cmdOK, cmdCancel;
};

// A dialog's copy of one criterion row, and how it is read, written and answered for. The fields survive closing.
class CriterionForm : public Form {
 public:
  std::string CriteriaID, RuleID, Values;
  int Status = -1;
  std::string CriteriaType, Description;
  int Frequency = 0;  // sent as it stands, never read
  std::string Mailbox, Postoffice, Host;

  CheckBox chkStatus;

  // Brings the fields that a search leaves open to their neutral values.
  virtual void InitFormVariables();
  // Fetches the row, and takes its fields whatever the store's answer, which is returned: 0 when there is no such row.
  int LoadFromProvider();

  virtual void cmdOK_Click() = 0;
  void cmdCancel_Click();

 protected:
  CriterionForm(Run& run, const std::string& name, const std::string& caption, const std::string& status_caption);

  Run& run() const { return run_; }
  int result() const { return result_; }
  // Writes the fields to the row, with these Values; tells of a failure or has the server reload. Sets the result and
  // closes in both cases.
  void Save(const std::string& values);

  // What stands between the status and the buttons.
  virtual std::vector<Layout> Body() const { return {}; }
  // The items, the body and the buttons.
  Layout ArrangeBelow(std::vector<Layout> items) const;

 private:
  friend struct ConfirmButtons;
  Run& run_;
  const ConfirmButtons* buttons_ = nullptr;
  int result_ = 0;
};

// What sets a dialog of the family apart in what they all do. The caption and the description show until a row has been
// loaded.
struct CriterionFamily {
  const char* name;
  const char* first_caption;
  const char* first_description;
  const char* load_failure = "Could not load";
  const char* status_caption = "Enabled";
};

// The frame of the criterion dialogs. Set CriteriaID, RuleID, Mailbox, Postoffice and Host, then call SetCriteria.
class CriterionDialog : public CriterionForm {
 public:
  Label lblH1{*this, "lblH1", "Criteria:"};
  Label lblDescription;

  // Shows the dialog and returns 0 for cancelled, 1 for saved with the row enabled, 2 for saved with the row disabled.
  // Closed in any other way it returns what it returned last.
  virtual int SetCriteria();

  virtual void SetFormControls();
  virtual void GetFormControls();
  // Fetches the row into the controls, or tells that it can't be loaded.
  void LoadData();
  void cmdOK_Click() override;

  Layout Arrange() const override;

 protected:
  CriterionDialog(Run& run, const CriterionFamily& family);

  // Before the row is loaded, and between that and the showing.
  virtual void PrepareLists() {}
  virtual void CompleteLists() {}
  // Whether what the controls hold may be saved; tells the person why not.
  virtual bool Validate() { return true; }
  // Tells it, brings the focus to the control and returns false.
  bool Refuse(const std::string& text, const std::string& title, Control* control = nullptr);

 private:
  std::string load_failure_;
};

// The run's dialog for a row, or null for the row that isn't opened through SetCriteria and for what has no dialog.
CriterionDialog* DialogForRule(Run& run, const std::string& rule_id);

}  // namespace qv
