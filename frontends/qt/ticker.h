// SPDX-License-Identifier: MIT
#pragma once

#include "timer_queue.h"

#include <QTimer>

namespace chiffrolo::qt {

/// Delivers the ticks of all windows. It uses one QTimer, because Qt guarantees no order among several. That
/// timer is off while no timer of the program is running.
class Ticker {
public:
  Ticker();

  void start(TimerId timer, std::chrono::milliseconds interval);
  void stop(TimerId timer);
  void stopAll(const TickReceiver& receiver);
  void shutDown();

  /// Stops the clock of the ticker while it exists, so that all timers that one event starts start at the
  /// same instant.
  class HeldInstant {
  public:
    explicit HeldInstant(Ticker& ticker);
    HeldInstant(const HeldInstant&) = delete;
    HeldInstant& operator=(const HeldInstant&) = delete;
    ~HeldInstant();

  private:
    Ticker& ticker_;
    std::optional<Instant> outer_;
  };

private:
  Instant now() const { return held_ ? *held_ : Clock::now(); }
  void deliverDue();
  void arm();

  TimerQueue queue_;
  std::optional<Instant> held_;
  QTimer alarm_;
};

} // namespace chiffrolo::qt
