#pragma once

#include <pthread.h>

#include <cstddef>
#include <functional>
#include <memory>

namespace qv {

// A thread with a stack of a given size, of which only what is used takes memory. Joins when it goes.
class SmallThread {
 public:
  // Raises RuntimeError when the system starts no more threads.
  SmallThread(std::size_t stack_bytes, std::function<void()> work);
  ~SmallThread();
  SmallThread(const SmallThread&) = delete;
  SmallThread& operator=(const SmallThread&) = delete;

 private:
  std::unique_ptr<std::function<void()>> work_;
  pthread_t thread_{};
};

}  // namespace qv
