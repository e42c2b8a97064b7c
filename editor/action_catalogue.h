#pragma once

#include <span>
#include <string_view>

#include "actions/action_dialog.h"
#include "actions/action_types.h"
#include "services/filter_store.h"
#include "services/run.h"

namespace qv {

// An action as a person chooses it.
struct ActionItem {
  std::string_view text;  // in the list of actions
  std::string_view key;   // what the choice gives back; the stored type but for mark as spam
  const ActionType& type;
  ActionDialog& (*dialog)(Run& run);
  bool at_servers;    // offered for system and postoffice filters
  bool at_mailboxes;  // offered for mailbox filters
  // A task of the type whose description is this one belongs here; empty for the item of all the others of the type.
  std::string_view edits = {};
};

// In the order of offering.
std::span<const ActionItem> ActionCatalogue();

// The item, or null where there is none: by its key, by its text in the list, and by the task that is to be edited.
const ActionItem* FindActionByKey(std::string_view key);
const ActionItem* FindActionByText(std::string_view text);
const ActionItem* FindActionForTask(const Task& task);

}  // namespace qv
