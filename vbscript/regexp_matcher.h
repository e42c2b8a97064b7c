#pragma once

#include <algorithm>

#include "vbscript/failure.h"
#include "vbscript/regexp.h"
#include "vbscript/text.h"

namespace qv::vbscript {

// One search: the machine that runs a pattern's program over a text. It backtracks on a stack of its own.
class RegExpMatcher {
 public:
  RegExpMatcher(const RegExp& expression, Context& context, std::u16string_view text)
      : expression_(expression),
        context_(context),
        text_(text),
        saves_((expression.groups_ + 1) * 2, kNowhere),
        counts_(expression.counters_, 0),
        starts_(expression.counters_, 0) {}

  bool MatchAt(std::size_t position) {
    std::fill(saves_.begin(), saves_.end(), kNowhere);
    stack_.clear();
    return Run(0, static_cast<std::uint32_t>(position));
  }

  RegExp::Span SpanOf(std::size_t group) const {
    RegExp::Span span;
    if (saves_[group * 2] == kNowhere || saves_[group * 2 + 1] == kNowhere) return span;
    span.start = saves_[group * 2];
    span.end = saves_[group * 2 + 1];
    return span;
  }

 private:
  static constexpr std::size_t kDeepestStack = 1U << 21;
  static constexpr std::uint32_t kNowhere = 0xffffffff;
  static constexpr std::uint32_t kEmptyRounds = 1000;
  static constexpr int kTooMuchToTry = 5017;

  using Op = RegExp::Op;
  using Instr = RegExp::Instr;

  enum class Kind : std::uint8_t {
    kChoice,   // go on at pc and position
    kShorter,  // a greedy repetition: one character less, down to `low`
    kLonger,   // a lazy repetition: one character more, up to `low` characters in all
    kSave,     // puts back saves_[pc]
    kCount,    // puts back counts_[pc] and starts_[pc]
  };
  struct Entry {
    Kind kind;
    std::uint32_t pc;
    std::uint32_t position;
    std::uint32_t low;
  };

  void Push(Entry entry) {
    if (stack_.size() >= kDeepestStack) RaiseBare(kOutOfMemory);
    stack_.push_back(entry);
  }

  void Save(std::uint32_t index, std::uint32_t value) {
    Push({Kind::kSave, index, saves_[index], 0});
    saves_[index] = value;
  }

  void Count(std::uint32_t counter, std::uint32_t count, std::uint32_t start) {
    Push({Kind::kCount, counter, counts_[counter], starts_[counter]});
    counts_[counter] = count;
    starts_[counter] = start;
  }

  bool Undo(const Entry& entry) {
    if (entry.kind == Kind::kSave) {
      saves_[entry.pc] = entry.position;
    } else if (entry.kind == Kind::kCount) {
      counts_[entry.pc] = entry.position;
      starts_[entry.pc] = entry.low;
    } else {
      return false;
    }
    return true;
  }

  // Goes back to the last choice above `base`. False when there is none.
  bool Backtrack(std::size_t base, std::uint32_t& pc, std::uint32_t& position) {
    while (stack_.size() > base) {
      Entry& top = stack_.back();
      if (Undo(top)) {
        stack_.pop_back();
        continue;
      }
      if (++returns_ > context_.match_limit()) RaiseBare(kTooMuchToTry);
      pc = top.pc;
      if (top.kind == Kind::kChoice) {
        position = top.position;
        stack_.pop_back();
        return true;
      }
      if (top.kind == Kind::kShorter) {
        position = --top.position;
        if (top.position == top.low) stack_.pop_back();
        return true;
      }
      // Lazy: the test stands before pc.
      if (top.low == 0 || top.position >= text_.size() ||
          !expression_.Fits(expression_.code_[pc - 1], text_[top.position])) {
        stack_.pop_back();
        continue;
      }
      position = ++top.position;
      if (--top.low == 0) stack_.pop_back();
      return true;
    }
    return false;
  }

  static bool IsWordCharacter(char16_t c) {
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_';
  }

  bool AtWordEdge(std::uint32_t position) const {
    const bool before = position > 0 && IsWordCharacter(text_[position - 1]);
    const bool after = position < text_.size() && IsWordCharacter(text_[position]);
    return before != after;
  }

  bool IsLineBreak(std::size_t position) const { return text_[position] == u'\n' || text_[position] == u'\r'; }

  bool Repeat(const Instr& instr, std::uint32_t pc, std::uint32_t& position) {
    const Instr& test = expression_.code_[pc + 1];
    const std::size_t room = text_.size() - position;
    const std::size_t most = std::min<std::size_t>(instr.lazy ? instr.min : instr.max, room);
    std::size_t taken = 0;
    while (taken < most && expression_.Fits(test, text_[position + taken])) ++taken;
    context_.Poll(static_cast<int>(taken / 16) + 1);
    if (taken < instr.min) return false;
    const auto after = static_cast<std::uint32_t>(position + taken);
    if (instr.lazy) {
      if (instr.max > instr.min) Push({Kind::kLonger, pc + 2, after, instr.max - instr.min});
    } else if (taken > instr.min) {
      Push({Kind::kShorter, pc + 2, after, position + instr.min});
    }
    position = after;
    return true;
  }

