#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/context.h"

namespace qv::vbscript {

struct RegExpFlags {
  bool ignore_case = false;
  bool multiline = false;
};

// A compiled pattern: a program for a machine that backtracks on a stack of its own.
class RegExp {
 public:
  struct Span {
    std::size_t start = std::u16string_view::npos;  // npos: the group took no part
    std::size_t end = 0;
  };

  // Raises 5017 to 5021 for a bad pattern.
  RegExp(std::u16string_view pattern, RegExpFlags flags);

  // The leftmost match at or behind `from`: spans[0] is the whole, then one for each group. Polls the context, and
  // raises 7 when a match would need too much memory, 5017 when it goes on for too long.
  bool Find(Context& context, std::u16string_view text, std::size_t from, std::vector<Span>& spans) const;

  std::size_t groups() const { return groups_; }

 private:
  friend class RegExpCompiler;
  friend class RegExpMatcher;

  static constexpr std::uint32_t kNoLimit = 0xffffffff;

  enum class Op : std::uint8_t {
    kChar,  // a is the character, upper case if case is ignored
    kAny,
    kSet,  // a is the set's number
    kLineStart,
    kLineEnd,
    kWordEdge,
    kNoWordEdge,
    kSave,         // a is the number of the end of a span
    kClearGroups,  // the spans from a on, before b
    kBackReference,
    kJump,
    kSplit,  // tries a, then b
    kLook,   // what follows must match here; then on at a. b: it must not
    kLookEnd,
    kRepeat,      // a single character's test follows; min, max; lazy
    kCountStart,  // counter a
    kCountLoop,   // counter a, on to b when done; min, max; lazy
    kCountEnd,    // counter a, back to b
    kMatch,
  };
  struct Instr {
    Op op = Op::kMatch;
    bool lazy = false;
    std::uint32_t a = 0;
    std::uint32_t b = 0;
    std::uint32_t min = 0;
    std::uint32_t max = 0;
  };
  struct Set {
    bool negated = false;
    std::vector<std::pair<char16_t, char16_t>> ranges;
    bool Has(char16_t c) const;
  };

  bool Fits(const Instr& test, char16_t c) const;

  std::vector<Instr> code_;
  std::vector<Set> sets_;
  RegExpFlags flags_;
  std::uint32_t groups_ = 0;
  std::uint32_t counters_ = 0;
  bool has_back_references_ = false;
};

}  // namespace qv::vbscript
