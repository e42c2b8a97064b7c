#include "vbscript/lexer.h"

#include <algorithm>
#include <iterator>

#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

struct Word {
  const char16_t* name;
  Tok kind;
};

// Sorted by name.
constexpr Word kWords[] = {
    {u"and", Tok::kAnd},
    {u"as", Tok::kAs},
    {u"boolean", Tok::kBoolean},
    {u"byref", Tok::kByRef},
    {u"byte", Tok::kByte},
    {u"byval", Tok::kByVal},
    {u"call", Tok::kCall},
    {u"case", Tok::kCase},
    {u"class", Tok::kClass},
    {u"const", Tok::kConst},
    {u"currency", Tok::kCurrency},
    {u"debug", Tok::kDebug},
    {u"dim", Tok::kDim},
    {u"do", Tok::kDo},
    {u"double", Tok::kDouble},
    {u"each", Tok::kEach},
    {u"else", Tok::kElse},
    {u"elseif", Tok::kElseIf},
    {u"empty", Tok::kEmpty},
    {u"end", Tok::kEndWord},
    {u"endif", Tok::kEndIf},
    {u"enum", Tok::kEnum},
    {u"eqv", Tok::kEqv},
    {u"event", Tok::kEvent},
    {u"exit", Tok::kExit},
    {u"false", Tok::kFalse},
    {u"for", Tok::kFor},
    {u"function", Tok::kFunction},
    {u"get", Tok::kGet},
    {u"goto", Tok::kGoTo},
    {u"if", Tok::kIf},
    {u"imp", Tok::kImp},
    {u"implements", Tok::kImplements},
    {u"in", Tok::kIn},
    {u"integer", Tok::kInteger},
    {u"is", Tok::kIs},
    {u"let", Tok::kLet},
    {u"like", Tok::kLike},
    {u"long", Tok::kLong},
    {u"loop", Tok::kLoop},
    {u"lset", Tok::kLSet},
    {u"me", Tok::kMe},
    {u"mod", Tok::kMod},
    {u"new", Tok::kNew},
    {u"next", Tok::kNext},
    {u"not", Tok::kNot},
    {u"nothing", Tok::kNothing},
    {u"null", Tok::kNull},
    {u"on", Tok::kOn},
    {u"option", Tok::kOption},
    {u"optional", Tok::kOptional},
    {u"or", Tok::kOr},
    {u"paramarray", Tok::kParamArray},
    {u"preserve", Tok::kPreserve},
    {u"private", Tok::kPrivate},
    {u"public", Tok::kPublic},
    {u"raiseevent", Tok::kRaiseEvent},
    {u"redim", Tok::kReDim},
    {u"rem", Tok::kRem},
    {u"resume", Tok::kResume},
    {u"rset", Tok::kRSet},
    {u"select", Tok::kSelect},
    {u"set", Tok::kSet},
    {u"shared", Tok::kShared},
    {u"single", Tok::kSingle},
    {u"static", Tok::kStatic},
    {u"stop", Tok::kStop},
    {u"sub", Tok::kSub},
    {u"then", Tok::kThen},
    {u"to", Tok::kTo},
    {u"true", Tok::kTrue},
    {u"type", Tok::kType},
    {u"typeof", Tok::kTypeOf},
    {u"until", Tok::kUntil},
    {u"variant", Tok::kVariant},
    {u"wend", Tok::kWend},
    {u"while", Tok::kWhile},
    {u"with", Tok::kWith},
    {u"xor", Tok::kXor},
};

Tok WordKind(std::u16string_view folded) {
  const auto* word = std::lower_bound(std::begin(kWords), std::end(kWords), folded,
                                      [](const Word& entry, std::u16string_view name) { return entry.name < name; });
  return word != std::end(kWords) && folded == word->name ? word->kind : Tok::kName;
}

bool IsLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsNamePart(char16_t c) { return IsLetter(c) || IsDigit(c) || c == u'_'; }
bool IsBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\v' || c == u'\f'; }

constexpr std::size_t kLongestName = 255;

}  // namespace

Lexer::Lexer(Context& context, Atoms& atoms, std::u16string_view text, bool bracketed_names)
    : context_(context), atoms_(atoms), text_(text), bracketed_names_(bracketed_names) {}

void Lexer::Fail(int number, Place place) const {
  std::size_t start = 0;
  for (int line = 1; line < place.line; ++line) {
    const std::size_t end = text_.find_first_of(u"\r\n", start);
    start = end + (text_[end] == u'\r' && end + 1 < text_.size() && text_[end + 1] == u'\n' ? 2 : 1);
  }
  const std::size_t end = std::min(text_.find_first_of(u"\r\n", start), text_.size());
  Failure failure;
  failure.number = number;
  failure.description = CompileErrorText(number);
  failure.source = kCompileSource;
  failure.text = ToUtf8(text_.substr(start, end - start));
  failure.place = place;
  failure.placed = true;
  failure.takes_name = false;
  throw failure;
}

Token Lexer::Next() {
  context_.Poll();
  Token token = Scan();
  last_ = token.kind;
  return token;
}

