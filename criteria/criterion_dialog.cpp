#include "criteria/criterion_dialog.h"

#include <utility>

#include "services/server_context.h"

namespace qv {

ConfirmButtons::ConfirmButtons(CriterionForm& form)
    : cmdOK(form, "cmdOK", "OK", Button::Role::Default), cmdCancel(form, "cmdCancel", "&Cancel", Button::Role::Cancel) {
  form.buttons_ = this;
  cmdOK.Click = [&form] { form.cmdOK_Click(); };
  cmdCancel.Click = [&form] { form.cmdCancel_Click(); };
}

CriterionForm::CriterionForm(Run& run, const std::string& name, const std::string& caption,
                             const std::string& status_caption)
    : Form(run.toolkit, name, caption), chkStatus(*this, "chkStatus", status_caption), run_(run) {}

void CriterionForm::InitFormVariables() {
  Values.clear();
  CriteriaType.clear();
  Description.clear();
  Status = -1;
}

int CriterionForm::LoadFromProvider() {
  const auto criteria = run_.components.CreateCriteria();
  criteria->Host = Host;
  criteria->SetHost();
  criteria->CriteriaID = CriteriaID;
  criteria->RuleID = RuleID;
  criteria->Values = Values;
  criteria->Status = Status;
  criteria->CriteriaType = CriteriaType;
  criteria->Description = Description;
  criteria->Postoffice = Postoffice;
  criteria->Mailbox = Mailbox;
  const int result = criteria->GetCriteria();
  CriteriaID = criteria->CriteriaID;
  RuleID = criteria->RuleID;
  Values = criteria->Values;
  Status = criteria->Status;
  CriteriaType = criteria->CriteriaType;
  Description = criteria->Description;
  return result;
}

void CriterionForm::Save(const std::string& values) {
  const auto criteria = run_.components.CreateCriteria();
  criteria->Host = Host;
  criteria->SetHost();
  criteria->CriteriaID = CriteriaID;
  criteria->RuleID = RuleID;
  criteria->Status = -1;
  criteria->Frequency = -1;
  criteria->Postoffice = Postoffice;
  criteria->Mailbox = Mailbox;
  if (criteria->EditCriteria(RuleID, Status, "", CriteriaType, Description, values, Frequency) == 1) {
    SignalFilterReload(run_);
  } else {
    toolkit().ShowMessage("Unable to update Criteria", "Error", MessageIcon::Critical);
  }
  result_ = chkStatus.Checked() ? 1 : 2;
  Unload();
}

void CriterionForm::cmdCancel_Click() {
  result_ = 0;
  Unload();
}

Layout CriterionForm::ArrangeBelow(std::vector<Layout> items) const {
  for (Layout& item : Body()) items.push_back(std::move(item));
  items.push_back(layout::Buttons({&buttons_->cmdOK, &buttons_->cmdCancel}));
  return layout::Column(std::move(items));
}

CriterionDialog::CriterionDialog(Run& run, const CriterionFamily& family)
    : CriterionForm(run, family.name, family.first_caption, family.status_caption),
      lblDescription(*this, "lblDescription", family.first_description, Label::Look::Heading),
      load_failure_(family.load_failure) {}

int CriterionDialog::SetCriteria() {
  ShowPrepared([this] {
    PrepareLists();
    LoadData();
    CompleteLists();
  });
  return result();
}

void CriterionDialog::LoadData() {
  InitFormVariables();
  if (LoadFromProvider() != 0) {
    SetFormControls();
  } else {
    toolkit().ShowMessage(load_failure_, "Error", MessageIcon::Critical);
  }
}

void CriterionDialog::SetFormControls() {
  SetCaption("Criteria Properties - " + Description);
  chkStatus.SetValue(Status);
  lblDescription.SetCaption(Description);
}

void CriterionDialog::GetFormControls() { Status = chkStatus.Value(); }

void CriterionDialog::cmdOK_Click() {
  if (!Validate()) return;
  GetFormControls();
  Save(Values);
}

bool CriterionDialog::Refuse(const std::string& text, const std::string& title, Control* control) {
  toolkit().ShowMessage(text, title, MessageIcon::Exclamation);
  if (control) SetFocus(*control);
  return false;
}

Layout CriterionDialog::Arrange() const {
  return ArrangeBelow({layout::Item(lblH1), layout::Item(lblDescription), layout::Item(chkStatus)});
}

}  // namespace qv
