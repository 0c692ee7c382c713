// SPDX-License-Identifier: MIT
#pragma once

#include "shell/platform.h"

#include <chrono>
#include <optional>
#include <vector>

namespace chiffrolo::qt {

/// Whoever has timers.
class TickReceiver {
public:
  TickReceiver() = default;
  TickReceiver(const TickReceiver&) = delete;
  TickReceiver& operator=(const TickReceiver&) = delete;

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

/// The running timers and when each is due. It does not know what time it is.
class TimerQueue {
public:
  /// The first tick is due one `interval` (1 ms or more) after `now`, each further one an interval later.
  void start(TimerId timer, std::chrono::milliseconds interval, Instant now);
  void stop(TimerId timer);
  void stopAll(const TickReceiver& receiver);
  void clear() { running_.clear(); }

  std::optional<Instant> nextDue() const;

  /// The timer whose tick is due first, not later than `now`; its next tick is one interval on. Of several
  /// due at the same instant, the one that was started from rest first.
  std::optional<TimerId> takeDue(Instant now);

private:
  struct Running {
    TimerId id;
    Instant due;
    std::chrono::milliseconds interval;
  };

  std::vector<Running> running_; // in the order in which they were started from rest
};

} // namespace chiffrolo::qt
