// SPDX-License-Identifier: MIT
#include "shell/qt/timer_queue.h"

#include <algorithm>

namespace chiffrolo::qt {

void TimerQueue::start(TimerId timer, std::chrono::milliseconds interval, Instant now) {
  const Running started{timer, now + interval, interval};
  const auto found = std::ranges::find(running_, timer, &Running::id);
  if (found == running_.end())
    running_.push_back(started);
  else
    *found = started;
}

void TimerQueue::stop(TimerId timer) {
  std::erase_if(running_, [&](const Running& running) { return running.id == timer; });
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

} // namespace chiffrolo::qt
