#include "platform/console.h"

#include "platform/runtime_error.h"

namespace qv {

ListItem& ListItems::Add(const std::string& key, const std::string& text, const std::string& icon) {
  if (keys_.empty()) {
    for (const auto& item : items_) keys_.insert(item->Key);
  }
  if (keys_.count(key) != 0) throw RuntimeError(35602, "Key is not unique in collection");
  items_.push_back(std::make_unique<ListItem>());
  ListItem& item = *items_.back();
  item.Key = key;
  item.Text = text;
  item.Icon = icon;
  keys_.insert(item.Key);
  return item;
}

void ListItems::Settle() {
  keys_ = {};
  items_.shrink_to_fit();
}

void ListItems::Clear() {
  keys_.clear();
  items_.clear();
}

}  // namespace qv