Token Lexer::Scan() {
  for (;;) {
    SkipBlanks();
    if (AtLineEnd()) return LineEnd();
    const char16_t c = text_[at_];
    if (c == u'\'') {
      SkipToLineEnd();
    } else if (c == u'_') {
      if (!ContinueLine()) Fail(1032, At(at_));
    } else if (IsLetter(c)) {
      Token name = Name();
      if (!IsRem(name)) return name;
      SkipToLineEnd();
    } else if (c == u'[') {
      return BracketedName();
    } else if (IsDigit(c) || (c == u'.' && IsDigit(Peek(1)))) {
      return Number();
    } else if (c == u'"') {
      return String();
    } else if (c == u'#') {
      return DateLiteral();
    } else if (c == u'&' && StartsRadixLiteral()) {
      return RadixLiteral();
    } else {
      return Symbol();
    }
  }
}

void Lexer::SkipBlanks() {
  while (!AtEnd() && IsBlank(text_[at_])) ++at_;
}

void Lexer::SkipToLineEnd() {
  while (!AtLineEnd()) ++at_;
}

// At an underscore: passes to the next line if nothing but blanks follows, else stops at what does.
bool Lexer::ContinueLine() {
  const std::size_t underscore = at_++;
  SkipBlanks();
  if (AtEnd()) return true;
  if (!AtLineEnd()) {
    // Where a name is expected, the underscore itself is what cannot stand there.
    const bool behind_operand = last_ == Tok::kName || last_ == Tok::kNumber || last_ == Tok::kString ||
                                last_ == Tok::kDate || last_ == Tok::kRight;
    if (at_ == underscore + 1 && IsNamePart(text_[at_]) && !behind_operand) at_ = underscore;
    return false;
  }
  LineEnd();
  return true;
}

Token Lexer::LineEnd() {
  Token token = Make(Tok::kLineEnd, at_);
  if (AtEnd()) {
    token.kind = Tok::kEnd;
    return token;
  }
  at_ += text_[at_] == u'\r' && Peek(1) == u'\n' ? 2 : 1;
  line_start_ = at_;
  ++line_;
  return token;
}

Token Lexer::Make(Tok kind, std::size_t start) const {
  Token token;
  token.kind = kind;
  token.place = At(start);
  token.end = At(at_);
  token.text = text_.substr(start, at_ - start);
  return token;
}

Token Lexer::Name() {
  const std::size_t start = at_;
  while (!AtEnd() && IsNamePart(text_[at_])) ++at_;
  if (at_ - start > kLongestName) Fail(1030, At(at_));
  Token token = Make(Tok::kName, start);
  token.atom = atoms_.Intern(token.text);
  // Behind a dot every word is a member's name.
  if (last_ != Tok::kDot) token.kind = WordKind(atoms_.Name(token.atom));
  return token;
}

bool Lexer::IsRem(const Token& token) const {
  return token.kind == Tok::kRem &&
         (last_ == Tok::kLineEnd || last_ == Tok::kColon || last_ == Tok::kThen || last_ == Tok::kElse);
}

Token Lexer::BracketedName() {
  if (!bracketed_names_) Fail(1032, At(at_));
  const std::size_t start = ++at_;
  while (!AtLineEnd() && text_[at_] != u']' && text_[at_] != u'\0') ++at_;
  if (AtLineEnd()) Fail(1007, At(at_));
  if (text_[at_] == u'\0') Fail(1032, At(at_));
  if (at_ - start > kLongestName) Fail(1030, At(at_));
  Token token = Make(Tok::kName, start);
  token.place = At(start - 1);
  token.atom = atoms_.Intern(token.text);
  ++at_;
  token.end = At(at_);
  return token;
}

Token Lexer::String() {
  const std::size_t start = at_++;
  std::u16string text;
  for (;;) {
    if (AtLineEnd()) Fail(1033, At(at_));
    const std::size_t piece = at_;
    while (!AtLineEnd() && text_[at_] != u'"') ++at_;
    text.append(text_.substr(piece, at_ - piece));
    if (AtLineEnd()) continue;
    ++at_;
    if (Peek() != u'"' || AtEnd()) break;
    text.push_back(u'"');
    ++at_;
  }
  Token token = Make(Tok::kString, start);
  token.value = MakeText(context_, text);
  return token;
}

Token Lexer::Symbol() {
  static constexpr struct {
    char16_t first, second;
    Tok kind;
  } kPairs[] = {
      {u'<', u'=', Tok::kLessEqual},    {u'=', u'<', Tok::kLessEqual}, {u'>', u'=', Tok::kGreaterEqual},
      {u'=', u'>', Tok::kGreaterEqual}, {u'<', u'>', Tok::kNotEqual},  {u'>', u'<', Tok::kNotEqual},
  };
  static constexpr struct {
    char16_t character;
    Tok kind;
  } kSingles[] = {
      {u':', Tok::kColon}, {u'(', Tok::kLeft},      {u')', Tok::kRight}, {u',', Tok::kComma}, {u'.', Tok::kDot},
      {u'+', Tok::kPlus},  {u'-', Tok::kMinus},     {u'*', Tok::kStar},  {u'/', Tok::kSlash}, {u'\\', Tok::kBackslash},
      {u'^', Tok::kCaret}, {u'&', Tok::kAmpersand}, {u'=', Tok::kEqual}, {u'<', Tok::kLess},  {u'>', Tok::kGreater},
  };
  const std::size_t start = at_;
  for (const auto& pair : kPairs) {
    if (text_[at_] == pair.first && Peek(1) == pair.second) {
      at_ += 2;
      return Make(pair.kind, start);
    }
  }
  for (const auto& single : kSingles) {
    if (text_[at_] == single.character) {
      ++at_;
      return Make(single.kind, start);
    }
  }
  Fail(1032, At(at_));
}

}  // namespace qv::vbscript
