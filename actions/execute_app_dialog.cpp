#include "actions/execute_app_dialog.h"

namespace qv {

namespace {

constexpr ActionDialogTraits kTraits{.name = "frmTaskExecuteApp",
                                     .caption = "Execute application",
                                     .sentence = "This action executes an application. ",
                                     .type = action_types::kExecuteApplication,
                                     .add_failure = "Unable to add action",
                                     .edit_failure = "Unable to add action",
                                     .not_found = "Action Not Found",
                                     .delete_caption = false};

}  // namespace

frmTaskExecuteApp::frmTaskExecuteApp(Run& run) : TextActionDialog(run, kTraits) {
  SetTextBoxes({&txtApp, &txtParameters});
}

bool frmTaskExecuteApp::Validate() { return Filled(txtApp, "You need to select the application to execute."); }

std::vector<Layout> frmTaskExecuteApp::Fields() const {
  return {layout::Field(Label1, txtApp), layout::Field(Label2, txtParameters), layout::Item(Label3),
          layout::Indent({layout::Item(Label4), layout::Item(Label5), layout::Item(Label6)})};
}

}  // namespace qv
