#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace qv::vbscript {

// An error of a script, as the host is told of it.
struct ScriptError {
  long number = 0;
  std::string source;
  std::string description;  // with the offending name behind it, where there is one
  std::string text;         // the source line of a compile error; empty for a run-time error
  long line = 0;            // from 1
  long column = 0;          // from 0, in UTF-16 units
};

// A value on its way between the host and a script: nothing, Null, a Boolean, a number or UTF-8 text. Of the script's
// numbers, those that a double does not hold as they are written come as text: Single, Currency and dates.
using HostValue = std::variant<std::monostate, std::nullptr_t, bool, double, std::string>;
// May throw ScriptError, of which the number, description and source are taken.
using HostFunction = std::function<HostValue(const std::vector<HostValue>&)>;

struct EngineOptions {
  bool bracketed_names = true;    // [name] is a name; otherwise the bracket is an invalid character
  bool procedures_clash = false;  // two procedures of one name in one text are 1041; otherwise the last one wins
  bool safe_subset = true;        // kept for the host's sake: nothing that a script can reach is unsafe
  std::size_t memory_limit = 256U << 20;  // bytes; beyond it error 7
  std::size_t string_limit = 64U << 20;   // bytes in one string, two a character; beyond it error 14
  int depth_limit = 1024;                 // nested calls; beyond it error 28
  std::uint64_t step_limit = 0;           // rounds, calls and other steps until the interrupt; 0 is no limit
  // Ways of matching that one search of a regular expression may try; beyond it error 5017. It takes seconds.
  std::uint64_t match_limit = 100'000'000;
  // Ends the run with error 18, "The script was interrupted", soon after it becomes true. A script cannot handle it.
  const std::atomic<bool>* interrupt = nullptr;
};

// One script engine: the texts added share their global names. It is used by one thread at a time.
class Engine {
 public:
  explicit Engine(const EngineOptions& options);
  ~Engine();
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  // Compiles the text and, if that succeeds, runs its outer statements. What it defines stays.
  std::optional<ScriptError> AddCode(std::string_view utf8);
  // Compiles the text and runs nothing of it.
  std::optional<ScriptError> Check(std::string_view utf8);
  // Works out one expression; `=` compares. The result is given as text.
  std::optional<ScriptError> Eval(std::string_view utf8, std::string& result);
  // Ends the script: its variables go, and objects that nothing holds any more run their Class_Terminate. Gives the
  // first error of these.
  std::optional<ScriptError> End();
  // Makes a function that scripts can call; any number of arguments from fewest to most, -1 for no upper limit.
  void RegisterFunction(std::string_view name, int fewest, int most, HostFunction function);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace qv::vbscript
