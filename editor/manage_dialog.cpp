#include "editor/manage_dialog.h"

#include "editor/script_editor.h"
#include "editor/script_files.h"
#include "platform/text.h"
#include "services/server_context.h"

namespace qv {

namespace {

// The heights without and with the notice that filters are disabled, and where the notice begins.
constexpr int kHeight = 7995, kHeightWithNotice = 8775, kNoticeTop = 7710;

}  // namespace

frmManage::frmManage(Run& run)
    : Form(run.toolkit, "frmManage", "Filter Management"),
      run_(run),
      criteria_(run, lvwCriteria),
      actions_(run, {lvwActions, cmdAdd, cmdDelete, cmdUp, cmdDown}) {
  cmdAdvancedScripting.SetEnabled(false);
  lblDisabled.SetTop(kNoticeTop);
  optStandardCriteria.Click = [this] { SetStandardCriteriaMode(); };
  optAdvancedScripting.Click = [this] { SetCriteriaScriptMode(); };
  cmdAdvancedScripting.Click = [this] { cmdAdvancedScripting_Click(); };
  cmdClose.Click = [this] { cmdClose_Click(); };
}

Layout frmManage::Arrange() const {
  using namespace layout;
  return Column(
      {Grow(Framed(Frame1, {Item(Label1),
                            Row({Item(optStandardCriteria), Item(optAdvancedScripting), Item(cmdAdvancedScripting)}),
                            Grow(Item(lvwCriteria, 10))})),
       Framed(Frame2, {Item(Label2), Side(Item(lvwActions, 6), {&cmdAdd, &cmdDelete, &cmdUp, &cmdDown})}),
       Item(lblDisabled), Buttons({&cmdClose})});
}

void frmManage::EditFilter(std::string& ID, const std::string& Postoffice, const std::string& Mailbox,
                           const std::string& Host) {
  postoffice_ = Postoffice;
  mailbox_ = Mailbox;
  host_ = Host;
  if (TextLength(ID) > 3 && UpperCase(Left(ID, 3)) == "FLT") ID = "CRT" + Mid(ID, 3);
  ShowPrepared([&] { Prepare(ID); });
}

void frmManage::Prepare(const std::string& id) {
  const bool offered = GetScriptingStatus(run_) != 0 && mailbox_.empty();
  OfferScripting(offered);
  if (offered) {
    if (GetCriteriaScriptState(run_, id, postoffice_) == kScriptActive) {
      SetCriteriaScriptMode();
    } else {
      SetStandardCriteriaMode();
    }
    if (IsRemoteHost(run_.ServerHost)) {
      ShowRemoteWarning();
      SetStandardCriteriaMode();
    }
  } else {
    optStandardCriteria.SetChecked(true);
  }

  const bool filtering = IsFilteringEnabled(run_, host_) != 0;
  SetHeight(filtering ? kHeight : kHeightWithNotice);
  lblDisabled.SetVisible(!filtering);

  criteria_.Bind(postoffice_, mailbox_, host_);
  criteria_.lvLoadCriteria(id, lvwCriteria, 0);
  id_ = id;
  actions_.Open(id_, postoffice_, mailbox_, host_);
  SetFocus(lvwCriteria.Usable() ? static_cast<Control&>(lvwCriteria) : cmdAdvancedScripting);
}

void frmManage::OfferScripting(bool offered) {
  optAdvancedScripting.SetVisible(offered);
  cmdAdvancedScripting.SetVisible(offered);
  optStandardCriteria.SetVisible(offered);
}

void frmManage::SetStandardCriteriaMode() {
  optStandardCriteria.SetChecked(true);
  optAdvancedScripting.SetChecked(false);
  cmdAdvancedScripting.SetEnabled(false);
  lvwCriteria.SetEnabled(true);
}

void frmManage::SetCriteriaScriptMode() {
  optAdvancedScripting.SetChecked(true);
  optStandardCriteria.SetChecked(false);
  cmdAdvancedScripting.SetEnabled(true);
  lvwCriteria.SetEnabled(false);
}

void frmManage::ShowRemoteWarning() {
  run_.toolkit.ShowMessage(
      "Warning: You cannot remotely edit advanced scripting. This must be done from the console of the server itself",
      "Advanced Scripting", MessageIcon::Information);
}

// The script's files are local, so the editor isn't told the host.
void frmManage::cmdAdvancedScripting_Click() {
  auto& editor = run_.The<frmScriptEditor>();
  editor.CriteriaID = id_;
  editor.Postoffice = postoffice_;
  editor.ShowModal();
}

// A remote console can leave the dialog by its close box only.
void frmManage::cmdClose_Click() {
  if (IsRemoteHost(run_.ServerHost)) {
    ShowRemoteWarning();
    return;
  }
  const bool active = GetCriteriaScriptState(run_, id_, postoffice_) == kScriptActive;
  if (optAdvancedScripting.Checked()) {
    if (!active) EnableCriteriaScript(run_, id_, true, postoffice_);
  } else if (active) {
    DisableCriteriaScript(run_, id_, true, postoffice_);
  }
  Unload();
}

}  // namespace qv
