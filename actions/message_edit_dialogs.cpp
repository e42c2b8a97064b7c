#include "actions/message_edit_dialogs.h"

#include "platform/text.h"

namespace qv {

namespace {

constexpr ActionDialogTraits kAddHeaderTraits{
    .name = "frmTaskAddHeader",
    .caption = "Add Header",
    .sentence = "This action adds a header item to the message. If the header item already exists it will be replaced.",
    .type = action_types::kAddHeader,
    .edit_failure = "Unable to add action"};

constexpr ActionDialogTraits kAddPrefixTraits{
    .name = "frmTaskAddPrefix",
    .caption = "Add Subject Prefix",
    .sentence =
        "This action adds a prefix to the subject of the message. If the prefix already exists for the subject, "
        "it will not be added.",
    .type = action_types::kAddSubjectPrefix,
    .edit_failure = "Unable to add action"};

}  // namespace

frmTaskAddHeader::frmTaskAddHeader(Run& run) : TextActionDialog(run, kAddHeaderTraits) {
  SetTextBoxes({&txtHeaderItem, &txtHeaderValue});
}

bool frmTaskAddHeader::Validate() {
  if (!Filled(txtHeaderItem, "You need to enter a header item.")) return false;
  if (!Filled(txtHeaderValue, "You need to enter a header value.")) return false;
  const std::string& item = txtHeaderItem.Text();
  if (EndsWith(item, ":")) txtHeaderItem.SetText(item.substr(0, item.size() - 1));
  return true;
}

std::vector<Layout> frmTaskAddHeader::Fields() const {
  return {layout::Field(Label1, txtHeaderItem), layout::Field(Label2, txtHeaderValue)};
}

frmTaskAddPrefix::frmTaskAddPrefix(Run& run) : TextActionDialog(run, kAddPrefixTraits) { SetTextBoxes({&txtPrefix}); }

bool frmTaskAddPrefix::Validate() { return Filled(txtPrefix, "You need to enter a subject prefix."); }

std::vector<Layout> frmTaskAddPrefix::Fields() const { return {layout::Field(Label1, txtPrefix)}; }

}  // namespace qv
