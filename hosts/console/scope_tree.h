#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/console.h"

namespace qv {

// A node of the console's tree: one of the console's own, or one that the extension has added.
struct TreeNode {
  enum class Kind { Root, Server, Postoffices, Postoffice, Extension };

  Kind kind = Kind::Root;
  std::string id;
  int image = 0;
  bool expandable = false, expanded = false;
  std::string server;      // the server that it stands under
  std::string postoffice;  // of a Postoffice
  ScopeItem scope;         // its name, caption and type as the extension sees them
  TreeNode* parent = nullptr;
  std::vector<std::unique_ptr<TreeNode>> children;

  const std::string& caption() const { return scope.Node.DisplayName; }
};

// The scope pane of the stand-in console.
class ScopeTree {
 public:
  explicit ScopeTree(const std::vector<std::string>& servers);

  TreeNode& root() { return root_; }
  const TreeNode& root() const { return root_; }
  // The node of that id, or null.
  TreeNode* Find(const std::string& id);
  // The node of a scope item of the tree.
  TreeNode& Of(const ScopeItem& item);

  // Adds the console's own branch of postoffices to a server, once.
  void AddPostofficesBranch(TreeNode& server);
  // Brings the postoffice nodes of the branch in step with the names. Nodes that stay are the same objects.
  void SetPostoffices(TreeNode& branch, const std::vector<std::string>& names);
  // Adds a node of one of the extension's declared types, once below a parent. Raises RuntimeError for another type.
  void AddExtension(const std::string& name, const std::string& node_type, TreeNode& parent);

 private:
  TreeNode& Add(TreeNode& parent, TreeNode::Kind kind, const std::string& id, const std::string& caption, int image);

  TreeNode root_;
  std::unordered_map<std::string, TreeNode*> by_id_;
};

// Whether `node` stands below `ancestor`.
bool StandsBelow(const TreeNode& node, const TreeNode& ancestor);

}  // namespace qv
