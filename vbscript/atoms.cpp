#include "vbscript/atoms.h"

namespace qv::vbscript {

std::u16string FoldAscii(std::u16string_view name) {
  std::u16string folded(name);
  for (char16_t& c : folded) {
    if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + 32);
  }
  return folded;
}

Atoms::Atoms() {
  for (const char16_t* name :
       {u"number",  u"description", u"source", u"helpfile",   u"helpcontext", u"clear",     u"raise",
        u"pattern", u"ignorecase",  u"global", u"multiline",  u"test",        u"replace",   u"execute",
        u"count",   u"item",        u"value",  u"firstindex", u"length",      u"submatches"}) {
    Intern(name);
  }
}

Atom Atoms::Intern(std::u16string_view name) {
  std::u16string folded = FoldAscii(name);
  if (const auto found = atoms_.find(folded); found != atoms_.end()) return found->second;
  names_.push_back(std::move(folded));
  const Atom atom = static_cast<Atom>(names_.size()) - 1;
  atoms_.emplace(names_.back(), atom);
  return atom;
}

Atom Atoms::Find(std::u16string_view name) const {
  const auto found = atoms_.find(FoldAscii(name));
  return found == atoms_.end() ? kNoAtom : found->second;
}

}  // namespace qv::vbscript
