#pragma once

#include <cstdint>
#include <string_view>

#include "vbscript/atoms.h"
#include "vbscript/failure.h"
#include "vbscript/value.h"

namespace qv::vbscript {

// The kinds of tokens. The reserved words come last, in the order of the lexer's table.
enum class Tok : std::uint8_t {
  kEnd,
  kLineEnd,
  kColon,
  kName,
  kNumber,
  kString,
  kDate,
  kLeft,
  kRight,
  kComma,
  kDot,
  kPlus,
  kMinus,
  kStar,
  kSlash,
  kBackslash,
  kCaret,
  kAmpersand,
  kEqual,
  kNotEqual,
  kLess,
  kGreater,
  kLessEqual,
  kGreaterEqual,
  kAnd,
  kAs,
  kBoolean,
  kByRef,
  kByVal,
  kByte,
  kCall,
  kCase,
  kClass,
  kConst,
  kCurrency,
  kDebug,
  kDim,
  kDo,
  kDouble,
  kEach,
  kElse,
  kElseIf,
  kEmpty,
  kEndWord,
  kEndIf,
  kEnum,
  kEqv,
  kEvent,
  kExit,
  kFalse,
  kFor,
  kFunction,
  kGet,
  kGoTo,
  kIf,
  kImp,
  kImplements,
  kIn,
  kInteger,
  kIs,
  kLet,
  kLike,
  kLong,
  kLoop,
  kLSet,
  kMe,
  kMod,
  kNew,
  kNext,
  kNot,
  kNothing,
  kNull,
  kOn,
  kOption,
  kOptional,
  kOr,
  kParamArray,
  kPreserve,
  kPrivate,
  kPublic,
  kRaiseEvent,
  kReDim,
  kRem,
  kResume,
  kRSet,
  kSelect,
  kSet,
  kShared,
  kSingle,
  kStatic,
  kStop,
  kSub,
  kThen,
  kTo,
  kTrue,
  kType,
  kTypeOf,
  kUntil,
  kVariant,
  kWend,
  kWhile,
  kWith,
  kXor,
};

inline bool IsWord(Tok kind) { return kind >= Tok::kAnd; }

struct Token {
  Tok kind = Tok::kEnd;
  Place place;
  Place end;                 // just behind it
  std::u16string_view text;  // as written, without the brackets of a bracketed name
  Atom atom = kNoAtom;       // of a name or a reserved word
  Value value;               // of a literal
};

}  // namespace qv::vbscript
