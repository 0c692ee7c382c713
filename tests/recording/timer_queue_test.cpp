// SPDX-License-Identifier: MIT
#include "timer_queue.h"

#include <gtest/gtest.h>

namespace chiffrolo::test {

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

class IgnoringReceiver final : public TickReceiver {
  void tick(ControlIndex /*timer*/) override {}
};

using Controls = std::vector<ControlIndex>;

class Timers : public testing::Test {
protected:
  static Instant at(milliseconds time) { return Instant{time}; }

  void start(ControlIndex timer, milliseconds interval, milliseconds now = 0ms) {
    queue_.start({&receiver_, timer}, interval, at(now));
  }
  void stop(ControlIndex timer) { queue_.stop({&receiver_, timer}); }

  /// Takes all ticks that are due at `time` or before.
  Controls takeDue(milliseconds time) {
    Controls taken;
    while (const auto timer = queue_.takeDue(at(time)))
      taken.push_back(timer->control);
    return taken;
  }

  IgnoringReceiver receiver_;
  TimerQueue queue_;
};

TEST_F(Timers, tickAfterEveryIntervalWithoutDrift) {
  start(1, 100ms);
  EXPECT_EQ(takeDue(99ms), Controls{});
  EXPECT_EQ(takeDue(170ms), Controls{1});
  EXPECT_EQ(queue_.nextDue(), at(200ms));
  EXPECT_EQ(takeDue(430ms), (Controls{1, 1, 1}));
  EXPECT_EQ(queue_.nextDue(), at(500ms));
}

TEST_F(Timers, dueAtTheSameInstantTickInStartOrder) {
  start(2, 200ms);
  start(1, 100ms);
  EXPECT_EQ(takeDue(200ms), (Controls{1, 2, 1}));
}

TEST_F(Timers, restartedWhileRunningBeginANewIntervalAndKeepTheirPlace) {
  start(1, 100ms);
  start(2, 200ms);
  start(1, 150ms, 50ms);
  EXPECT_EQ(takeDue(199ms), Controls{});
  EXPECT_EQ(takeDue(200ms), (Controls{1, 2}));
}

TEST_F(Timers, restartedAfterAStopMoveToTheLastPlace) {
  start(1, 100ms);
  start(2, 100ms);
  stop(1);
  start(1, 80ms, 20ms);
  EXPECT_EQ(takeDue(100ms), (Controls{2, 1}));
}

TEST_F(Timers, stoppedBeforeTheirTurnDoNotTick) {
  start(1, 100ms);
  start(2, 100ms);
  EXPECT_EQ(queue_.takeDue(at(100ms))->control, ControlIndex{1});
  stop(2);
  EXPECT_EQ(takeDue(199ms), Controls{});
  stop(1);
  EXPECT_EQ(queue_.nextDue(), std::nullopt);
}

TEST_F(Timers, ofOneReceiverAreStoppedTogether) {
  IgnoringReceiver otherReceiver;
  start(1, 100ms);
  queue_.start({&otherReceiver, 7}, 100ms, at(0ms));
  queue_.stopAll(receiver_);
  EXPECT_EQ(takeDue(100ms), Controls{7});
}

} // namespace

} // namespace chiffrolo::test
