#include "tests/console/fake_console.h"

#include <gtest/gtest.h>

#include "console/node_types.h"
#include "platform/runtime_error.h"

namespace qv::test {

FakePaneItem::FakePaneItem(const std::string& name) {
  Name = name;
  DisplayString = "display of " + name;
  ResultViewType = 7;
  ResultView = &view;
  view.ScopePaneItem = this;
}

void FakePaneItem::DisplayNewResultView(const std::string& display_string, int result_view_type) {
  if (!fail.empty()) throw RuntimeError(fail);
  redisplays.push_back(display_string + "|" + std::to_string(result_view_type));
}

MessageAnswer FakeConsole::ConsoleMsgBox(const std::string& text, const std::string& title, MessageIcon icon,
                                         MessageButtons buttons) {
  messages.push_back({text, title, icon, buttons});
  if (answers.empty()) return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
  const MessageAnswer answer = answers.front();
  answers.pop_front();
  return answer;
}

void FakeConsole::AddPreDefined(const std::string& name, const std::string& node_type, ScopeItem& parent) {
  nodes.push_back(name + "|" + node_type + "|" + parent.Node.NodeTypeGUID);
}

std::string FakeConsole::FormatData(const std::string& bytes, long start, long format_type) {
  formats.push_back(std::to_string(start) + "|" + std::to_string(format_type));
  return bytes;
}

std::string FakeData::GetData(const std::string& format) const {
  if (broken) throw RuntimeError("The data is gone.");
  return formats.at(format);
}

void FakeSheet::AddPage(const std::string& class_name, const std::string& caption, bool help,
                        const Dictionary& initial_data) {
  if (broken) throw RuntimeError("The sheet is full.");
  pages.push_back(class_name + "|" + caption + (help ? "|help" : "|no help"));
  data.push_back(initial_data);
}

void FakeMenu::AddMenu(const MMCMenu& group) {
  if (broken) throw RuntimeError("The menu is full.");
  groups.push_back(group);
  for (const MMCMenu& child : group.Children) {
    if (!child.Visible) continue;
    EXPECT_NE(child.Enabled, child.Grayed) << child.Name;
    items.push_back(child.Grayed ? "(" + child.Caption + ")" : child.Caption);
  }
}

void FakeVerbs::Enable(Verb verb, bool on) {
  if (broken) throw RuntimeError("The verb is gone.");
  if (on) enabled.push_back(verb);
}

ConsoleRun::ConsoleRun(const std::string& node_type) : pane(node_type) {
  const NodeType* type = FindNodeType(node_type);
  node.Name = type->name;
  node.Tag = type->tag;
  node.Node.NodeTypeGUID = type->guid;
  node.Node.DisplayName = type->display_name;
  const ViewType* list = FindViewType(type->view);
  pane.view.ListView.Tag = list->tag;
  pane.view.ListView.Columns = list->columns;
  pane.ScopeItem = &node;
  view.SelectedPaneItem = &pane;
  console.current = &pane;
}

void ConsoleRun::Add(const std::string& id, const std::string& description, int status, const std::string& host) {
  store.server(host).filters.push_back({id, "CRT" + id.substr(3), "", description, "", status, "", ""});
}

Selection ConsoleRun::Rows(const std::vector<std::size_t>& positions) {
  pane.view.ListView.ListItems.Clear();
  filtering.ResultViews_Initialize(pane.view);
  Selection selection;
  selection.SelectionType = Selection::kListItems;
  for (std::size_t at : positions) selection.ListItems.push_back(pane.view.ListView.ListItems.All().at(at).get());
  return selection;
}

Selection ConsoleRun::Node() {
  Selection selection;
  selection.SelectionType = Selection::kScopeItem;
  selection.ScopeItems = {&node};
  return selection;
}

std::vector<std::string> ConsoleRun::Listed() {
  pane.view.ListView.ListItems.Clear();
  filtering.ResultViews_Initialize(pane.view);
  std::vector<std::string> rows;
  for (const auto& item : pane.view.ListView.ListItems.All()) {
    std::string row = item->Text;
    for (const ListSubItem& sub : item->SubItems) row.append("|").append(sub.Text);
    rows.push_back(row);
  }
  return rows;
}

void ConsoleRun::Choose(const Selection& selection, const std::string& name) {
  FakeMenu menu;
  filtering.Views_AddNewMenuItems(selection, menu);
  filtering.Views_AddTopMenuItems(view, selection, menu);
  for (const MMCMenu& group : menu.groups) {
    for (const MMCMenu& child : group.Children) {
      if (child.Name != name || !child.Visible || !child.Enabled) continue;
      ASSERT_TRUE(child.Click) << name << " does nothing";
      return child.Click(0, selection);
    }
  }
  ADD_FAILURE() << "the menu offers no " << name;
}

}  // namespace qv::test
