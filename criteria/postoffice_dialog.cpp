#include "criteria/postoffice_dialog.h"

#include <memory>

#include "platform/runtime_error.h"

namespace qv {

namespace {

void SetSearch(Postoffice& postoffice) {
  postoffice.Account.clear();
  postoffice.Name.clear();
  postoffice.Status = -1;
}

// An error passes over to the next call; a second one on end finds nothing more.
bool FindNext(Postoffice& postoffice) {
  bool answered = false, found = false;
  for (int attempt = 0; attempt < 2 && !answered; ++attempt) {
    IgnoreErrors([&] {
      SetSearch(postoffice);
      found = postoffice.FindNextPostoffice() == 1;
      answered = true;
    });
  }
  return found;
}

}  // namespace

frmCriteriaForPostoffice::frmCriteriaForPostoffice(Run& run)
    : CriterionDialog(run, {"frmCriteriaForPostoffice", "For Postoffice", "Email going to postoffice"}) {}

void frmCriteriaForPostoffice::LoadPostoffices() {
  std::unique_ptr<qv::Postoffice> postoffice;
  bool found = false;
  IgnoreErrors([&] {
    postoffice = run().components.CreatePostoffice();
    lstPostoffices.Clear();
    postoffice->Host = Host;
    postoffice->SetHost();
    SetSearch(*postoffice);
    found = postoffice->FindFirstPostoffice() == 1;
  });
  while (found) {
    lstPostoffices.AddItem(postoffice->Name);
    if (!Values.empty() && Values == postoffice->Name) lstPostoffices.SetListIndex(lstPostoffices.ListCount() - 1);
    found = FindNext(*postoffice);
  }
  if (lstPostoffices.ListIndex() < 0 && lstPostoffices.ListCount() > 0) lstPostoffices.SetListIndex(0);
}

void frmCriteriaForPostoffice::GetFormControls() {
  CriterionDialog::GetFormControls();
  Values = lstPostoffices.Text();
}

std::vector<Layout> frmCriteriaForPostoffice::Body() const {
  return {layout::Grow(layout::Field(Label1, lstPostoffices, 8))};
}

}  // namespace qv
