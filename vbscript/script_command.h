#pragma once

#include <ostream>
#include <string>

#include "vbscript/engine.h"

namespace qv::vbscript {

// Both read a script's file and give the exit status: 0, or 1 when the script or its file is at fault. An error goes
// to `err` as FILE:LINE:COLUMN: error NUMBER: DESCRIPTION, with the column counted from 1.

// Compiles the script and runs nothing of it.
int ScriptCheck(const std::string& path, const EngineOptions& options, std::ostream& out, std::ostream& err);
// Runs the script. It may call Print, which writes its arguments as one line to `out`.
int ScriptRun(const std::string& path, const EngineOptions& options, std::ostream& out, std::ostream& err);

}  // namespace qv::vbscript
