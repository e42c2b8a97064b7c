#pragma once

#include <cstdint>
#include <string>

#include "services/run.h"

namespace qv {

// The files of a filter's criteria script. Which of the two files exists is the script's whole state. They are files of
// the machine that runs the console, whichever server it administers. `ID` is the filter's id in its CRT form; a filter
// of a postoffice has its files below that postoffice, any other below the server. None of these routines raises.

enum CriteriaScriptState {
  kNoScript = 0,
  kScriptActive = 1,
  kScriptSwitchedOff = 2  // the switched-off file alone
};

// Not 0 when the local server has criteria scripts switched on.
std::int32_t GetScriptingStatus(Run& run);

CriteriaScriptState GetCriteriaScriptState(Run& run, const std::string& ID, const std::string& Postoffice);

// The script's text, whichever file holds it; empty when there is none.
std::string ReadCriteriaScript(Run& run, const std::string& ID, const std::string& Postoffice);

// Saves the text without changing the state, save that a new script is born switched off. An active script gets a
// switched-off copy beside it.
void WriteCriteriaScript(Run& run, const std::string& ID, const std::string& Text, const std::string& Postoffice);

// Moves the switched-off file to the active name, or back. A file of the new name is replaced with `Overwrite` and
// otherwise keeps everything as it is.
void EnableCriteriaScript(Run& run, const std::string& ID, bool Overwrite, const std::string& Postoffice);
void DisableCriteriaScript(Run& run, const std::string& ID, bool Overwrite, const std::string& Postoffice);

}  // namespace qv
