// What happens in the tree and in the result pane.

#include <algorithm>

#include "console/node_types.h"
#include "hosts/console/console_session.h"
#include "hosts/console/node_data.h"
#include "platform/runtime_error.h"

namespace qv {

namespace {

using Kind = TreeNode::Kind;

}  // namespace

void ConsoleSession::Expand(TreeNode& node) {
  node.expanded = node.expandable;
  // A pane that lists the nodes below this one shows those that come now.
  const bool shown = pane_ && &pane_->node() == &node;
  switch (node.kind) {
    case Kind::Server: {
      tree_.AddPostofficesBranch(node);
      const std::string before = run_->ServerHost;
      filtering_->ExtensionSnapIn_Expand(NodeData("SERVER_NAME", node.server), node.scope);
      // The lists are of the current server, so the one that is open follows it.
      if (shown || (OnExtension() && run_->ServerHost != before)) BuildPane();
      break;
    }
    case Kind::Postoffices:
      shown ? BuildPane() : ReloadPostoffices(node);
      break;
    case Kind::Postoffice:
      filtering_->ExtensionSnapIn_Expand(NodeData("POSTOFFICE_NAME", node.postoffice), node.scope);
      break;
    case Kind::Extension:
      filtering_->ScopeItems_Expand(node.scope);
      break;
    case Kind::Root:
      break;
  }
}

void ConsoleSession::Collapse(TreeNode& node) {
  node.expanded = false;
  if (pane_ && StandsBelow(pane_->node(), node)) SelectNode(node);
}

void ConsoleSession::ReloadPostoffices(TreeNode& branch) {
  const std::vector<std::string> names = servers_.PostofficeNames(branch.server);
  const bool shows_one = pane_ && pane_->node().parent == &branch;
  if (shows_one && std::find(names.begin(), names.end(), pane_->node().postoffice) == names.end()) SelectNode(branch);
  tree_.SetPostoffices(branch, names);
}

void ConsoleSession::SelectNode(TreeNode& node) {
  pane_before_ = std::move(pane_);
  pane_ = std::make_unique<ResultPane>(node, [this] { BuildPane(); });
  target_ = Target::Node;
  BuildPane();
}

void ConsoleSession::BuildPane() {
  ResultPane& pane = *pane_;
  const TreeNode& node = pane.node();
  const bool extension = OnExtension();
  ResultView& view = pane.Restart(extension ? run_->ServerHost : node.server);
  try {
    if (extension) {
      const NodeType* type = FindNodeType(node.scope.Name);
      const ViewType* list = FindViewType(type->view);
      view.ListView.Name = list->name;
      view.ListView.Tag = list->tag;
      view.ListView.Columns = list->columns;
      filtering_->ResultViews_Initialize(view);
    } else {
      FillOwnPane(view);
    }
  } catch (const RuntimeError& error) {
    ConsoleMsgBox(error.description(), "", MessageIcon::Critical, MessageButtons::Ok);
  }
  pane.TakeRows(Comparison());
  verbs_ = VerbsOf(target_);
}

// The panes of the console's own nodes: a postoffice lists its mailboxes, any other node the nodes below it.
void ConsoleSession::FillOwnPane(ResultView& view) {
  TreeNode& node = pane_->node();
  const auto add = [&view](const std::string& key, const std::string& name, const std::string& icon) {
    ListItem& item = view.ListView.ListItems.Add(key, name, icon);
    item.Tag = key;
    item.SubItems = {{"1" + key, name}};
  };
  if (node.kind == Kind::Postoffice) {
    pane_->LetFilter();
    view.ListView.Name = "lvwMailboxes";
    view.ListView.Tag = "mailbox";
    view.ListView.Columns = {{"t1", "Mailbox", 300}};
    NameList names;
    servers_.ForEachMailbox(node.server, node.postoffice, [&names](const std::string& name) { names.Add(name); });
    pane_->ListNames(std::move(names), "MAILBOX-", "105");
    return;
  }
  view.ListView.Name = node.kind == Kind::Postoffices ? "lvwPostoffices" : "lvwNodes";
  view.ListView.Tag = "node";
  view.ListView.Columns = {{"t1", "Name", 300}};
  if (node.kind == Kind::Postoffices) ReloadPostoffices(node);
  for (const auto& child : node.children) add(child->id, child->caption(), std::to_string(child->image));
}

ResultPane::Compare ConsoleSession::Comparison() {
  return [this](const ResultView& view, const ListItem& first, const ListItem& second, int column) {
    int result = 0;
    filtering_->ResultViews_CompareItems(view, SortItem{nullptr, &first}, SortItem{nullptr, &second}, column, result);
    return result;
  };
}

void ConsoleSession::OpenRow(const std::string& key) {
  pane_->SelectRows({key});
  target_ = Target::Rows;
  verbs_ = VerbsOf(target_);
  if (OnExtension()) {
    filtering_->ResultViews_ListItemDblClick(*pane_->ResultView, *pane_->SelectedItems().front());
  } else if (TreeNode* node = tree_.Find(key)) {
    pane_->node().expanded = true;
    SelectNode(*node);
  } else {
    OpenProperties(Target::Rows);
  }
}

Selection ConsoleSession::SelectionOf(Target target) {
  Selection selection;
  if (target == Target::Rows) {
    selection.SelectionType = Selection::kListItems;
    selection.ListItems = pane_->SelectedItems();
  } else {
    selection.SelectionType = Selection::kScopeItem;
    selection.ScopeItems = {&pane_->node().scope};
  }
  return selection;
}

}  // namespace qv
