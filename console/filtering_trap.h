#pragma once

#include <utility>

#include "console/filtering.h"
#include "platform/runtime_error.h"

namespace qv {

// The error trap of the console's events: the fixed text and the error's description in a box of the console, and the
// user goes on.
template <class Step>
void Filtering::Trap(const char* text, Step&& step, const char* title) {
  try {
    std::forward<Step>(step)();
  } catch (const RuntimeError& error) {
    console_.ConsoleMsgBox(text + error.description(), title);
  }
}

}  // namespace qv
