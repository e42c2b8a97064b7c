#include <cstdlib>
#include <new>

#include "vbscript/code.h"

namespace qv::vbscript {

// Zeroed storage is a table of Empty values, and what is never used costs nothing.
Globals::Globals() : values_(static_cast<Value*>(std::calloc(kMost, sizeof(Value)))) {
  if (!values_) throw std::bad_alloc();
}

Globals::~Globals() {
  DropValues();
  std::free(values_);
}

void Globals::DropValues() {
  for (std::size_t i = 0; i < names_.size(); ++i) values_[i].Clear();
}

std::uint32_t Globals::Spare(Atom atom) {
  if (names_.size() >= kMost) return kMost;
  GlobalName made;
  made.atom = atom;
  names_.push_back(made);
  return static_cast<std::uint32_t>(names_.size()) - 1;
}

std::uint32_t Globals::Number(Atom atom) {
  const auto found = numbers_.find(atom);
  if (found != numbers_.end()) return found->second;
  const std::uint32_t number = Spare(atom);
  if (number != kMost) numbers_.emplace(atom, number);
  return number;
}

const GlobalName* Globals::Find(Atom atom) const {
  const auto found = numbers_.find(atom);
  return found == numbers_.end() ? nullptr : &names_[found->second];
}

}  // namespace qv::vbscript
