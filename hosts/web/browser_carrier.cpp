#include "hosts/web/browser_carrier.h"

#include <utility>

namespace qv {

BrowserCarrier::BrowserCarrier(Limits limits, std::function<void(std::string)> deliver)
    : limits_(limits), deliver_(std::move(deliver)) {}

std::optional<std::string> BrowserCarrier::Receive() {
  std::unique_lock lock(mutex_);
  came_.wait(lock, [this] { return gone_ || !waiting_.empty(); });
  if (gone_) return std::nullopt;
  std::string message = std::move(waiting_.front());
  waiting_.pop_front();
  waiting_bytes_ -= message.size();
  ++taken_;
  interrupt_ = taken_ <= stopped_through_;
  return message;
}

void BrowserCarrier::Send(std::string message) {
  {
    std::unique_lock lock(mutex_);
    drained_.wait(lock, [this] { return gone_ || unsent_bytes_ <= limits_.unsent_bytes; });
    if (gone_) return;
    unsent_bytes_ += message.size();
  }
  deliver_(std::move(message));
}

bool BrowserCarrier::SendAside(std::string message) {
  {
    std::lock_guard lock(mutex_);
    if (gone_ || unsent_bytes_ > limits_.unsent_bytes) return false;
    unsent_bytes_ += message.size();
  }
  deliver_(std::move(message));
  return true;
}

bool BrowserCarrier::Put(std::string message) {
  std::lock_guard lock(mutex_);
  if (gone_) return true;
  if (waiting_.size() >= limits_.waiting_messages || waiting_bytes_ + message.size() > limits_.waiting_bytes)
    return false;
  waiting_bytes_ += message.size();
  waiting_.push_back(std::move(message));
  came_.notify_one();
  return true;
}

void BrowserCarrier::Sent(std::size_t bytes) {
  std::lock_guard lock(mutex_);
  unsent_bytes_ -= bytes;
  if (unsent_bytes_ <= limits_.unsent_bytes) drained_.notify_one();
}

void BrowserCarrier::Stop() {
  std::lock_guard lock(mutex_);
  stopped_through_ = taken_ + waiting_.size();
  interrupt_ = true;
}

void BrowserCarrier::Gone() {
  std::lock_guard lock(mutex_);
  gone_ = true;
  waiting_.clear();
  waiting_bytes_ = 0;
  interrupt_ = true;
  came_.notify_one();
  drained_.notify_one();
}

}  // namespace qv
