#pragma once

#include <string>
#include <vector>

#include "platform/console.h"

namespace qv {

// The snap-in's identity, and what it declares of node types, list views and images, as tables.

namespace snap_in {
inline constexpr const char* kGuid = "{F11BEF9C-A7BD-4F40-AF5A-A86C0C4D7EC9}";
inline constexpr const char* kName = "Quillvane Filtering Administration";
inline constexpr const char* kDescription = "Quillvane Filtering Administration";
inline constexpr const char* kVersion = "1.0";
inline constexpr const char* kStaticNodeGuid = "{65747941-E556-49B0-A541-12AD75E3CD78}";
}  // namespace snap_in

// A node type of the server's own console, and what of it is extended.
struct ExtendedNodeType {
  const char* guid;
  const char* name;  // empty for the mailbox item
  bool name_space, property_pages, task_menu;
};

inline constexpr const char* kMachineGuid = "{3B76413A-6AAB-4C74-B19A-5C80DE6181F4}";
inline constexpr const char* kPostofficeGuid = "{2272C4D4-7EB1-41A2-BB84-478F42D56AA1}";
inline constexpr const char* kMailboxGuid = "{4AA51E2F-2529-4345-91C1-BAF408E0E758}";
inline constexpr const char* kPostofficesViewGuid = "{B079ED73-94CF-4060-A58A-4F86920525E9}";

const std::vector<ExtendedNodeType>& ExtendedNodeTypes();

// A node type of this system.
struct NodeType {
  std::string name;
  std::string guid;
  std::string display_name;
  std::string tag;
  std::string view;  // the name of its default list view
  int image;
};

const std::vector<NodeType>& NodeTypes();
// The declared type of that name, or null.
const NodeType* FindNodeType(const std::string& name);

// A list view of this system, in report mode.
struct ViewType {
  std::string name;
  std::string guid;
  std::string tag;  // empty where it is set at run time
  std::vector<ListColumn> columns;
};

const std::vector<ViewType>& ViewTypes();
const ViewType* FindViewType(const std::string& name);

// Keys of the row images.
namespace images {
inline constexpr const char* kFilterEnabled = "7";
inline constexpr const char* kFilterDisabled = "6";
inline constexpr const char* kSpamWeight = "4";
}  // namespace images

}  // namespace qv
