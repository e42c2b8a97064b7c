#pragma once

#include <ostream>
#include <string>

#include "vbscript/engine.h"

namespace qv::vbscript {

// The function Print: writes its arguments to `out`, a blank between them, and ends the line.
HostFunction PrintTo(std::ostream& out);

// Both take the text of a file, in UTF-8, and give the exit status: 0, or 1 when the script is at fault. An error goes
// to `err` as FILE:LINE:COLUMN: error NUMBER: DESCRIPTION, with the column counted from 1.

// Compiles the script and runs nothing of it.
int ScriptCheck(const std::string& path, const std::string& text, const EngineOptions& options, std::ostream& out,
                std::ostream& err);
// Runs the script to its end, where its objects go. It may call Print.
int ScriptRun(const std::string& path, const std::string& text, const EngineOptions& options, std::ostream& out,
              std::ostream& err);

}  // namespace qv::vbscript
