#pragma once

#include <optional>
#include <string>

namespace qv {

// What a script host reports of the error that ended a run.
struct ScriptFault {
  long Line = 0;    // from 1
  long Column = 0;  // from 0
  long Number = 0;
  std::string Source;
  std::string Description;
  std::string Text;  // the source line in question
};

// A host of VBScript text with no user interface and no access to files or objects.
class ScriptHost {
 public:
  virtual ~ScriptHost() = default;

  // Compiles the code and runs its statements outside any procedure. Nothing when all went well. Runs until the
  // script ends or the person who waits stops it, which is a fault of its own.
  virtual std::optional<ScriptFault> AddCode(const std::string& code) = 0;
};

}  // namespace qv
