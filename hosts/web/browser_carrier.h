#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "hosts/console/carrier.h"

namespace qv {

// The carrier of a session that a browser watches: the session's thread on one side, the thread of the connections on
// the other.
class BrowserCarrier : public Carrier {
 public:
  struct Limits {
    std::size_t waiting_messages = 1000;  // that the session has not taken yet
    std::size_t waiting_bytes = 8 << 20;
    std::size_t unsent_bytes = 8 << 20;  // above it Send waits for the browser
  };

  // `deliver` brings a message on its way to the browser and may be called from any thread. Each message is reported to
  // Sent later.
  BrowserCarrier(Limits limits, std::function<void(std::string)> deliver);

  std::optional<std::string> Receive() override;
  void Send(std::string message) override;
  // Set once the browser has gone, and while the session handles a message that came before a Stop.
  const std::atomic<bool>* Interrupt() const override { return &interrupt_; }

  // A message of the browser's for the session. False when too many wait already.
  bool Put(std::string message);
  // Sends past the session, without waiting. False when the browser lags too far behind, and nothing is sent.
  bool SendAside(std::string message);
  // A message of so many bytes has left.
  void Sent(std::size_t bytes);
  // Interrupts what the session handles, and what waits for it.
  void Stop();
  // The browser has gone.
  void Gone();

 private:
  const Limits limits_;
  const std::function<void(std::string)> deliver_;
  std::mutex mutex_;
  std::condition_variable came_, drained_;
  std::deque<std::string> waiting_;
  std::size_t waiting_bytes_ = 0, unsent_bytes_ = 0;
  std::size_t taken_ = 0;            // messages that the session has taken
  std::size_t stopped_through_ = 0;  // messages that a Stop concerns
  bool gone_ = false;
  std::atomic<bool> interrupt_{false};
};

}  // namespace qv
