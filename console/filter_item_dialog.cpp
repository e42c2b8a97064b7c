#include "console/filter_item_dialog.h"

#include <memory>

#include "criteria/criterion_catalogue.h"
#include "platform/runtime_error.h"
#include "services/filter_rows.h"
#include "services/identifiers.h"
#include "services/server_context.h"
#include "services/text_utilities.h"

namespace qv {

namespace {

constexpr int kMaximumFilters = 100;
constexpr std::size_t kMaximumName = 127;

// The heights of the form while a filter is added, which show or hide the notice, and what decides what they hide.
constexpr int kAddHeight = 2265, kAddHeightWithNotice = 3195, kEditClientHeight = 2775;
constexpr int kNoticeTop = 1920, kSortOrderTop = 3360;

}  // namespace

frmFilterItem::frmFilterItem(Run& run) : Form(run.toolkit, "frmFilterItem", "Filter Properties"), run_(run) {
  SetDesignedClientHeight(kEditClientHeight);
  txtName.SetMaxLength(kMaximumName);
  Label2.SetTop(kNoticeTop);
  fmeSortOrder.SetTop(kSortOrderTop);
  txtName.GotFocus = [this] { SelectAllOnTab(run_, txtName); };
  cmdOK.Click = [this] {
    if (!SaveFilter()) return;
    saved_ = true;
    Unload();
  };
  cmdCancel.Click = [this] {
    saved_ = false;
    Unload();
  };
}

Layout frmFilterItem::Arrange() const {
  using namespace layout;
  return Column({Framed(Frame2, {Field(Label1, txtName), Item(chkStatus)}), Item(Label2),
                 Framed(fmeSortOrder, {Item(optOrder0), Indent({Item(lstFilters, 4)}), Item(optOrder1)}),
                 Buttons({&cmdOK, &cmdCancel})});
}

bool frmFilterItem::AddFilter(std::string& description, const std::string& postoffice, const std::string& mailbox,
                              const std::string& host) {
  AddMode = 1;
  saved_ = false;
  postoffice_ = postoffice;
  mailbox_ = mailbox;
  host_ = host;
  const bool filtering = IsFilteringEnabled(run_, host_) != 0;
  Load();
  SetHeight(filtering ? kAddHeight : kAddHeightWithNotice);
  ShowModal();
  description = Description;
  return saved_;
}

void frmFilterItem::Form_Load() {
  IgnoreErrors([this] { LoadFilters(lstFilters); });
  try {
    lstFilters.SetListIndex(0);
  } catch (const RuntimeError&) {
    lstFilters.SetEnabled(false);
  }
  if (AddMode == 1) {
    SetCaption("Add New Filter Item");
    ActionID.clear();
    CriteriaID.clear();
    Description.clear();
    FilterEntryID.clear();
    Note.clear();
  } else {
    SetCaption("Filter Properties");
    LoadForEdit();
  }
}

void frmFilterItem::LoadForEdit() {
  std::unique_ptr<Filter> filter;
  int found = 0;
  IgnoreErrors([&] { filter = run_.components.CreateFilter(); });
  if (filter) {
    filter->Host = host_;
    IgnoreErrors([&] { filter->SetHost(); });
    SetFetchTemplate(*filter, FilterEntryID, postoffice_, mailbox_);
    IgnoreErrors([&] { found = filter->getfilter(); });
  }
  if (found == 0) {
    ShowError("Filter Not Found");
    Unload();
    return;
  }
  ActionID = filter->ActionID;
  CriteriaID = filter->CriteriaID;
  Description = filter->Description;
  FilterEntryID = filter->FilterEntryID;
  Note = filter->Note;
  Status = filter->Status;
  txtName.SetText(Description);
  chkStatus.SetValue(Status);
  fmeSortOrder.SetEnabled(false);
  optOrder0.SetEnabled(false);
  optOrder1.SetEnabled(false);
  lstFilters.SetEnabled(false);
}

void frmFilterItem::LoadFilters(ListControl& list) {
  list.Clear();
  const auto filter = run_.components.CreateFilter();
  filter->Host = host_;
  filter->SetHost();
  int number = 0;
  ForEachFilter(*filter, postoffice_, mailbox_, [&](const Filter& row) {
    list.AddItem("Filter (" + std::to_string(++number) + ") - " + row.Description);
  });
}

bool frmFilterItem::SaveFilter() {
  try {
    return AddMode == 1 ? AddNewFilter() : UpdateFilter();
  } catch (const RuntimeError& error) {
    ShowError("Could not save filter:" + error.description());
    return false;
  }
}

bool frmFilterItem::AddNewFilter() {
  Description = txtName.Text();
  Status = chkStatus.Value();
  if (CountFilters() >= kMaximumFilters) {
    run_.toolkit.ShowMessage("A maximum of 100 filters can be created.", "Warning", MessageIcon::Exclamation);
    return false;
  }
  if (Description.empty()) {
    ShowError("You must specify a description for the Filter");
    return false;
  }
  const std::string id = NewGuidString(run_.guids);
  const auto filter = run_.components.CreateFilter();
  filter->Host = host_;
  filter->SetHost();
  filter->ActionID = ActionID;
  filter->FilterEntryID = "FLT" + id;
  filter->Description = Description;
  filter->Note = Note;
  filter->CriteriaID = "CRT" + id;
  filter->Status = Status;
  filter->Postoffice = postoffice_;
  filter->Mailbox = mailbox_;
  // A filter that the store refuses is told, and gets its criteria all the same.
  if (filter->AddFilter() == 0) ShowError("Unable to Add Filter");
  CreateNewCriteria("CRT" + id);
  return true;
}

// The system filters of the console's server, whatever the scope in hand: the limit counts no others.
int frmFilterItem::CountFilters() {
  const auto filter = run_.components.CreateFilter();
  filter->Host = run_.ServerHost;
  filter->SetHost();
  int count = 0;
  ForEachFilter(*filter, "", "", [&count](const Filter&) { ++count; });
  return count;
}

void frmFilterItem::CreateNewCriteria(const std::string& criteria_id) {
  const auto criteria = run_.components.CreateCriteria();
  criteria->Host = host_;
  criteria->SetHost();
  criteria->CriteriaID = criteria_id;
  criteria->CriteriaType.clear();
  criteria->Status = 0;
  criteria->Values.clear();
  criteria->Frequency = 1;
  criteria->Mailbox = mailbox_;
  criteria->Postoffice = postoffice_;
  for (const CriterionRow& row : CriterionCatalogue()) {
    criteria->Description = row.Description;
    criteria->RuleID = row.RuleID;
    criteria->AddCriteria();
  }
}

bool frmFilterItem::UpdateFilter() {
  const auto filter = run_.components.CreateFilter();
  filter->Host = host_;
  filter->SetHost();
  SetFetchTemplate(*filter, FilterEntryID, postoffice_, mailbox_);
  const int result =
      filter->EditFilter(FilterEntryID, chkStatus.Value(), txtName.Text(), ActionID, Note, CriteriaID, 0);
  if (result == 1) return true;
  ShowError("The update to the filter failed.");
  return false;
}

void frmFilterItem::ShowError(const std::string& text) {
  run_.toolkit.ShowMessage(text, "Error", MessageIcon::Critical);
}

}  // namespace qv
