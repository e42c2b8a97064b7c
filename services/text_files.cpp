#include "services/text_files.h"

#include "platform/runtime_error.h"

namespace qv {

std::string ReadTextFile(Run& run, const std::string& path) {
  std::string text;
  IgnoreErrors([&] { text = run.files.ReadAll(path); });
  return text;
}

void WriteTextFile(Run& run, const std::string& path, const std::string& text) {
  IgnoreErrors([&] { run.files.Write(path, text); });
}

}  // namespace qv
