// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <chrono>
#include <optional>
#include <vector>

namespace chiffrolo {

/// Something that has timers: the window of a screen.
class TickReceiver {
public:
  TickReceiver() = default;
  TickReceiver(const TickReceiver&) = delete;
  TickReceiver& operator=(const TickReceiver&) = delete;

  /// Call `TimerQueue::stopAll` before the receiver is destroyed.
  virtual void tick(ControlIndex timer) = 0;

protected:
  ~TickReceiver() = default;
};

using Clock = std::chrono::steady_clock;
using Instant = Clock::time_point;

struct TimerId {
  TickReceiver* receiver{};
  ControlIndex control{};
  bool operator==(const TimerId&) const = default;
};

/// The running timers and the instants at which they are due. It reads no clock.
class TimerQueue {
public:
  /// The first tick is due one `interval` (1 ms or more) after `now`, each further one an interval later.
  /// True if the timer was stopped; a running one keeps its place among those that are due together.
  bool start(TimerId timer, std::chrono::milliseconds interval, Instant now);
  /// True if the timer was running.
  bool stop(TimerId timer);
  void stopAll(const TickReceiver& receiver);
  void clear() { running_.clear(); }

  /// Nothing if no timer is running.
  std::optional<Instant> nextDue() const;

  /// Takes the tick that is due first, if it is due at `now` or before; the next tick of that timer is due
  /// one interval later. Of several that are due at the same instant, the one that was started
  /// first, while it was stopped, comes first.
  std::optional<TimerId> takeDue(Instant now);

private:
  struct Running {
    TimerId id;
    Instant due{};
    std::chrono::milliseconds interval{};
  };

  std::vector<Running> running_; // in the order in which they were last started while stopped
};

} // namespace chiffrolo
