#include "hosts/console/state_writer.h"

#include <algorithm>

#include "hosts/console/form_writer.h"

namespace qv {

namespace {

void WriteNode(const TreeNode& node, const TreeNode* selected, JsonWriter& to) {
  to.Object([&] {
    to.Field("id", node.id);
    to.Field("name", node.caption());
    to.Field("image", node.image);
    to.Field("selected", &node == selected);
    to.Field("expandable", node.expandable);
    to.Field("expanded", node.expanded);
    to.Array("children", node.children, [&](const auto& child) { WriteNode(*child, selected, to); });
  });
}

// The cells that are set off, where there are any.
void WriteEmphasis(const ListItem& item, const ListView& list, JsonWriter& to) {
  const auto set_off = [&list](const ListSubItem& cell) { return list.Emphasis.count(std::string(cell.Key)) != 0; };
  if (list.Emphasis.empty()) return;
  std::vector<std::size_t> cells;
  std::size_t number = 0;
  for (const ListSubItem& cell : item.SubItems) {
    if (set_off(cell)) cells.push_back(number);
    ++number;
  }
  if (!cells.empty()) to.Array("emphasis", cells, [&to](std::size_t cell) { to.Value(cell); });
}

void WriteItem(const ListItem& item, const ListView& list, bool selected, JsonWriter& to) {
  to.Object([&] {
    to.Field("key", item.Key);
    to.Field("tag", item.Tag);
    to.Field("text", item.Text);
    to.Field("icon", item.Icon);
    to.Array("cells", item.SubItems, [&to](const ListSubItem& cell) { to.Value(cell.Text); });
    to.Field("selected", selected);
    WriteEmphasis(item, list, to);
  });
}

void WriteView(const ResultPane& pane, JsonWriter& to) {
  const ListView& list = pane.ResultView->ListView;
  const std::size_t first = std::min(pane.offset(), pane.Count());
  const std::size_t last = std::min(first + ResultPane::kWindow, pane.Count());
  to.Object([&] {
    to.Field("name", list.Name);
    to.Field("tag", list.Tag);
    to.Field("host", pane.host());
    to.Array("columns", list.Columns, [&to](const ListColumn& column) {
      to.Object([&] {
        to.Field("key", column.Key);
        to.Field("caption", column.Caption);
        to.Field("width", column.Width);
      });
    });
    to.Key("sort");
    if (pane.sort()) {
      to.Object([&] {
        to.Field("column", pane.sort()->column);
        to.Field("descending", pane.sort()->descending);
      });
    } else {
      to.Null();
    }
    if (pane.CanFilter()) to.Field("filter", pane.filter());
    to.Field("total", pane.Count());
    to.Field("offset", first);
    to.Key("items").Open('[');
    ListItem made;
    for (std::size_t n = first; n < last; ++n) WriteItem(pane.Shown(n, made), list, pane.IsSelected(n), to);
    to.Close(']');
  });
}

void WriteVerbs(const VerbStates& verbs, JsonWriter& to) {
  to.Object([&] {
    to.Field("delete", verbs.delete_rows);
    to.Field("properties", verbs.properties);
    to.Field("refresh", verbs.refresh);
  });
}

void WriteMenuItems(const char* key, const std::vector<MMCMenu>& items, JsonWriter& to) {
  to.Array(key, items, [&to](const MMCMenu& item) {
    to.Object([&] {
      to.Field("name", item.Name);
      to.Field("caption", item.Caption);
      to.Field("enabled", item.Enabled && !item.Grayed);
    });
  });
}

void WriteMenu(const OpenMenu& menu, JsonWriter& to) {
  to.Object([&] {
    WriteMenuItems("new", menu.new_items, to);
    WriteMenuItems("top", menu.top_items, to);
    to.Key("verbs").Open('[');
    if (menu.verbs.delete_rows) to.Value("delete");
    if (menu.verbs.properties) to.Value("properties");
    if (menu.verbs.refresh) to.Value("refresh");
    to.Close(']');
  });
}

void WriteSheet(const Sheet& sheet, JsonWriter& to) {
  to.Object([&] {
    to.Field("title", sheet.title());
    to.Array("pages", sheet.pages(), [&to](const Sheet::Page& page) {
      to.Object([&] {
        to.Field("name", page.name);
        to.Field("caption", page.caption);
        to.Field("help", page.help);
      });
    });
    to.Field("active", sheet.active());
    to.Field("changed", sheet.Changed());
    to.Key("form");
    WriteForm(sheet.Front(), to);
  });
}

const char* NameOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Critical:
      return "critical";
    case MessageIcon::Question:
      return "question";
    case MessageIcon::Exclamation:
      return "exclamation";
    case MessageIcon::Information:
      return "information";
    case MessageIcon::None:
      break;
  }
  return "none";
}

void WriteMessage(const MessageBoxState& message, JsonWriter& to) {
  to.Object([&] {
    to.Field("title", message.title);
    to.Field("text", message.text);
    to.Field("icon", NameOf(message.icon));
    to.Key("buttons").Raw(message.buttons == MessageButtons::YesNo ? R"(["yes","no"])" : R"(["ok"])");
  });
}

void WriteStarted(const Started& started, JsonWriter& to) {
  to.Object([&] {
    to.Field("kind", started.kind);
    to.Field(started.kind == "program" ? "command" : started.kind == "url" ? "address" : "topic", started.value);
  });
}

// A part of the state that may be missing.
template <class Part, class Write>
void WriteOrNull(const char* key, const Part* part, Write&& write, JsonWriter& to) {
  to.Key(key);
  if (part) {
    write(*part, to);
  } else {
    to.Null();
  }
}

}  // namespace

void WriteState(const ConsoleState& state, JsonWriter& to) {
  to.Object([&] {
    to.Key("tree");
    WriteNode(*state.root, state.selected, to);
    WriteOrNull("view", state.pane && state.pane->ResultView ? state.pane : nullptr, WriteView, to);
    to.Key("verbs");
    WriteVerbs(state.verbs, to);
    WriteOrNull("menu", state.menu, WriteMenu, to);
    WriteOrNull("sheet", state.sheet, WriteSheet, to);
    to.Array("dialogs", state.dialogs, [&to](const Form* form) { WriteForm(*form, to); });
    WriteOrNull("message", state.message, WriteMessage, to);
    to.Array("started", *state.started, [&to](const Started& started) { WriteStarted(started, to); });
  });
}

}  // namespace qv
