#include "console/filter_pages.h"

#include "console/filter_item_dialog.h"
#include "editor/manage_dialog.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "services/filter_rows.h"

namespace qv {

namespace {

constexpr FilterPage::Kind kMailboxPage = {"ppgMailboxFilters",
                                           "Enable filters for this mailbox",
                                           "Filters configured for mailbox. Double click filter to edit.",
                                           "Error loading filters for mailbox:",
                                           "MailBox-MailboxRulesStatus",
                                           2,
                                           true};
constexpr FilterPage::Kind kPostofficePage = {"ppgPostofficeFilters",
                                              "Enable filters for this postoffice",
                                              "Filters configured for postoffice. Double click filter to edit.",
                                              "Error loading filters for postoffice:",
                                              "Postoffice-PostofficeRulesStatus",
                                              1,
                                              false};

}  // namespace

ppgMailboxFilters::ppgMailboxFilters(Run& run) : FilterPage(run, kMailboxPage) {}

ppgPostofficeFilters::ppgPostofficeFilters(Run& run) : FilterPage(run, kPostofficePage) {}

FilterPage::FilterPage(Run& run, const Kind& kind)
    : PropertyPage(run.toolkit, kind.class_name, "Filters"),
      chkEnabled(*this, "chkEnabled", kind.enabled_caption),
      Label1(*this, "Label1", kind.list_caption, Label::Look::Help),
      run_(run),
      kind_(kind),
      order_(run, {lvwFilters, cmdUp, cmdDown}) {
  chkEnabled.Click = [this] {
    if (initialized_) SetChanged(true);
  };
  lvwFilters.Click = [this] { lvwFilters_Click(); };
  lvwFilters.DblClick = [this] { cmdEdit_Click(); };
  cmdAdd.Click = [this] { cmdAdd_Click(); };
  cmdEdit.Click = [this] { cmdEdit_Click(); };
  cmdDelete.Click = [this] { cmdDelete_Click(); };
  cmdEnable.Click = [this] { SetStatus(1); };
  cmdDisable.Click = [this] { SetStatus(0); };
}

Layout FilterPage::Arrange() const {
  using namespace layout;
  return Column({Item(chkEnabled), Item(Label1),
                 Grow(Side(Grow(Item(lvwFilters, 12)),
                           {&cmdAdd, &cmdEdit, &cmdDelete, &cmdEnable, &cmdDisable, &cmdUp, &cmdDown}))});
}

void FilterPage::IMMCPropertyPage_Initialize(const Dictionary& initial_data) {
  try {
    initialized_ = false;
    postoffice_ = initial_data.Item("postoffice");
    if (kind_.of_mailbox) mailbox_ = initial_data.Item("mailbox");
    host_ = initial_data.Item("host");
    order_.Bind(postoffice_, mailbox_, host_);
    LoadFilterList();
    // The person has yet to pick a row.
    cmdUp.SetEnabled(false);
    cmdDown.SetEnabled(false);
    cmdEdit.SetEnabled(false);
    const auto option = CreateOption();
    option->GetOption();
    chkEnabled.SetChecked(Trim(option->Value) == "1");
    initialized_ = true;
  } catch (const RuntimeError& error) {
    run_.toolkit.ShowMessage(kind_.load_error + error.description(), "Error", MessageIcon::Critical);
  }
}

void FilterPage::IMMCPropertyPage_Help() { run_.toolkit.ShowHelp("qvhelp.chm::/mailboxfilters.htm"); }

bool FilterPage::ApplyChanges() {
  const auto option = CreateOption();
  option->Value = chkEnabled.Checked() ? "1" : "0";
  option->SetOption();
  return true;
}

// The option of the switch, ready to be read or written.
std::unique_ptr<Option> FilterPage::CreateOption() const {
  auto option = run_.components.CreateOption();
  option->Host = host_;
  option->SetHost();
  option->Scope = kind_.option_scope;
  option->Query = kind_.of_mailbox ? postoffice_ + "/" + mailbox_ : postoffice_;
  option->ValueName = kind_.option;
  return option;
}

void FilterPage::LoadFilterList() {
  order_.LoadFilterList();
  if (lvwFilters.Count() > 0) return;
  cmdDelete.SetEnabled(false);
  cmdEnable.SetEnabled(false);
  cmdDisable.SetEnabled(false);
}

const ListRow* FilterPage::SelectedRow() const {
  return lvwFilters.Selected() < 0 ? nullptr : &lvwFilters.Row(lvwFilters.Selected());
}

void FilterPage::lvwFilters_Click() {
  if (lvwFilters.Count() == 0) {
    cmdDown.SetEnabled(false);
    cmdUp.SetEnabled(false);
    cmdEdit.SetEnabled(false);
    return;
  }
  cmdDelete.SetEnabled(true);
  cmdEnable.SetEnabled(true);
  cmdDisable.SetEnabled(true);
  cmdEdit.SetEnabled(true);
  order_.UpdateMoveButtons();
}

void FilterPage::cmdAdd_Click() {
  try {
    std::string description;
    if (run_.The<frmFilterItem>().AddFilter(description, postoffice_, mailbox_, host_)) LoadFilterList();
  } catch (const RuntimeError& error) {
    run_.toolkit.ShowMessage("Failed to add filter: " + error.description(), "Error", MessageIcon::Critical);
  }
}

// The list isn't loaded again: the management dialog changes nothing that it shows.
void FilterPage::cmdEdit_Click() {
  const ListRow* row = SelectedRow();
  if (!row) return;
  std::string id = row->Key;
  run_.The<frmManage>().EditFilter(id, postoffice_, mailbox_, host_);
}

void FilterPage::cmdDelete_Click() {
  const ListRow* row = SelectedRow();
  if (!row) return;
  const std::string id = row->Key;
  if (run_.toolkit.ShowMessage("Are you sure you wish to delete the filter '" + row->Text + "'?", "Delete",
                               MessageIcon::Critical, MessageButtons::YesNo) != MessageAnswer::Yes) {
    return;
  }
  RemoveFilterEntry(run_, id, postoffice_, mailbox_, host_);
  LoadFilterList();
}

void FilterPage::SetStatus(int status) {
  const ListRow* row = SelectedRow();
  if (!row) return;
  SetFilterStatus(run_, row->Key, status, postoffice_, mailbox_, host_);
  LoadFilterList();
}

}  // namespace qv
