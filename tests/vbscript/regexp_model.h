#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace qv::vbscript::regexp_model {

// Matching as the language's definition has it: every part is tried with what is to follow it.
struct Node {
  enum class Kind {
    kChar,
    kAny,
    kSet,
    kStart,
    kEnd,
    kEdge,
    kNoEdge,
    kReference,
    kGroup,
    kPlain,
    kLook,
    kRepeat,
    kSeq,
    kAlt
  };
  Kind kind = Kind::kSeq;
  char16_t c = 0;
  std::u16string set;
  bool negated = false;  // a set or a look-ahead
  int number = 0;        // of a group or reference
  int first_group = 0;   // the groups within a repetition, from here
  int last_group = 0;    // before this one
  int min = 0;
  int max = -1;
  bool lazy = false;
  std::vector<std::unique_ptr<Node>> parts;
};

struct Span {
  int start = -1;
  int end = -1;
  bool operator==(const Span& other) const { return start == other.start && end == other.end; }
};

struct State {
  int at = 0;
  std::vector<Span> groups;
};

using Next = std::function<bool(const State&)>;

class Model {
 public:
  Model(std::u16string text, bool ignore_case, bool multiline)
      : text_(std::move(text)), ignore_case_(ignore_case), multiline_(multiline) {}

  int budget = 100000;

  bool Match(const Node& node, const State& state, const Next& next) {
    if (--budget < 0) return false;
    const int at = state.at;
    const int size = static_cast<int>(text_.size());
    switch (node.kind) {
      case Node::Kind::kChar:
        return at < size && Same(text_[Index(at)], node.c) && Step(state, 1, next);
      case Node::Kind::kAny:
        return at < size && text_[Index(at)] != u'\n' && Step(state, 1, next);
      case Node::Kind::kSet: {
        if (at >= size) return false;
        bool has = false;
        for (const char16_t c : node.set) has = has || Same(c, text_[Index(at)]);
        return has != node.negated && Step(state, 1, next);
      }
      case Node::Kind::kStart:
        return (at == 0 || (multiline_ && text_[Index(at - 1)] == u'\n')) && next(state);
      case Node::Kind::kEnd:
        return (at == size || (multiline_ && text_[Index(at)] == u'\n')) && next(state);
      case Node::Kind::kEdge:
      case Node::Kind::kNoEdge:
        return (IsWord(at - 1) != IsWord(at)) == (node.kind == Node::Kind::kEdge) && next(state);
      case Node::Kind::kReference: {
        const Span span = state.groups[Index(node.number)];
        const int length = span.start < 0 ? 0 : span.end - span.start;
        if (at + length > size) return false;
        for (int i = 0; i < length; ++i) {
          if (!Same(text_[Index(span.start + i)], text_[Index(at + i)])) return false;
        }
        return Step(state, length, next);
      }
      case Node::Kind::kGroup:
        return Match(*node.parts[0], state, [&](const State& inner) {
          State closed = inner;
          closed.groups[Index(node.number)] = {at, inner.at};
          return next(closed);
        });
      case Node::Kind::kPlain:
        return Match(*node.parts[0], state, next);
      case Node::Kind::kLook: {
        State found;
        const bool holds = Match(*node.parts[0], state, [&](const State& inner) {
          found = inner;
          return true;
        });
        if (holds == node.negated) return false;
        if (node.negated) return next(state);
        found.at = at;
        return next(found);
      }
      case Node::Kind::kRepeat:
        return Repeat(node, node.min, node.max, state, next);
      case Node::Kind::kSeq:
        return Sequence(node, 0, state, next);
      case Node::Kind::kAlt:
        for (const auto& part : node.parts) {
          if (Match(*part, state, next)) return true;
        }
        return false;
    }
    return false;
  }

 private:
  static std::size_t Index(int i) { return static_cast<std::size_t>(i); }
  static char16_t Upper(char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c; }
  bool Same(char16_t a, char16_t b) const { return ignore_case_ ? Upper(a) == Upper(b) : a == b; }
  bool IsWord(int at) const {
    return at >= 0 && at < static_cast<int>(text_.size()) && text_[Index(at)] != u'-' && text_[Index(at)] != u'\n';
  }
  static bool Step(const State& state, int length, const Next& next) {
    State moved = state;
    moved.at += length;
    return next(moved);
  }
  bool Sequence(const Node& node, std::size_t part, const State& state, const Next& next) {
    if (part == node.parts.size()) return next(state);
    return Match(*node.parts[part], state,
                 [&, part](const State& inner) { return Sequence(node, part + 1, inner, next); });
  }
  bool Repeat(const Node& node, int min, int max, const State& state, const Next& next) {
    if (--budget < 0) return false;
    if (max == 0) return next(state);
    State cleared = state;
    for (int g = node.first_group; g < node.last_group; ++g) cleared.groups[Index(g)] = {};
    const auto round = [&] {
      return Match(*node.parts[0], cleared, [&](const State& inner) {
        if (min == 0 && inner.at == state.at) return false;
        return Repeat(node, min == 0 ? 0 : min - 1, max < 0 ? max : max - 1, inner, next);
      });
    };
    if (min > 0) return round();
    if (node.lazy) return next(state) || round();
    return round() || next(state);
  }

  std::u16string text_;
  bool ignore_case_;
  bool multiline_;
};

}  // namespace qv::vbscript::regexp_model
