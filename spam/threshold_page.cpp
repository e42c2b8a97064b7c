#include "spam/threshold_page.h"

#include <optional>
#include <string>

#include "services/filter_rows.h"
#include "services/identifiers.h"
#include "services/server_context.h"
#include "services/text_utilities.h"
#include "spam/spam_filter_script.h"
#include "spam/thresholds.h"

namespace qv {

namespace {

// What a text is lacking as a threshold, as the end of the message; null when it is one.
const char* FaultOf(const std::string& text) {
  const std::optional<double> value = NumericValue(text);
  if (!value) return ".";
  if (*value <= 0) return " greater than zero.";
  if (*value > 100) return " less than 100.";  // 100 itself passes
  return nullptr;
}

}  // namespace

ppgSpamProtection::ppgSpamProtection(Run& run)
    : PropertyPage(run.toolkit, "ppgSpamProtection", "Spam Protection"), run_(run) {
  chkEnabled.Click = [this] { MarkChanged(); };
  for (TextBox* box : Boxes()) {
    box->SetKeys("0123456789");
    box->Change = [this] { MarkChanged(); };
  }
}

Layout ppgSpamProtection::Arrange() const {
  using namespace layout;
  return Framed(Frame1, {Item(Label1), Item(chkEnabled), Noted(Field(Label2, txtLow, 0, {&Label3}), "Low from here on"),
                         Noted(Field(Label4, txtMedium, 0, {&Label5}), "Medium from here on"),
                         Noted(Field(Label6, txtHigh, 0, {&Label7}), "High from here on")});
}

void ppgSpamProtection::MarkChanged() {
  if (ready_) SetChanged(true);
}

void ppgSpamProtection::IMMCPropertyPage_Initialize(const Dictionary& initial_data) {
  ready_ = false;
  Load();
  const std::string host = initial_data.Item("host");
  chkEnabled.SetChecked(GetFilterStatus(run_, std::string(kSpamFilterID), "", "", run_.ServerHost));
  const auto option = run_.components.CreateOption();
  for (std::size_t i = 0; i < kSpamThresholds.size(); ++i) {
    Boxes()[i]->SetText(ReadSpamThreshold(*option, host, kSpamThresholds[i]));
  }
  ready_ = true;
}

bool ppgSpamProtection::IsValid() {
  for (std::size_t i = 0; i < kSpamThresholds.size(); ++i) {
    TextBox& box = *Boxes()[i];
    const char* fault = FaultOf(box.Text());
    if (!fault) continue;
    SetChanged(true);
    run_.toolkit.ShowMessage(std::string("You need to enter a ") + kSpamThresholds[i].word + " threshold" + fault,
                             "Warning!", MessageIcon::Exclamation);
    SetFocus(box);
    return false;
  }
  return true;
}

bool ppgSpamProtection::ApplyChanges() {
  const int enabled = chkEnabled.Value();
  if (enabled == 1 && !IsValid()) return false;
  SetFilterStatus(run_, std::string(kSpamFilterID), enabled, "", "", run_.ServerHost);
  SetProcessMailboxSpamFilters(run_, enabled, run_.ServerHost);
  // Never bound to a host, so the thresholds go to the default server, wherever they were read.
  const auto option = run_.components.CreateOption();
  for (std::size_t i = 0; i < kSpamThresholds.size(); ++i) {
    StoreSpamThreshold(*option, kSpamThresholds[i], Boxes()[i]->Text());
  }
  RebuildSpamFilter(run_);
  SignalFilterReload(run_);
  return true;
}

void ppgSpamProtection::IMMCPropertyPage_Help() { toolkit().ShowHelp("qvhelp.chm::/mailboxfilters.htm"); }

}  // namespace qv
