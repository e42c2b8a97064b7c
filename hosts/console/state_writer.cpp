#include "hosts/console/state_writer.h"

#include <algorithm>

#include "hosts/console/form_writer.h"

namespace qv {

namespace json = boost::json;

namespace {

json::object WriteNode(const TreeNode& node, const TreeNode* selected, const json::storage_ptr& memory) {
  json::object to(memory);
  to["id"] = node.id;
  to["name"] = node.caption();
  to["image"] = node.image;
  to["selected"] = &node == selected;
  to["expandable"] = node.expandable;
  to["expanded"] = node.expanded;
  json::array children(memory);
  for (const auto& child : node.children) children.emplace_back(WriteNode(*child, selected, memory));
  to["children"] = std::move(children);
  return to;
}

json::object WriteItem(const ListItem& item, bool selected, const json::storage_ptr& memory) {
  json::object to(memory);
  to["key"] = item.Key;
  to["tag"] = item.Tag;
  to["text"] = item.Text;
  to["icon"] = item.Icon;
  json::array cells(memory);
  for (const ListSubItem& cell : item.SubItems) cells.emplace_back(cell.Text);
  to["cells"] = std::move(cells);
  to["selected"] = selected;
  return to;
}

json::object WriteView(const ResultPane& pane, const json::storage_ptr& memory) {
  const ListView& list = pane.ResultView->ListView;
  json::object to(memory);
  to["name"] = list.Name;
  to["tag"] = list.Tag;
  to["host"] = pane.host();
  json::array columns(memory);
  for (const ListColumn& column : list.Columns) {
    json::object& at = columns.emplace_back(json::object(memory)).get_object();
    at["key"] = column.Key;
    at["caption"] = column.Caption;
    at["width"] = column.Width;
  }
  to["columns"] = std::move(columns);
  if (pane.sort()) {
    json::object sort(memory);
    sort["column"] = pane.sort()->column;
    sort["descending"] = pane.sort()->descending;
    to["sort"] = std::move(sort);
  } else {
    to["sort"] = nullptr;
  }
  if (pane.CanFilter()) to["filter"] = pane.filter();
  const auto& shown = pane.Shown();
  const std::size_t first = std::min(pane.offset(), shown.size());
  const std::size_t last = std::min(first + ResultPane::kWindow, shown.size());
  to["total"] = shown.size();
  to["offset"] = first;
  json::array items(memory);
  items.reserve(last - first);
  for (std::size_t n = first; n < last; ++n) {
    items.emplace_back(WriteItem(*shown[n], pane.IsSelected(*shown[n]), memory));
  }
  to["items"] = std::move(items);
  return to;
}

json::object WriteVerbs(const VerbStates& verbs, const json::storage_ptr& memory) {
  json::object to(memory);
  to["delete"] = verbs.delete_rows;
  to["properties"] = verbs.properties;
  to["refresh"] = verbs.refresh;
  return to;
}

json::array WriteMenuItems(const std::vector<MMCMenu>& items, const json::storage_ptr& memory) {
  json::array to(memory);
  for (const MMCMenu& item : items) {
    json::object& at = to.emplace_back(json::object(memory)).get_object();
    at["name"] = item.Name;
    at["caption"] = item.Caption;
    at["enabled"] = item.Enabled && !item.Grayed;
  }
  return to;
}

json::object WriteMenu(const OpenMenu& menu, const json::storage_ptr& memory) {
  json::object to(memory);
  to["new"] = WriteMenuItems(menu.new_items, memory);
  to["top"] = WriteMenuItems(menu.top_items, memory);
  json::array verbs(memory);
  if (menu.verbs.delete_rows) verbs.emplace_back("delete");
  if (menu.verbs.properties) verbs.emplace_back("properties");
  if (menu.verbs.refresh) verbs.emplace_back("refresh");
  to["verbs"] = std::move(verbs);
  return to;
}

json::object WriteSheet(const Sheet& sheet, const json::storage_ptr& memory) {
  json::object to(memory);
  to["title"] = sheet.title();
  json::array pages(memory);
  for (const Sheet::Page& page : sheet.pages()) {
    json::object& at = pages.emplace_back(json::object(memory)).get_object();
    at["name"] = page.name;
    at["caption"] = page.caption;
    at["help"] = page.help;
  }
  to["pages"] = std::move(pages);
  to["active"] = sheet.active();
  to["changed"] = sheet.Changed();
  to["form"] = WriteForm(sheet.Front(), memory);
  return to;
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

json::object WriteMessage(const MessageBoxState& message, const json::storage_ptr& memory) {
  json::object to(memory);
  to["title"] = message.title;
  to["text"] = message.text;
  to["icon"] = NameOf(message.icon);
  json::array buttons(memory);
  if (message.buttons == MessageButtons::YesNo) {
    buttons.emplace_back("yes");
    buttons.emplace_back("no");
  } else {
    buttons.emplace_back("ok");
  }
  to["buttons"] = std::move(buttons);
  return to;
}

json::object WriteStarted(const Started& started, const json::storage_ptr& memory) {
  json::object to(memory);
  to["kind"] = started.kind;
  const char* field = started.kind == "program" ? "command" : started.kind == "url" ? "address" : "topic";
  to[field] = started.value;
  if (!started.file.empty()) to["file"] = started.file;
  return to;
}

}  // namespace

json::value WriteState(const ConsoleState& state, const json::storage_ptr& memory) {
  json::object to(memory);
  to["tree"] = WriteNode(*state.root, state.selected, memory);
  if (state.pane && state.pane->ResultView) {
    to["view"] = WriteView(*state.pane, memory);
  } else {
    to["view"] = nullptr;
  }
  to["verbs"] = WriteVerbs(state.verbs, memory);
  if (state.menu) {
    to["menu"] = WriteMenu(*state.menu, memory);
  } else {
    to["menu"] = nullptr;
  }
  if (state.sheet) {
    to["sheet"] = WriteSheet(*state.sheet, memory);
  } else {
    to["sheet"] = nullptr;
  }
  json::array dialogs(memory);
  for (const Form* form : state.dialogs) dialogs.emplace_back(WriteForm(*form, memory));
  to["dialogs"] = std::move(dialogs);
  if (state.message) {
    to["message"] = WriteMessage(*state.message, memory);
  } else {
    to["message"] = nullptr;
  }
  json::array started(memory);
  for (const Started& item : *state.started) started.emplace_back(WriteStarted(item, memory));
  to["started"] = std::move(started);
  return to;
}

}  // namespace qv
