#pragma once

#include <string_view>

namespace qv::vbscript {

// Dates and currency are written the American way in all of them; the decimal mark is the locale's own.
struct Locale {
  int id;
  const char16_t* tag;
  char16_t decimal_mark;
};

inline constexpr Locale kHostLocale = {1033, u"en-us", u'.'};

// Null for a locale that is not known.
const Locale* FindLocale(int id);
const Locale* FindLocale(std::u16string_view tag);

}  // namespace qv::vbscript
