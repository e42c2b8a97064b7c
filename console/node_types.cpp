#include "console/node_types.h"

namespace qv {

namespace {

template <class Type>
const Type* Find(const std::vector<Type>& types, const std::string& name) {
  for (const Type& type : types) {
    if (type.name == name) return &type;
  }
  return nullptr;
}

}  // namespace

const std::vector<ExtendedNodeType>& ExtendedNodeTypes() {
  static const std::vector<ExtendedNodeType> types = {
      {kMachineGuid, "nodMachine", true, false, false},
      {kPostofficeGuid, "nodPostOffice", true, true, false},
      {kMailboxGuid, "", false, true, false},
      {kPostofficesViewGuid, "lvwPostoffices", false, false, true},
  };
  return types;
}

const std::vector<NodeType>& NodeTypes() {
  static const std::vector<NodeType> types = {
      {"nodFiltering", "{9B5C09E5-F5FD-4325-8B9A-4B5DBA33E89D}", "Filters", "filters", "lvwFilters", 1},
      {"nodPOFilters", "{8E1C1FD2-9EFC-4453-9A6E-AB6A87A71CAE}", "Filters", "filters", "lvwPOFilters", 1},
      {"nodSpamProtection", "{26CA89A9-F7A2-4045-9779-3099C80701FA}", "Spam Protection", "spamfilters", "lvwSpamItems",
       8},
  };
  return types;
}

const NodeType* FindNodeType(const std::string& name) { return Find(NodeTypes(), name); }

// The first letter of a column's key is its sort kind. Those of lvwFilters have none, so its rows stay in store order.
const std::vector<ViewType>& ViewTypes() {
  static const std::vector<ViewType> types = {
      {"lvwFilters", "{A5F7BB86-23B8-46CA-9807-25F9EE2F69A8}", "filter", {{"1", "Filter", 300}, {"2", "Status", 300}}},
      {"lvwPOFilters",
       "{E93050B2-7197-4BC4-95A2-6EBCE28E5FC0}",
       "filter",
       {{"t1", "Filter", 300}, {"t2", "Status", 300}}},
      {"lvwSpamItems",
       "{2D03103F-8B07-4409-9E3D-DBB2A4CBD740}",
       "",
       {{"t1", "Description", 350}, {"n2", "Positive Weighting", 150}, {"n3", "Negative Weighting", 150}}},
  };
  return types;
}

const ViewType* FindViewType(const std::string& name) { return Find(ViewTypes(), name); }

}  // namespace qv
