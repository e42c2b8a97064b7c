#pragma once

namespace qv::vbscript {

// Code page 1252, which Asc and Chr speak.
char16_t CodePageCharacter(unsigned char byte);
// "?" for what the page has not.
unsigned char CodePageByte(char16_t character);

}  // namespace qv::vbscript
