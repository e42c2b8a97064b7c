#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace qv {

// What the store or the platform raises when a call cannot be carried out. `number` is the desktop runtime's error
// number where the error has one, otherwise 440. `description` is the text that the user is shown.
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(long number, const std::string& description) : std::runtime_error(description), number_(number) {}
  explicit RuntimeError(const std::string& description) : RuntimeError(440, description) {}

  long number() const { return number_; }
  std::string description() const { return what(); }

 private:
  long number_;
};

// Thrown out of a modal wait when the person has gone away. It is no RuntimeError and no std::exception, so that no
// error trap holds it and the run unwinds.
class RunEnded {};

// Runs one step with its errors ignored: the step ends where the error arose, and the routine goes on behind it.
template <class Step>
void IgnoreErrors(Step&& step) {
  try {
    std::forward<Step>(step)();
  } catch (const RuntimeError&) {  // NOLINT(bugprone-empty-catch)
  }
}

}  // namespace qv
