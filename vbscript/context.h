#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "vbscript/value.h"

namespace qv::vbscript {

// An array or an object: counted, known to its context, and cleared by it at the end even if it lies in a circle.
class Managed : public Counted {
 public:
  explicit Managed(Context& context);
  Managed(const Managed&) = delete;
  Managed& operator=(const Managed&) = delete;
  virtual ~Managed();

  // Drops every value held, so that circles fall apart.
  virtual void DropContents() noexcept {}
  // True while a script's own code has still to run before this goes.
  virtual bool WantsFarewell() const noexcept { return false; }

  Context& context() const noexcept { return context_; }
  static void* operator new(std::size_t) = delete;
  static void operator delete(void*) noexcept {}

 private:
  friend class Context;
  Context& context_;
  std::size_t size_ = 0;
  Managed* previous_ = nullptr;
  Managed* next_ = nullptr;
  Managed* next_dead_ = nullptr;
};

// What all values of one engine share: the account of memory, the interrupt and the mark that numbers are written with.
class Context {
 public:
  Context(std::size_t memory_limit, std::size_t string_limit, const std::atomic<bool>* interrupt,
          std::uint64_t step_limit, std::uint64_t match_limit);
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;
  virtual ~Context();

  // Storage of that many bytes; raises `error` when the account would be overdrawn.
  void* Allocate(std::size_t bytes, int error);
  // The same for what can be done without: a null pointer when there is no room.
  void* TryAllocate(std::size_t bytes) noexcept;
  void Free(void* storage, std::size_t bytes) noexcept;
  // Puts memory held elsewhere on the account or takes it off.
  void Charge(std::size_t bytes, int error);
  void Discharge(std::size_t bytes) noexcept { used_ -= bytes; }

  template <class T, class... Args>
  T* Make(std::size_t extra, Args&&... args) {
    void* storage = Allocate(sizeof(T) + extra, 7);
    T* made = nullptr;
    try {
      made = ::new (storage) T(*this, std::forward<Args>(args)...);
    } catch (...) {
      Free(storage, sizeof(T) + extra);
      throw;
    }
    static_cast<Managed*>(made)->size_ = sizeof(T) + extra;
    return made;
  }
  // Takes what nobody holds any more: destroys it, or keeps it until its farewell has been said.
  void Bury(Managed* managed) noexcept;
  bool HasFarewells() const noexcept { return farewells_ != nullptr; }
  // The next one to say farewell to, with one count that the caller takes over.
  Managed* TakeFarewell() noexcept;

  // To be called in every loop that a script can make long; raises once the host has asked for the end.
  void Poll(int work = 1) {
    countdown_ -= work;
    if (countdown_ <= 0) PollNow();
  }

  std::size_t string_limit() const noexcept { return string_limit_; }
  // How often one search of a regular expression may go back.
  std::uint64_t match_limit() const noexcept { return match_limit_; }
  char16_t decimal_mark() const noexcept { return decimal_mark_; }

  // The value of an object's default property; raises 438, or 91 for Nothing.
  virtual Value DefaultValue(const Value& object) = 0;

 protected:
  // Destroys everything still alive. To be called by the derived class while its own parts still stand.
  void DropEverything() noexcept;

  char16_t decimal_mark_ = u'.';
  bool silent_ = false;  // nobody says farewell any more

 private:
  friend class Managed;
  void PollNow();
  void DestroyDead() noexcept;

  static constexpr int kPollEvery = 2048;

  std::size_t limit_;
  std::size_t string_limit_;
  std::size_t used_ = 0;
  const std::atomic<bool>* interrupt_;
  std::uint64_t step_limit_;
  std::uint64_t match_limit_;
  std::uint64_t steps_ = 0;
  int countdown_ = kPollEvery;
  bool destroying_ = false;
  Managed* all_ = nullptr;
  Managed* dead_ = nullptr;
  Managed* farewells_ = nullptr;
  Managed* last_farewell_ = nullptr;
};

}  // namespace qv::vbscript
