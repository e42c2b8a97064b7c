#pragma once

#include <random>

#include "tests/vbscript/regexp_model.h"

namespace qv::vbscript::regexp_model {

// Makes patterns with their text.
class Maker {
 public:
  explicit Maker(unsigned seed) : random_(seed) {}
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  int groups() const { return groups_; }

  std::unique_ptr<Node> Pattern(std::u16string& text, int depth) {
    auto made = std::make_unique<Node>();
    const int branches = Below(4) == 0 ? 2 : 1;
    if (branches == 1) return Sequence(text, depth);
    made->kind = Node::Kind::kAlt;
    for (int i = 0; i < branches; ++i) {
      if (i > 0) text += u'|';
      made->parts.push_back(Sequence(text, depth));
    }
    return made;
  }

  std::u16string Text() {
    std::u16string text;
    for (int i = Below(9); i > 0; --i) text += u"aabbAc-\n"[Below(8)];
    return text;
  }

 private:
  std::unique_ptr<Node> Sequence(std::u16string& text, int depth) {
    auto made = std::make_unique<Node>();
    for (int i = Below(4); i > 0; --i) made->parts.push_back(Term(text, depth));
    return made;
  }

  std::unique_ptr<Node> Term(std::u16string& text, int depth) {
    const int first_group = groups_ + 1;
    bool repeatable = true;
    auto atom = Atom(text, depth, repeatable);
    if (!repeatable || Below(2) == 0) return atom;
    auto made = std::make_unique<Node>();
    made->kind = Node::Kind::kRepeat;
    made->first_group = first_group;
    made->last_group = groups_ + 1;
    struct Bounds {
      const char16_t* text;
      int min;
      int max;
    };
    static constexpr Bounds kBounds[] = {{u"*", 0, -1},    {u"+", 1, -1},    {u"?", 0, 1},
                                         {u"{2}", 2, 2},   {u"{0}", 0, 0},   {u"{1,2}", 1, 2},
                                         {u"{2,}", 2, -1}, {u"{0,3}", 0, 3}, {u"{3}", 3, 3}};
    const Bounds& bounds = kBounds[Below(9)];
    text += bounds.text;
    made->min = bounds.min;
    made->max = bounds.max;
    made->lazy = Below(3) == 0;
    if (made->lazy) text += u'?';
    made->parts.push_back(std::move(atom));
    return made;
  }

  std::unique_ptr<Node> Atom(std::u16string& text, int depth, bool& repeatable) {
    auto made = std::make_unique<Node>();
    switch (Below(depth > 0 ? 14 : 8)) {
      case 0:
        made->kind = Node::Kind::kAny;
        text += u'.';
        break;
      case 1:
        made->kind = Node::Kind::kSet;
        made->negated = Below(2) == 0;
        made->set = Below(2) == 0 ? u"ab" : u"c-";
        text += made->negated ? u"[^" : u"[";
        text += made->set + u"]";
        break;
      case 2: {
        static constexpr Node::Kind kKinds[] = {Node::Kind::kStart, Node::Kind::kEnd, Node::Kind::kEdge,
                                                Node::Kind::kNoEdge};
        static constexpr const char16_t* kTexts[] = {u"^", u"$", u"\\b", u"\\B"};
        const int which = Below(4);
        made->kind = kKinds[which];
        text += kTexts[which];
        repeatable = false;
        break;
      }
      case 3:
        if (groups_ > 0) {
          made->kind = Node::Kind::kReference;
          made->number = 1 + Below(groups_);
          text += u'\\';
          text += static_cast<char16_t>(u'0' + made->number);
          // A digit behind it would belong to it; none of the patterns has one.
          break;
        }
        [[fallthrough]];
      case 4:
      case 5:
      case 6:
      case 7:
        made->kind = Node::Kind::kChar;
        made->c = u"aabBc-"[Below(6)];
        text += made->c;
        break;
      case 8:
      case 9:
      case 10:
        made->kind = Node::Kind::kGroup;
        if (groups_ == 9) return Plain(text, depth, u"(?:", Node::Kind::kPlain);
        made->number = ++groups_;
        text += u'(';
        made->parts.push_back(Pattern(text, depth - 1));
        text += u')';
        break;
      case 11:
      case 12:
        return Plain(text, depth, u"(?:", Node::Kind::kPlain);
      default:
        repeatable = false;
        made->negated = Below(2) == 0;
        made->kind = Node::Kind::kLook;
        text += made->negated ? u"(?!" : u"(?=";
        made->parts.push_back(Pattern(text, depth - 1));
        text += u')';
        break;
    }
    return made;
  }

  std::unique_ptr<Node> Plain(std::u16string& text, int depth, const char16_t* open, Node::Kind kind) {
    auto made = std::make_unique<Node>();
    made->kind = kind;
    text += open;
    made->parts.push_back(Pattern(text, depth - 1));
    text += u')';
    return made;
  }

  std::mt19937 random_;
  int groups_ = 0;
};

}  // namespace qv::vbscript::regexp_model
