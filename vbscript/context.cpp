#include "vbscript/context.h"

#include <cstdlib>

#include "vbscript/failure.h"

namespace qv::vbscript {

Managed::Managed(Context& context) : context_(context), next_(context.all_) {
  if (next_) next_->previous_ = this;
  context.all_ = this;
}

Managed::~Managed() {
  if (previous_) previous_->next_ = next_;
  if (next_) next_->previous_ = previous_;
  if (context_.all_ == this) context_.all_ = next_;
}

Context::Context(std::size_t memory_limit, std::size_t string_limit, const std::atomic<bool>* interrupt,
                 std::uint64_t step_limit, std::uint64_t match_limit)
    : limit_(memory_limit),
      string_limit_(string_limit),
      interrupt_(interrupt),
      step_limit_(step_limit),
      match_limit_(match_limit) {}

Context::~Context() = default;

void* Context::Allocate(std::size_t bytes, int error) {
  Charge(bytes, error);
  void* storage = std::malloc(bytes);
  if (!storage) {
    Discharge(bytes);
    Raise(error);
  }
  return storage;
}

void* Context::TryAllocate(std::size_t bytes) noexcept {
  if (bytes > limit_ - used_) return nullptr;
  void* storage = std::malloc(bytes);
  if (storage) used_ += bytes;
  return storage;
}

void Context::Free(void* storage, std::size_t bytes) noexcept {
  std::free(storage);
  used_ -= bytes;
}

void Context::Charge(std::size_t bytes, int error) {
  if (bytes > limit_ - used_) Raise(error);
  used_ += bytes;
}

void Context::Bury(Managed* managed) noexcept {
  if (!silent_ && managed->WantsFarewell()) {
    managed->refs = 1;
    managed->next_dead_ = nullptr;
    (last_farewell_ ? last_farewell_->next_dead_ : farewells_) = managed;
    last_farewell_ = managed;
    return;
  }
  managed->next_dead_ = dead_;
  dead_ = managed;
  if (!destroying_) DestroyDead();
}

// A loop, not a recursion: what a chain of a million objects releases is put on the same list.
void Context::DestroyDead() noexcept {
  destroying_ = true;
  while (dead_) {
    Managed* managed = dead_;
    dead_ = managed->next_dead_;
    const std::size_t size = managed->size_;
    void* storage = dynamic_cast<void*>(managed);
    managed->~Managed();
    Free(storage, size);
  }
  destroying_ = false;
}

Managed* Context::TakeFarewell() noexcept {
  Managed* managed = farewells_;
  farewells_ = managed->next_dead_;
  if (!farewells_) last_farewell_ = nullptr;
  return managed;
}

void Context::DropEverything() noexcept {
  silent_ = true;
  while (farewells_) {
    Managed* managed = TakeFarewell();
    if (--managed->refs == 0) Bury(managed);
  }
  while (all_) {
    Managed* managed = all_;
    ++managed->refs;
    managed->DropContents();
    // Whoever still points here lies in a circle that this loop takes apart; the last pointer frees it.
    if (--managed->refs == 0) {
      Bury(managed);
    } else if (all_ == managed && managed->next_) {
      all_ = managed->next_;
      all_->previous_ = nullptr;
      managed->next_ = nullptr;
    } else if (all_ == managed) {
      all_ = nullptr;
    }
  }
}

void Context::PollNow() {
  steps_ += static_cast<std::uint64_t>(kPollEvery - countdown_);
  countdown_ = kPollEvery;
  const bool asked = interrupt_ && interrupt_->load(std::memory_order_relaxed);
  if (!asked && (step_limit_ == 0 || steps_ < step_limit_)) return;
  countdown_ = 0;
  Failure failure;
  failure.number = kInterrupted;
  failure.description = RuntimeErrorText(kInterrupted);
  failure.source = kRuntimeSource;
  failure.takes_name = false;
  failure.catchable = false;
  throw failure;
}

}  // namespace qv::vbscript
