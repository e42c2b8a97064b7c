#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "vbscript/engine.h"

namespace qv::vbscript {

// What running a script came to: what it printed, one line a call of Print, and the error that ended it.
struct Outcome {
  std::string printed;
  std::optional<ScriptError> error;
};

// Runs the script to its end, where its objects go.
Outcome RunScript(const std::string& script, const EngineOptions& options = {});

// The printed text; the error in brackets if there was one.
std::string Told(const std::string& script, const EngineOptions& options = {});

// The value of an expression with its type: "3 Integer". An error gives its number: "!13".
std::string ValueOf(const std::string& expression);

struct ScriptRow {
  const char* script;
  const char* told;
};

template <std::size_t N>
void CheckScripts(const ScriptRow (&rows)[N]) {
  for (const ScriptRow& row : rows) EXPECT_EQ(Told(row.script), row.told) << row.script;
}

struct ValueRow {
  const char* expression;
  const char* value;
};

template <std::size_t N>
void CheckValues(const ValueRow (&rows)[N]) {
  for (const ValueRow& row : rows) EXPECT_EQ(ValueOf(row.expression), row.value) << row.expression;
}

}  // namespace qv::vbscript
