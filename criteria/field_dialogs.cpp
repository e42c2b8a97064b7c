#include "criteria/field_dialogs.h"

#include "platform/text.h"
#include "services/address_utilities.h"
#include "services/text_utilities.h"

namespace qv {

FieldDialog::FieldDialog(Run& run, const CriterionFamily& family, const char* field_name)
    : CriterionDialog(run, family), field(*this, field_name) {
  chkStatus.Click = [this] { chkStatus_Click(); };
}

void FieldDialog::SetFormControls() {
  CriterionDialog::SetFormControls();
  field.SetText(Values);
  chkStatus_Click();
}

void FieldDialog::GetFormControls() {
  CriterionDialog::GetFormControls();
  Values = field.Text();
}

void FieldDialog::chkStatus_Click() { field.SetEnabled(chkStatus.Checked()); }

frmCriteriaSizeLimit::frmCriteriaSizeLimit(Run& run)
    : FieldDialog(run,
                  {"frmCriteriaSizeLimit", "Message Size Criteria", "Description goes here", "Could not load criteria",
                   "Size of message is greater than"},
                  "txtSize") {
  txtSize.SetKeys("0123456789");
  txtSize.GotFocus = [this, &run] { SelectAllOnTab(run, txtSize); };
}

bool frmCriteriaSizeLimit::ValidateField() {
  return IsNumeric(txtSize.Text()) || Refuse("You need to enter a size.", "Warning!", &txtSize);
}

std::vector<Layout> frmCriteriaSizeLimit::Body() const {
  return {layout::Indent({layout::Row({layout::Item(txtSize), layout::Item(Label1)})})};
}

frmCriteriaSpamProbability::frmCriteriaSpamProbability(Run& run)
    : FieldDialog(run,
                  {"frmCriteriaSpamProbability", "Spam probability",
                   "When the message is over a specified spam probability.", "Could not load criteria"},
                  "txtProb") {
  txtProb.SetKeys("0123456789.");
  txtProb.GotFocus = [this, &run] { SelectAllOnTab(run, txtProb); };
}

bool frmCriteriaSpamProbability::ValidateField() {
  const auto probability = NumericValue(txtProb.Text());
  if (!probability) return Refuse("You need to enter a probability.", "Warning!", &txtProb);
  if (*probability <= 0) return Refuse("You need to enter a probability greater than zero.", "Warning!", &txtProb);
  if (*probability > 100) return Refuse("You need to enter a probability less than 100%.", "Warning!", &txtProb);
  return true;
}

std::vector<Layout> frmCriteriaSpamProbability::Body() const {
  return {layout::Indent({layout::Row({layout::Item(txtProb), layout::Item(Label1), layout::Item(Label2)})})};
}

frmCriteriaIPMatch::frmCriteriaIPMatch(Run& run)
    : FieldDialog(run,
                  {"frmCriteriaIPMatch", "Sending IP matches", "Matches IP address from where the message came from"},
                  "txtIP") {
  txtIP.GotFocus = [this, &run] { SelectAllOnTab(run, txtIP); };
}

void frmCriteriaIPMatch::chkStatus_Click() {
  FieldDialog::chkStatus_Click();
  txtIP.SetBack(chkStatus.Checked() ? BackColor::Window : BackColor::ButtonFace);
}

bool frmCriteriaIPMatch::ValidateField() {
  return IsValidIPAddress(run(), Trim(txtIP.Text()), "") ||
         Refuse("You must enter a valid IP address.", "Error", &txtIP);
}

std::vector<Layout> frmCriteriaIPMatch::Body() const { return {layout::Field(Label1, txtIP)}; }

frmCriteriaHeader::frmCriteriaHeader(Run& run)
    : FieldDialog(run,
                  {"frmCriteriaHeader", "Header line", "String exists in a header item.", "Could not load criteria"},
                  "txtString") {}

bool frmCriteriaHeader::ValidateField() {
  return !Trim(txtString.Text()).empty() || Refuse("You need to enter a string to search for.", "Warning!", &txtString);
}

std::vector<Layout> frmCriteriaHeader::Body() const { return {layout::Field(Label1, txtString)}; }

}  // namespace qv
