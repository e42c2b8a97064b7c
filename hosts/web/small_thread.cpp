#include "hosts/web/small_thread.h"

#include <signal.h>

#include <cstring>
#include <string>

#include "platform/runtime_error.h"

namespace qv {
namespace {

void* Work(void* work) {
  (*static_cast<std::function<void()>*>(work))();
  return nullptr;
}

}  // namespace

SmallThread::SmallThread(std::size_t stack_bytes, std::function<void()> work)
    : work_(std::make_unique<std::function<void()>>(std::move(work))) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, stack_bytes);
  // Signals are for the thread that runs the program.
  sigset_t all, before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  const int error = pthread_create(&thread_, &attributes, Work, work_.get());
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  pthread_attr_destroy(&attributes);
  if (error != 0) throw RuntimeError(std::string("No thread could be started: ") + std::strerror(error) + ".");
}

SmallThread::~SmallThread() { pthread_join(thread_, nullptr); }

}  // namespace qv
