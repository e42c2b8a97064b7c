#pragma once

#include <string>

#include "services/run.h"

namespace qv {

// Whole files as text. Neither raises nor reports anything: a file that can't be read reads as an empty text, and a
// text that can't be written is lost.

// Empty for a file that is missing, empty or unreadable.
std::string ReadTextFile(Run& run, const std::string& path);

// Creates or replaces the file. Its folder must be there.
void WriteTextFile(Run& run, const std::string& path, const std::string& text);

}  // namespace qv
