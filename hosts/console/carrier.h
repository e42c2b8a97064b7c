#pragma once

#include <atomic>
#include <optional>
#include <string>

namespace qv {

// What carries messages between one console session and whoever watches it. Both calls come from the session's thread.
class Carrier {
 public:
  virtual ~Carrier() = default;

  // The next message, waiting for it; nothing when the person has gone away, from then on for good.
  virtual std::optional<std::string> Receive() = 0;
  // Sends an answer. One that can't be delivered is dropped: the next Receive tells that the person has gone.
  virtual void Send(std::string message) = 0;
  // Set while the session is to bring what it is doing to an end early, such as a script that runs on and on; null when
  // this carrier never asks for that. Any thread may look at it as long as the carrier lives.
  virtual const std::atomic<bool>* Interrupt() const { return nullptr; }
};

}  // namespace qv
