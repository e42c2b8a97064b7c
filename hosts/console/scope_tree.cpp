#include "hosts/console/scope_tree.h"

#include <algorithm>

#include "console/node_types.h"
#include "platform/runtime_error.h"

namespace qv {

namespace {

// Images of the console's own nodes, above the numbers of the extension's.
constexpr int kRootImage = 100;
constexpr int kServerImage = 101;
constexpr int kPostofficesImage = 103;
constexpr int kPostofficeImage = 104;

// How the extension's nodes are called in ids.
const char* IdOf(const std::string& node_type) {
  if (node_type == "nodFiltering") return "filters";
  if (node_type == "nodSpamProtection") return "spam";
  return nullptr;
}

}  // namespace

ScopeTree::ScopeTree(const std::vector<std::string>& servers) {
  root_.id = "servers";
  root_.image = kRootImage;
  root_.expandable = root_.expanded = true;
  root_.scope.Name = "nodServers";
  root_.scope.Node.DisplayName = "Mail Servers";
  by_id_.emplace(root_.id, &root_);
  for (const std::string& name : servers) {
    TreeNode& server = Add(root_, TreeNode::Kind::Server, "server:" + name, name, kServerImage);
    server.server = name;
    server.expandable = true;
    server.scope.Name = "nodMachine";
    server.scope.Node.NodeTypeGUID = kMachineGuid;
  }
}

TreeNode* ScopeTree::Find(const std::string& id) {
  const auto found = by_id_.find(id);
  return found == by_id_.end() ? nullptr : found->second;
}

TreeNode& ScopeTree::Of(const ScopeItem& item) {
  for (const auto& [id, node] : by_id_) {
    if (&node->scope == &item) return *node;
  }
  throw RuntimeError("The scope item is not in the tree.");
}

TreeNode& ScopeTree::Add(TreeNode& parent, TreeNode::Kind kind, const std::string& id, const std::string& caption,
                         int image) {
  TreeNode& node = *parent.children.emplace_back(std::make_unique<TreeNode>());
  node.kind = kind;
  node.id = id;
  node.image = image;
  node.server = parent.server;
  node.parent = &parent;
  node.scope.Node.DisplayName = caption;
  node.scope.Parent = &parent.scope;
  by_id_.emplace(id, &node);
  return node;
}

void ScopeTree::AddPostofficesBranch(TreeNode& server) {
  const std::string id = server.id + "/postoffices";
  if (Find(id)) return;
  TreeNode& branch = Add(server, TreeNode::Kind::Postoffices, id, "Postoffices", kPostofficesImage);
  branch.expandable = true;
  branch.scope.Name = "nodPostoffices";
}

void ScopeTree::SetPostoffices(TreeNode& branch, const std::vector<std::string>& names) {
  std::vector<std::unique_ptr<TreeNode>> before = std::move(branch.children);
  branch.children.clear();
  for (const std::string& name : names) {
    const auto same = std::find_if(before.begin(), before.end(),
                                   [&name](const auto& node) { return node && node->postoffice == name; });
    if (same != before.end()) {
      branch.children.push_back(std::move(*same));
      continue;
    }
    TreeNode& node = Add(branch, TreeNode::Kind::Postoffice, "server:" + branch.server + "/postoffice:" + name, name,
                         kPostofficeImage);
    node.postoffice = name;
    node.scope.Name = "nodPostOffice";
    node.scope.Node.NodeTypeGUID = kPostofficeGuid;
  }
  for (const auto& gone : before) {
    if (gone) by_id_.erase(gone->id);
  }
}

void ScopeTree::AddExtension(const std::string& name, const std::string& node_type, TreeNode& parent) {
  const NodeType* type = FindNodeType(node_type);
  const char* id = IdOf(node_type);
  if (!type || !id) throw RuntimeError("The node type '" + node_type + "' is not declared.");
  const std::string node_id = parent.id + "/" + id;
  if (Find(node_id)) return;
  TreeNode& node = Add(parent, TreeNode::Kind::Extension, node_id, type->display_name, type->image);
  node.scope.Name = name;
  node.scope.Tag = type->tag;
  node.scope.Node.NodeTypeGUID = type->guid;
}

bool StandsBelow(const TreeNode& node, const TreeNode& ancestor) {
  for (const TreeNode* at = node.parent; at; at = at->parent) {
    if (at == &ancestor) return true;
  }
  return false;
}

}  // namespace qv