  // A look-ahead leaves its groups behind when it holds, and no choices.
  bool Look(std::uint32_t pc, std::uint32_t position, bool negative) {
    const std::size_t base = stack_.size();
    const bool holds = Run(pc, position, base);
    if (!holds) return negative;
    if (negative) {
      while (stack_.size() > base) {
        Undo(stack_.back());
        stack_.pop_back();
      }
      return false;
    }
    stack_.erase(std::remove_if(stack_.begin() + static_cast<std::ptrdiff_t>(base), stack_.end(),
                                [](const Entry& e) { return e.kind != Kind::kSave && e.kind != Kind::kCount; }),
                 stack_.end());
    return true;
  }

  bool BackReference(std::uint32_t group, std::uint32_t& position) {
    const RegExp::Span span = SpanOf(group);
    if (span.start == std::u16string_view::npos) return true;
    const std::size_t length = span.end - span.start;
    if (length > text_.size() - position) return false;
    context_.Poll(static_cast<int>(length / 16) + 1);
    if (Compare(text_.substr(span.start, length), text_.substr(position, length), expression_.flags_.ignore_case) !=
        0) {
      return false;
    }
    position += static_cast<std::uint32_t>(length);
    return true;
  }

  // Another round of a counted loop, or on behind it. `pc` is at the loop's head.
  void CountLoop(const Instr& instr, std::uint32_t& pc, std::uint32_t position) {
    const std::uint32_t count = counts_[instr.a];
    const std::uint32_t inside = pc + 1;
    const std::uint32_t behind = instr.b;
    if (count < instr.min) {
      pc = inside;
    } else if (count >= instr.max) {
      pc = behind;
    } else if (instr.lazy) {
      Push({Kind::kChoice, inside, position, 0});
      pc = behind;
    } else {
      Push({Kind::kChoice, behind, position, 0});
      pc = inside;
    }
    if (pc == inside) Count(instr.a, count, position);
  }

  bool Run(std::uint32_t pc, std::uint32_t position, std::size_t base = 0) {
    const auto fails = [&] { return !Backtrack(base, pc, position); };
    for (;;) {
      context_.Poll();
      const Instr& instr = expression_.code_[pc];
      bool goes_on = true;
      switch (instr.op) {
        case Op::kChar:
        case Op::kAny:
        case Op::kSet:
          goes_on = position < text_.size() && expression_.Fits(instr, text_[position]);
          ++position;
          ++pc;
          break;
        case Op::kLineStart:
          goes_on = position == 0 || (expression_.flags_.multiline && IsLineBreak(position - 1));
          ++pc;
          break;
        case Op::kLineEnd:
          goes_on = position == text_.size() || (expression_.flags_.multiline && IsLineBreak(position));
          ++pc;
          break;
        case Op::kWordEdge:
        case Op::kNoWordEdge:
          goes_on = AtWordEdge(position) == (instr.op == Op::kWordEdge);
          ++pc;
          break;
        case Op::kSave:
          Save(instr.a, position);
          ++pc;
          break;
        case Op::kClearGroups:
          for (std::uint32_t i = instr.a * 2; i < instr.b * 2; ++i) Save(i, kNowhere);
          ++pc;
          break;
        case Op::kBackReference:
          goes_on = BackReference(instr.a, position);
          ++pc;
          break;
        case Op::kJump:
          pc = instr.a;
          break;
        case Op::kSplit:
          Push({Kind::kChoice, instr.b, position, 0});
          pc = instr.a;
          break;
        case Op::kLook:
          goes_on = Look(pc + 1, position, instr.b != 0);
          pc = instr.a;
          break;
        case Op::kRepeat:
          goes_on = Repeat(instr, pc, position);
          pc += 2;
          break;
        case Op::kCountStart:
          Count(instr.a, 0, position);
          ++pc;
          break;
        case Op::kCountLoop:
          CountLoop(instr, pc, position);
          break;
        case Op::kCountEnd: {
          // A round beyond the required ones that took nothing would go on for ever, and many required ones that take
          // nothing are as good as all of them.
          const Instr& head = expression_.code_[instr.b];
          const bool took_nothing = position == starts_[instr.a];
          goes_on = !took_nothing || counts_[instr.a] < head.min;
          if (goes_on) {
            const bool skips = took_nothing && counts_[instr.a] >= kEmptyRounds;
            Count(instr.a, skips ? head.min : counts_[instr.a] + 1, position);
          }
          pc = instr.b;
          break;
        }
        case Op::kLookEnd:
        case Op::kMatch:
          return true;
      }
      if (!goes_on && fails()) return false;
    }
  }

  const RegExp& expression_;
  Context& context_;
  std::u16string_view text_;
  std::vector<std::uint32_t> saves_;
  std::vector<std::uint32_t> counts_;
  std::vector<std::uint32_t> starts_;
  std::vector<Entry> stack_;
  std::uint64_t returns_ = 0;
};

}  // namespace qv::vbscript
