#include "vbscript/compiler.h"
#include "vbscript/failure.h"

namespace qv::vbscript {

// Behind an error in a condition the script goes on inside the block that the condition guards.
void Compiler::If(const Stmt& stmt, std::size_t mark) {
  const std::uint32_t first_temp = next_temp_;
  std::vector<std::uint32_t> ends;
  for (std::size_t i = 0; i < stmt.branches.size(); ++i) {
    const Branch& branch = stmt.branches[i];
    if (branch.is_else) {
      Block(branch.body);
      continue;
    }
    const std::size_t condition = i == 0 ? mark : Mark(branch.place);
    Labels next;
    JumpUnless(branch.values[0], next);
    const std::uint32_t dirty = dirty_end_;
    if (dirty > first_temp) Emit(Op::kClear, TempAt(first_temp), 0, 0, dirty - first_temp);
    dirty_end_ = next_temp_ = first_temp;
    ResumeHere(condition);
    Block(branch.body);
    const bool last = i + 1 == stmt.branches.size();
    // Where the condition was false, its registers are still to be emptied.
    if (!last || dirty > first_temp) ends.push_back(Emit(Op::kJump));
    PatchHere(next.jumps);
    if (dirty > first_temp) Emit(Op::kClear, TempAt(first_temp), 0, 0, dirty - first_temp);
  }
  PatchHere(ends);
}

void Compiler::Select(const Stmt& stmt, std::size_t mark) {
  const std::uint32_t first_temp = next_temp_;
  const Operand subject = Temp();
  const Operand from = Evaluate(stmt.value);
  Emit(Op::kSubject, 0, subject, from);
  if (dirty_end_ > first_temp + 1) Emit(Op::kClear, TempAt(first_temp + 1), 0, 0, dirty_end_ - first_temp - 1);
  next_temp_ = first_temp + 1;
  std::vector<std::uint32_t> ends;
  Labels otherwise;
  std::vector<std::vector<std::uint32_t>> entries(stmt.branches.size());
  std::vector<std::vector<std::size_t>> marks(stmt.branches.size());
  std::size_t else_branch = stmt.branches.size();
  for (std::size_t i = 0; i < stmt.branches.size(); ++i) {
    const Branch& branch = stmt.branches[i];
    if (branch.is_else) {
      else_branch = i;
      break;
    }
    for (const Expr* value : branch.values) {
      marks[i].push_back(Mark(stmt.place));
      dirty_end_ = next_temp_;
      const Operand right = Evaluate(value);
      entries[i].push_back(Emit(Op::kJumpEqual, 0, subject, right, Flag(stmt.value, value)));
      if (dirty_end_ > first_temp + 1) Emit(Op::kClear, TempAt(first_temp + 1), 0, 0, dirty_end_ - first_temp - 1);
      next_temp_ = first_temp + 1;
    }
  }
  Mark(stmt.place);
  otherwise.jumps.push_back(Emit(Op::kJump));
  dirty_end_ = next_temp_;
  for (std::size_t i = 0; i < stmt.branches.size() && i <= else_branch; ++i) {
    if (i == else_branch) PatchHere(otherwise.jumps);
    PatchHere(entries[i]);
    for (const std::size_t entry : marks[i]) ResumeHere(entry);
    Block(stmt.branches[i].body);
    ends.push_back(Emit(Op::kJump));
  }
  if (else_branch == stmt.branches.size()) PatchHere(otherwise.jumps);
  PatchHere(ends);
  ResumeHere(mark);
  const std::size_t last = Mark(stmt.place);
  Emit(Op::kClear, subject, 0, 0, 1);
  ResumeHere(last);
  dirty_end_ = next_temp_ = first_temp;
}

void Compiler::For(const Stmt& stmt, std::size_t mark) {
  const std::uint32_t first_temp = next_temp_;
  const Operand variable = TargetVariable(stmt.target);
  if (variable == kNoOperand) return ResumeHere(mark);
  const Operand from = Temp();
  const Operand limit = Temp();
  const Operand step = Temp();
  // An empty step tells the end of the loop that its start went wrong.
  Emit(Op::kClear, from, 0, 0, 3);
  Evaluate(stmt.value, from);
  next_temp_ = SlotOf(step) + 1;
  Evaluate(stmt.limit, limit);
  next_temp_ = SlotOf(step) + 1;
  if (stmt.step) {
    Evaluate(stmt.step, step);
    next_temp_ = SlotOf(step) + 1;
  } else {
    Emit(Op::kLoad, step, Constant(Value::Integer(1)));
  }
  const std::uint32_t init = Emit(Op::kForInit, 0, from, variable);
  const std::uint32_t body = Here();
  ResumeHere(mark);
  code_->marks[mark].first_temp = first_temp;
  loops_.push_back({Tok::kFor, next_temp_, {}});
  dirty_end_ = next_temp_;
  Block(stmt.body);
  const std::size_t next = Mark(stmt.place);
  Emit(Op::kForNext, body, from, variable);
  code_->code[init].a = Here();
  PatchHere(loops_.back().exits);
  loops_.pop_back();
  ResumeHere(next);
  dirty_end_ = next_temp_ = first_temp;
}

void Compiler::ForEach(const Stmt& stmt, std::size_t mark) {
  const std::uint32_t first_temp = next_temp_;
  const Operand variable = TargetVariable(stmt.target);
  if (variable == kNoOperand) return ResumeHere(mark);
  const Operand collection = Temp();
  Temp();
  Emit(Op::kClear, collection, 0, 0, 2);
  const std::uint32_t behind = next_temp_;
  const Operand source = Evaluate(stmt.value);
  Emit(Op::kEachInit, 0, collection, source);
  if (dirty_end_ > behind) Emit(Op::kClear, TempAt(behind), 0, 0, dirty_end_ - behind);
  next_temp_ = dirty_end_ = behind;
  const std::uint32_t start = Emit(Op::kJump);
  const std::uint32_t body = Here();
  ResumeHere(mark);
  loops_.push_back({Tok::kFor, next_temp_, {}});
  Block(stmt.body);
  code_->code[start].a = Here();
  const std::size_t next = Mark(stmt.place);
  Emit(Op::kEachNext, body, collection, variable);
  PatchHere(loops_.back().exits);
  ResumeHere(next);
  const std::size_t last = Mark(stmt.place);
  Emit(Op::kClear, collection, 0, 0, 2);
  ResumeHere(last);
  loops_.pop_back();
  dirty_end_ = next_temp_ = first_temp;
}

void Compiler::While(const Stmt& stmt, std::size_t mark) {
  const std::uint32_t first_temp = next_temp_;
  const std::uint32_t top = Here();
  Labels end;
  JumpUnless(stmt.value, end);
  const std::uint32_t dirty = dirty_end_;
  if (dirty > first_temp) Emit(Op::kClear, TempAt(first_temp), 0, 0, dirty - first_temp);
  dirty_end_ = next_temp_ = first_temp;
  ResumeHere(mark);
  Block(stmt.body);
  Mark(stmt.place);
  Emit(Op::kLoopJump, top);
  PatchHere(end.jumps);
  const std::size_t last = Mark(stmt.place);
  if (dirty > first_temp) Emit(Op::kClear, TempAt(first_temp), 0, 0, dirty - first_temp);
  ResumeHere(last);
}

void Compiler::Do(const Stmt& stmt, std::size_t mark) {
  const std::uint32_t first_temp = next_temp_;
  const std::uint32_t top = Here();
  Labels end;
  std::uint32_t dirty = first_temp;
  if (stmt.value && !stmt.at_end) {
    JumpOn(stmt.value, stmt.until, 0);
    end.jumps.push_back(Here() - 1);
    dirty = dirty_end_;
    if (dirty > first_temp) Emit(Op::kClear, TempAt(first_temp), 0, 0, dirty - first_temp);
    dirty_end_ = next_temp_ = first_temp;
  }
  ResumeHere(mark);
  loops_.push_back({Tok::kDo, next_temp_, {}});
  Block(stmt.body);
  const std::size_t bottom = Mark(stmt.end_place);
  if (stmt.value && stmt.at_end) {
    JumpOn(stmt.value, !stmt.until, 0);
    end.jumps.push_back(Here() - 1);
    const std::uint32_t leave = Emit(Op::kJump);
    // The way back passes the interrupt.
    PatchHere({end.jumps.back()});
    end.jumps.pop_back();
    dirty = dirty_end_;
    if (dirty > first_temp) Emit(Op::kClear, TempAt(first_temp), 0, 0, dirty - first_temp);
    Emit(Op::kLoopJump, top);
    code_->code[leave].a = Here();
  } else {
    Emit(Op::kLoopJump, top);
  }
  PatchHere(end.jumps);
  PatchHere(loops_.back().exits);
  ResumeHere(bottom);
  const std::size_t last = Mark(stmt.end_place);
  if (dirty > first_temp) Emit(Op::kClear, TempAt(first_temp), 0, 0, dirty - first_temp);
  ResumeHere(last);
  loops_.pop_back();
  dirty_end_ = next_temp_ = first_temp;
}

void Compiler::With(const Stmt& stmt, std::size_t mark) {
  const std::uint32_t first_temp = next_temp_;
  const Operand object = Temp();
  Emit(Op::kClear, object, 0, 0, 1);
  const Operand from = Evaluate(stmt.value);
  NameHere(stmt.value->kind == ExprKind::kName ? Spelled(stmt.value) : std::string());
  Emit(Op::kWithInit, 0, object, from);
  if (dirty_end_ > first_temp + 1) Emit(Op::kClear, TempAt(first_temp + 1), 0, 0, dirty_end_ - first_temp - 1);
  next_temp_ = dirty_end_ = first_temp + 1;
  ResumeHere(mark);
  withs_.push_back(object);
  Block(stmt.body);
  withs_.pop_back();
  const std::size_t last = Mark(stmt.place);
  Emit(Op::kClear, object, 0, 0, 1);
  ResumeHere(last);
  dirty_end_ = next_temp_ = first_temp;
}

void Compiler::Exit(const Stmt& stmt) {
  if (stmt.word != Tok::kDo && stmt.word != Tok::kFor) {
    Emit(Op::kReturn);
    return;
  }
  for (auto loop = loops_.rbegin(); loop != loops_.rend(); ++loop) {
    if (loop->word != stmt.word) continue;
    if (next_temp_ > loop->keep) Emit(Op::kClear, TempAt(loop->keep), 0, 0, next_temp_ - loop->keep);
    loop->exits.push_back(Emit(Op::kJump));
    return;
  }
}

}  // namespace qv::vbscript
