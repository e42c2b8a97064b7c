#include "actions/folder_dialog.h"

namespace qv {

namespace {

// The caption speaks of moving for copies too, and stays so. SetType replaces the sentence and the type.
constexpr ActionDialogTraits kTraits{.name = "frmTaskGenericFolder",
                                     .caption = "Action - Move Message",
                                     .sentence = "This action copies the mail message to Quarantine",
                                     .type = action_types::kMove,
                                     .delete_caption = false};

}  // namespace

frmTaskGenericFolder::frmTaskGenericFolder(Run& run) : ForSeveralTypes(run, kTraits) { SetTextBoxes({&txtFolder}); }

}  // namespace qv
