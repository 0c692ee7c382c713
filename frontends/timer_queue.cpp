// SPDX-License-Identifier: MIT
#include "timer_queue.h"

#include <algorithm>

namespace chiffrolo {

bool TimerQueue::start(TimerId timer, std::chrono::milliseconds interval, Instant now) {
  const Running started{timer, now + interval, interval};
  const auto found = std::ranges::find(running_, timer, &Running::id);
  const bool wasAtRest = found == running_.end();
  if (wasAtRest)
    running_.push_back(started);
  else
    *found = started;
  return wasAtRest;
}

bool TimerQueue::stop(TimerId timer) {
  return std::erase_if(running_, [&](const Running& running) { return running.id == timer; }) > 0;
}

void TimerQueue::stopAll(const TickReceiver& receiver) {
  std::erase_if(running_, [&](const Running& running) { return running.id.receiver == &receiver; });
}

std::optional<Instant> TimerQueue::nextDue() const {
  const auto next = std::ranges::min_element(running_, {}, &Running::due);
  return next == running_.end() ? std::nullopt : std::optional(next->due);
}

std::optional<TimerId> TimerQueue::takeDue(Instant now) {
  const auto next = std::ranges::min_element(running_, {}, &Running::due);
  if (next == running_.end() || next->due > now) return std::nullopt;
  next->due += next->interval;
  return next->id;
}

} // namespace chiffrolo
