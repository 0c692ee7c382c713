// SPDX-License-Identifier: MIT
#include "timer_queue.h"

#include <gtest/gtest.h>

namespace chiffrolo::test {

namespace {

using std::chrono::milliseconds;

class IgnoringReceiver final : public TickReceiver {
  void tick(ControlIndex /*timer*/) override {}
};

class Timers : public testing::Test {
protected:
  static Instant at(int time) { return Instant{milliseconds(time)}; }

  void start(ControlIndex timer, int interval, int now) {
    queue_.start({&receiver_, timer}, milliseconds(interval), at(now));
  }

  /// Takes all ticks that are due at `time` or before.
  std::vector<ControlIndex> takeDue(int time) {
    std::vector<ControlIndex> taken;
    while (const auto timer = queue_.takeDue(at(time)))
      taken.push_back(timer->control);
    return taken;
  }

  IgnoringReceiver receiver_;
  TimerQueue queue_;
};

using Ticks = std::vector<ControlIndex>;

/// Each is due one interval after the previous one was due, and those of one instant in start order.
TEST_F(Timers, thatAreTakenLateTickInDueOrderWithoutDrift) {
  start(2, 200, 0);
  start(1, 100, 0);
  EXPECT_EQ(takeDue(170), Ticks{1});
  EXPECT_EQ(takeDue(430), (Ticks{2, 1, 1, 2, 1}));
  EXPECT_EQ(queue_.nextDue(), at(500));
}

TEST_F(Timers, keepTheirPlaceWhenTheyAreRestartedButNotWhenTheyWereStopped) {
  start(1, 100, 0);
  start(2, 200, 0);
  start(1, 150, 50);
  EXPECT_EQ(takeDue(199), Ticks{});
  EXPECT_EQ(takeDue(200), (Ticks{1, 2}));
  queue_.stop({&receiver_, 1});
  start(1, 200, 200);
  EXPECT_EQ(takeDue(400), (Ticks{2, 1}));
}

} // namespace

} // namespace chiffrolo::test
