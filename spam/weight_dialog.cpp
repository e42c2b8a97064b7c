#include "spam/weight_dialog.h"

#include "platform/text.h"
#include "services/text_utilities.h"
#include "spam/spam_filter_script.h"

namespace qv {

frmAdjustSpamWeight::frmAdjustSpamWeight(Run& run)
    : Form(run.toolkit, "frmAdjustSpamWeight", "Adjust spam weight values"), run_(run) {
  for (TextBox* box : {&txtPositive, &txtNegative}) {
    box->SetKeys("0123456789");
    box->GotFocus = [this, box] { SelectAllOnTab(run_, *box); };
  }
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { Unload(); };
}

Layout frmAdjustSpamWeight::Arrange() const {
  using namespace layout;
  return Column({Item(Label1), Field(Label2, txtPositive), Field(Label3, txtNegative), Buttons({&cmdOK, &cmdCancel})});
}

void frmAdjustSpamWeight::AdjustSpamWeight(const std::string& token, const std::string& positive,
                                           const std::string& negative, const std::string& /*host*/) {
  token_ = token;
  Load();
  txtPositive.SetText(positive);
  txtNegative.SetText(negative);
  txtPositive.Select(0, TextLength(positive));
  ShowModal();
}

void frmAdjustSpamWeight::cmdOK_Click() {
  UpdateSpamWeight(run_, token_, txtPositive.Text(), txtNegative.Text());
  Unload();
}

}  // namespace qv
