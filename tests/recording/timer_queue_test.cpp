// SPDX-License-Identifier: MIT
#include "timer_queue.h"

#include <gtest/gtest.h>

namespace chiffrolo::test {

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

class Nobody final : public TickReceiver {
  void tick(ControlIndex /*timer*/) override {}
};

using Controls = std::vector<ControlIndex>;

class Timers : public testing::Test {
protected:
  static Instant at(milliseconds time) { return Instant{time}; }

  void start(ControlIndex timer, milliseconds interval, milliseconds now = 0ms) {
    queue_.start({&owner_, timer}, interval, at(now));
  }
  void stop(ControlIndex timer) { queue_.stop({&owner_, timer}); }

  /// Those whose ticks were due up to `time` and were not taken before.
  Controls due(milliseconds time) {
    Controls taken;
    while (const auto timer = queue_.takeDue(at(time)))
      taken.push_back(timer->control);
    return taken;
  }

  Nobody owner_;
  TimerQueue queue_;
};

TEST_F(Timers, tickAfterEachIntervalAndDoNotDrift) {
  start(1, 100ms);
  EXPECT_EQ(due(99ms), Controls{});
  EXPECT_EQ(due(170ms), Controls{1});
  EXPECT_EQ(queue_.nextDue(), at(200ms));
  EXPECT_EQ(due(430ms), (Controls{1, 1, 1}));
  EXPECT_EQ(queue_.nextDue(), at(500ms));
}

TEST_F(Timers, dueTogetherTickInTheOrderOfTheirStarts) {
  start(2, 200ms);
  start(1, 100ms);
  EXPECT_EQ(due(200ms), (Controls{1, 2, 1}));
}

TEST_F(Timers, restartedWhileRunningCountAfreshAndKeepTheirTurn) {
  start(1, 100ms);
  start(2, 200ms);
  start(1, 150ms, 50ms);
  EXPECT_EQ(due(199ms), Controls{});
  EXPECT_EQ(due(200ms), (Controls{1, 2}));
}

TEST_F(Timers, restartedFromRestLoseTheirTurn) {
  start(1, 100ms);
  start(2, 100ms);
  stop(1);
  start(1, 80ms, 20ms);
  EXPECT_EQ(due(100ms), (Controls{2, 1}));
}

TEST_F(Timers, stoppedByAnotherDoNotTick) {
  start(1, 100ms);
  start(2, 100ms);
  EXPECT_EQ(queue_.takeDue(at(100ms))->control, ControlIndex{1});
  stop(2);
  EXPECT_EQ(due(199ms), Controls{});
  stop(1);
  EXPECT_EQ(queue_.nextDue(), std::nullopt);
}

TEST_F(Timers, goWithTheirOwner) {
  Nobody other;
  start(1, 100ms);
  queue_.start({&other, 7}, 100ms, at(0ms));
  queue_.stopAll(owner_);
  EXPECT_EQ(due(100ms), Controls{7});
}

} // namespace

} // namespace chiffrolo::test
