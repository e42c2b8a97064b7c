#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/console/json_writer.h"
#include "hosts/console/result_pane.h"
#include "hosts/console/scope_tree.h"
#include "hosts/console/sheet.h"
#include "platform/forms.h"

namespace qv {

struct VerbStates {
  bool delete_rows = false, properties = false, refresh = false;
};

// A context menu that is open: what it offers, and of what.
struct OpenMenu {
  std::vector<MMCMenu> new_items, top_items;
  VerbStates verbs;
  bool on_rows = false;
};

struct MessageBoxState {
  std::string text, title;
  MessageIcon icon = MessageIcon::None;
  MessageButtons buttons = MessageButtons::Ok;
};

// Something that an event asked the desktop to start.
struct Started {
  std::string kind;   // "program", "url" or "help"
  std::string value;  // the command line, the address or the topic
};

// The whole visible state of a console.
struct ConsoleState {
  const TreeNode* root = nullptr;
  const TreeNode* selected = nullptr;
  const ResultPane* pane = nullptr;
  VerbStates verbs;
  const OpenMenu* menu = nullptr;
  const Sheet* sheet = nullptr;
  std::vector<const Form*> dialogs;
  const MessageBoxState* message = nullptr;
  const std::vector<Started>* started = nullptr;
};

void WriteState(const ConsoleState& state, JsonWriter& to);

}  // namespace qv
