#pragma once

#include <string_view>

#include "vbscript/context.h"

namespace qv::vbscript {

// Looks for one text in others, by character code.
class Finder {
 public:
  // `find` has to outlive the finder.
  Finder(Context& context, std::u16string_view find);

  // The first place at or behind `from`; npos if none. An empty text is found at `from`. Polls the context.
  std::size_t In(std::u16string_view text, std::size_t from) const;
  // The same in a string; one that is long and searched again and again is searched the quicker for it.
  std::size_t In(const Value& text, std::size_t from) const;

 private:
  std::size_t InNarrow(std::string_view text, std::size_t& from) const;

  Context& context_;
  std::u16string_view find_;
  std::size_t rarest_ = 0;  // the place of the byte that texts are likely to hold least often
};

// The first place at or behind `from`; npos if none. Polls the context.
std::size_t Search(Context& context, std::u16string_view text, std::u16string_view find, std::size_t from,
                   bool ignore_case);

}  // namespace qv::vbscript
