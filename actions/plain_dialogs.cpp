#include "actions/plain_dialogs.h"

namespace qv {

namespace {

constexpr ActionDialogTraits kBadMail{
    .name = "frmTaskBadMail",
    .caption = "Action - Copy to BadMail",
    .sentence = "This action copies the mail message to the BadMail folder. The original email will not be deleted.",
    .type = action_types::kCopyToBadMail,
    .keeps_status = true};

constexpr ActionDialogTraits kDeleteMessage{.name = "frmTaskDeleteMessage",
                                            .caption = "Action - Delete Message",
                                            .sentence = "This action deletes the mail message",
                                            .type = action_types::kDelete,
                                            .keeps_status = true};

constexpr ActionDialogTraits kQuarantine{.name = "FrmTaskQuarantine",
                                         .caption = "Action - Quarantine Message",
                                         .sentence = "This action copies the mail message to Quarantine",
                                         .type = action_types::kCopyToQuarantine};

constexpr ActionDialogTraits kMarkasSpam{.name = "frmTaskMarkasSpam",
                                         .caption = "Mark message as spam",
                                         .sentence =
                                             "This action marks the message as spam. Spam messages will be sent "
                                             "to the users junk e-mail folder.",
                                         .type = action_types::kMarkAsSpam,
                                         .edit_failure = "Unable to add action",
                                         .keeps_values = false,
                                         .delete_caption = false};

// SetType replaces the sentence and the type.
constexpr ActionDialogTraits kGeneric{.name = "frmTaskGeneric",
                                      .caption = "Action - Generic",
                                      .sentence = "This action copies the mail message to Quarantine",
                                      .type = action_types::kStopProcessing};

}  // namespace

frmTaskBadMail::frmTaskBadMail(Run& run) : PlainActionDialog(run, kBadMail) {}
frmTaskDeleteMessage::frmTaskDeleteMessage(Run& run) : PlainActionDialog(run, kDeleteMessage) {}
FrmTaskQuarantine::FrmTaskQuarantine(Run& run) : PlainActionDialog(run, kQuarantine) {}
frmTaskMarkasSpam::frmTaskMarkasSpam(Run& run) : PlainActionDialog(run, kMarkasSpam) {}
frmTaskGeneric::frmTaskGeneric(Run& run) : ForSeveralTypes(run, kGeneric) {}

void frmTaskGeneric::BeforeLoad() {
  if (EditMode != kAdd) SetCaption("Action - " + Description);
}

}  // namespace qv
