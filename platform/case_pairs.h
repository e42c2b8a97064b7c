#pragma once

namespace qv {

// The other case of a letter, or the character itself where it has none. A pair maps both ways, so that two texts that
// are equal in one case are so in the other; the final sigma alone has an upper case that doesn't lead back to it.
char32_t UpperCaseOf(char32_t code);
char32_t LowerCaseOf(char32_t code);

}  // namespace qv
