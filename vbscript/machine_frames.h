#pragma once

#include "vbscript/failure.h"
#include "vbscript/machine.h"

namespace qv::vbscript {

// Opens a frame whose arguments stand behind t, where the result will come to.
inline void Machine::Enter(const Procedure& procedure, Value* t, std::uint32_t count, ScriptObject* me) {
  if (count != procedure.params) FailToEnter(procedure, kArgumentCount);
  Value* registers = t + 1;
  if (free_frame_ == frames_end_ || stack_end_ - registers < static_cast<std::ptrdiff_t>(procedure.registers) + 64) {
    FailToEnter(procedure, kOutOfStack);
  }
  Poll();
  Frame& made = *free_frame_++;
  made.procedure = &procedure;
  made.pc = procedure.code.data();
  made.registers = registers;
  made.me = me;
  made.result = t;
  made.made = nullptr;
  made.activation = -1;
  made.resume_next = false;
}

// Closes the frame. What lies above the registers of the frame below is empty at all times.
[[gnu::always_inline]] inline void Machine::Leave() {
  Frame& done = frame();
  Value* registers = done.registers;
  const std::uint32_t count = done.procedure->registers;
  Value* into = done.result;
  Value result = std::move(registers[done.procedure->result]);
  for (std::uint32_t k = 0; k < count; ++k) registers[k].Clear();
  Drop();
  *into = std::move(result);
}

inline void Machine::Drop() {
  delete frame().made;
  --free_frame_;
}

}  // namespace qv::vbscript
