#pragma once

#include <string>

namespace qv::vbscript {

// A place in a script. Lines count from 1, columns from 0 in UTF-16 units.
struct Place {
  int line = 0;
  int column = 0;
};

// What is thrown when a script fails, while it is compiled or while it runs.
struct Failure {
  int number = 0;
  std::string description;  // the bare text, as Err.Description has it
  std::string source;
  std::string name;        // the offending name that the host's description ends in; may be empty
  std::string value_name;  // stands in where the instruction has no name
  std::string help_file;
  int help_context = 0;
  std::string text;  // the source line of a compile error
  Place place;
  bool placed = false;     // place has been filled in
  bool takes_name = true;  // the machine may add the name that the compiler noted for the instruction
  bool catchable = true;   // On Error Resume Next may handle it
};

constexpr int kInvalidCall = 5;
constexpr int kOverflow = 6;
constexpr int kOutOfMemory = 7;
constexpr int kSubscript = 9;
constexpr int kArrayLocked = 10;
constexpr int kDivisionByZero = 11;
constexpr int kTypeMismatch = 13;
constexpr int kOutOfStringSpace = 14;
constexpr int kInterrupted = 18;
constexpr int kOutOfStack = 28;
constexpr int kPermissionDenied = 70;
constexpr int kObjectNotSet = 91;
constexpr int kLoopNotInitialized = 92;
constexpr int kInvalidNull = 94;
constexpr int kObjectRequired = 424;
constexpr int kCannotCreate = 429;
constexpr int kNoSuchMember = 438;
constexpr int kBadLocale = 447;
constexpr int kArgumentCount = 450;
constexpr int kNotACollection = 451;
constexpr int kBadAutomationType = 458;
constexpr int kUndefinedName = 500;
constexpr int kIllegalAssignment = 501;
constexpr int kInvalidReference = 505;
constexpr int kClassNotDefined = 506;

// The fixed text of a run-time error; "Unknown runtime error" for a number without one.
const char* RuntimeErrorText(int number);
// The fixed text of a compile error.
const char* CompileErrorText(int number);

const char* const kRuntimeSource = "Microsoft VBScript runtime error";
const char* const kCompileSource = "Microsoft VBScript compilation error";

// Raise a run-time error with its fixed text. The first two take the name that stands at the instruction, if any; the
// second has another one for want of it.
[[noreturn]] void Raise(int number);
[[noreturn]] void RaiseAbout(int number, std::string value_name);
[[noreturn]] void RaiseNamed(int number, std::string name);
[[noreturn]] void RaiseBare(int number);

}  // namespace qv::vbscript
