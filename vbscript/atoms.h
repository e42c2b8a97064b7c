#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qv::vbscript {

// A name without regard to the case of its ASCII letters.
using Atom = int;

inline constexpr Atom kNoAtom = -1;

// The members of the built-in objects, which every table of names starts with in this order.
enum BuiltInMember : Atom {
  kMemberNumber,
  kMemberDescription,
  kMemberSource,
  kMemberHelpFile,
  kMemberHelpContext,
  kMemberClear,
  kMemberRaise,
  kMemberPattern,
  kMemberIgnoreCase,
  kMemberGlobal,
  kMemberMultiline,
  kMemberTest,
  kMemberReplace,
  kMemberExecute,
  kMemberCount,
  kMemberItem,
  kMemberValue,
  kMemberFirstIndex,
  kMemberLength,
  kMemberSubMatches,
};

class Atoms {
 public:
  Atoms();
  Atom Intern(std::u16string_view name);
  // kNoAtom for a name never met.
  Atom Find(std::u16string_view name) const;
  // The folded name.
  std::u16string_view Name(Atom atom) const { return names_[static_cast<std::size_t>(atom)]; }

 private:
  std::deque<std::u16string> names_;
  std::unordered_map<std::u16string_view, Atom> atoms_;
};

std::u16string FoldAscii(std::u16string_view name);

}  // namespace qv::vbscript
