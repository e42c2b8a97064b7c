#pragma once

#include <string>
#include <vector>

namespace qv {

struct ProgramResult {
  int status = -1;  // the exit status; -1 when a signal ended it
  std::string out, err;
};

// Runs qvadmin with arguments and a standard input, to its end.
ProgramResult RunProgram(const std::vector<std::string>& arguments, const std::string& input = "");

}  // namespace qv
