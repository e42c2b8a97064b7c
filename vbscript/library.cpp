#include "vbscript/library.h"

#include <utility>

namespace qv::vbscript {

Library::Library(Atoms& atoms) : atoms_(atoms) {}

void Library::AddConstant(std::u16string_view name, Value value) { constants_[atoms_.Intern(name)] = std::move(value); }

void Library::AddFunction(std::u16string_view name, Intrinsic function) {
  numbers_[atoms_.Intern(name)] = static_cast<int>(functions_.size());
  functions_.push_back(std::move(function));
}

const Value* Library::Constant(Atom atom) const {
  const auto found = constants_.find(atom);
  return found == constants_.end() ? nullptr : &found->second;
}

int Library::Function(Atom atom) const {
  const auto found = numbers_.find(atom);
  return found == numbers_.end() ? -1 : found->second;
}

}  // namespace qv::vbscript
