#include "editor/script_files.h"

#include "platform/runtime_error.h"
#include "services/server_context.h"
#include "services/text_files.h"

namespace qv {

namespace {

std::string ScriptPath(Run& run, const std::string& id, const std::string& postoffice, const char* extension) {
  const std::string folder =
      postoffice.empty() ? "\\Filters\\Criteria\\" : "\\postoffices\\" + postoffice + "\\rules\\Criteria\\";
  return GetConfigurationDirectory(run, "") + folder + id + extension;
}

std::string ActivePath(Run& run, const std::string& id, const std::string& postoffice) {
  return ScriptPath(run, id, postoffice, ".QVS");
}

std::string SwitchedOffPath(Run& run, const std::string& id, const std::string& postoffice) {
  return ScriptPath(run, id, postoffice, ".QV_");
}

void MoveScript(Run& run, const std::string& from, const std::string& to, bool overwrite) {
  if (run.files.FileExists(to)) {
    if (!overwrite) return;
    IgnoreErrors([&] { run.files.Delete(to); });
  }
  IgnoreErrors([&] { run.files.Rename(from, to); });
}

}  // namespace

std::int32_t GetScriptingStatus(Run& run) { return ReadServerWord(run, keys::kScripting, "Scripting Status", 0, ""); }

CriteriaScriptState GetCriteriaScriptState(Run& run, const std::string& ID, const std::string& Postoffice) {
  if (run.files.FileExists(ActivePath(run, ID, Postoffice))) return kScriptActive;
  if (run.files.FileExists(SwitchedOffPath(run, ID, Postoffice))) return kScriptSwitchedOff;
  return kNoScript;
}

std::string ReadCriteriaScript(Run& run, const std::string& ID, const std::string& Postoffice) {
  switch (GetCriteriaScriptState(run, ID, Postoffice)) {
    case kScriptActive:
      return ReadTextFile(run, ActivePath(run, ID, Postoffice));
    case kScriptSwitchedOff:
      return ReadTextFile(run, SwitchedOffPath(run, ID, Postoffice));
    case kNoScript:
      break;
  }
  return "";
}

void WriteCriteriaScript(Run& run, const std::string& ID, const std::string& Text, const std::string& Postoffice) {
  const bool active = GetCriteriaScriptState(run, ID, Postoffice) == kScriptActive;
  WriteTextFile(run, SwitchedOffPath(run, ID, Postoffice), Text);
  if (active) WriteTextFile(run, ActivePath(run, ID, Postoffice), Text);
}

void EnableCriteriaScript(Run& run, const std::string& ID, bool Overwrite, const std::string& Postoffice) {
  MoveScript(run, SwitchedOffPath(run, ID, Postoffice), ActivePath(run, ID, Postoffice), Overwrite);
}

void DisableCriteriaScript(Run& run, const std::string& ID, bool Overwrite, const std::string& Postoffice) {
  MoveScript(run, ActivePath(run, ID, Postoffice), SwitchedOffPath(run, ID, Postoffice), Overwrite);
}

}  // namespace qv
