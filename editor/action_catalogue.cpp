#include "editor/action_catalogue.h"

#include <algorithm>
#include <iterator>

#include "actions/execute_app_dialog.h"
#include "actions/folder_dialog.h"
#include "actions/forward_dialog.h"
#include "actions/message_edit_dialogs.h"
#include "actions/notify_dialogs.h"
#include "actions/plain_dialogs.h"

namespace qv {

namespace {

template <class Dialog>
ActionDialog& The(Run& run) {
  return run.The<Dialog>();
}

using namespace action_types;

// Mark as spam is stored without the full stop that its edits ask for, so that its own tasks are edited as headers.
constexpr ActionItem kItems[] = {
    {"Copy to BadMail", "COPY_TO_BADMAIL", kCopyToBadMail, The<frmTaskBadMail>, true, false},
    {"Copy to Quarantine", "COPY_TO_QUARANTINE", kCopyToQuarantine, The<FrmTaskQuarantine>, true, false},
    {"Delete Message", "DELETE", kDelete, The<frmTaskDeleteMessage>, true, true},
    {"Notify Sender", "NOTIFY_SENDER", kNotifySender, The<frmTaskNotifySender>, true, false},
    {"Notify Recipient", "NOTIFY_RECIPIENTS", kNotifyRecipients, The<frmTaskNotifyRecipients>, true, false},
    {"Notify Address", "NOTIFY_ADDRESS", kNotifyAddress, The<frmTaskNotifyAddress>, true, false},
    {"Forward to Address", "FORWARD_TO_ADDRESS", kForwardToAddress, The<frmForward>, true, false},
    {"Execute Application", "EXECUTE_APPLICATION", kExecuteApplication, The<frmTaskExecuteApp>, true, false},
    {"Add Message Header", "ADD_HEADER", kAddHeader, The<frmTaskAddHeader>, true, false},
    {"Mark as spam", "EXTRA_ACTION_MARKASSPAM", kMarkAsSpam, The<frmTaskMarkasSpam>, true, false,
     "Mark message as spam."},
    {"Stop Processing Filters", "STOP_PROCESSING", kStopProcessing, The<frmTaskGeneric>, true, false},
    {"Add Subject Prefix", "ADD_SUBJECT_PREFIX", kAddSubjectPrefix, The<frmTaskAddPrefix>, true, false},
    {"Move message to folder...", "MOVE", kMove, The<frmTaskGenericFolder>, false, true},
    {"Copy message to folder...", "COPY", kCopy, The<frmTaskGenericFolder>, false, true},
    {"Move message to Junk E-Mail folder", "JUNK", kJunk, The<frmTaskGeneric>, false, true},
    {"Move message to Quarantine folder", "QUARANTINE", kQuarantine, The<frmTaskGeneric>, false, true},
};

template <class Test>
const ActionItem* Find(Test&& test) {
  const auto* found = std::find_if(std::begin(kItems), std::end(kItems), test);
  return found == std::end(kItems) ? nullptr : found;
}

}  // namespace

std::span<const ActionItem> ActionCatalogue() { return kItems; }

const ActionItem* FindActionByKey(std::string_view key) {
  return Find([&](const ActionItem& item) { return item.key == key; });
}

const ActionItem* FindActionByText(std::string_view text) {
  return Find([&](const ActionItem& item) { return item.text == text; });
}

const ActionItem* FindActionForTask(const Task& task) {
  const auto with = [&](std::string_view edits) {
    return Find([&](const ActionItem& item) { return item.type.TaskType == task.TaskType && item.edits == edits; });
  };
  const ActionItem* special = task.Description.empty() ? nullptr : with(task.Description);
  return special ? special : with("");
}

}  // namespace qv
