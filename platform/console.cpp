#include "platform/console.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "platform/runtime_error.h"

namespace qv {

namespace {

struct SubItemLengths {
  std::uint32_t key = 0, text = 0;
};

SubItemLengths LengthsAt(const char* sub_item) {
  SubItemLengths lengths;
  std::memcpy(&lengths, sub_item, sizeof lengths);
  return lengths;
}

std::uint32_t Length(std::string_view text) {
  if (text.size() > UINT32_MAX) throw std::length_error("The text of a sub-item is too long.");
  return static_cast<std::uint32_t>(text.size());
}

}  // namespace

ListSubItems::ListSubItems(std::initializer_list<ListSubItem> items) {
  std::size_t bytes = 0;
  for (const ListSubItem& item : items) bytes += sizeof(SubItemLengths) + item.Key.size() + item.Text.size();
  packed_.reserve(bytes);
  for (const ListSubItem& item : items) push_back(item);
}

std::size_t ListSubItems::size() const {
  std::size_t count = 0;
  for (Iterator at = begin(); at != end(); ++at) ++count;
  return count;
}

ListSubItem ListSubItems::operator[](std::size_t number) const {
  Iterator at = begin();
  while (number-- > 0) ++at;
  return *at;
}

ListSubItem ListSubItems::at(std::size_t number) const {
  if (number >= size()) throw std::out_of_range("The row has no such sub-item.");
  return (*this)[number];
}

void ListSubItems::push_back(const ListSubItem& item) {
  const SubItemLengths lengths{Length(item.Key), Length(item.Text)};
  packed_.append(reinterpret_cast<const char*>(&lengths), sizeof lengths).append(item.Key).append(item.Text);
}

ListSubItem ListSubItems::Iterator::operator*() const {
  const SubItemLengths lengths = LengthsAt(at_);
  const char* key = at_ + sizeof lengths;
  return {{key, lengths.key}, {key + lengths.key, lengths.text}};
}

ListSubItems::Iterator& ListSubItems::Iterator::operator++() {
  const SubItemLengths lengths = LengthsAt(at_);
  at_ += sizeof lengths + lengths.key + lengths.text;
  return *this;
}

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
