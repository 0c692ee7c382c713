// SPDX-License-Identifier: MIT
#include "shell/qt/key_repeat.h"

#include <gtest/gtest.h>

namespace chiffrolo::qt {

namespace {

using enum KeyRepeatFilter::Origin;
using enum KeyRepeatFilter::Verdict;
using enum ScreenName;

constexpr KeyRepeatFilter::ScanCode enterKey = 36;
constexpr KeyRepeatFilter::ScanCode spaceKey = 65;

class KeyRepeat : public testing::Test {
protected:
  void SetUp() override { ASSERT_EQ(filter_.press(enterKey, 1000, hand, addition), counts); }

  KeyRepeatFilter filter_;
};

TEST_F(KeyRepeat, countsOnTheScreenOfTheFreshPress) {
  EXPECT_EQ(filter_.press(enterKey, 1300, autoRepeat, addition), counts);
}

TEST_F(KeyRepeat, isDroppedOnAnotherScreen) {
  EXPECT_EQ(filter_.press(enterKey, 1300, autoRepeat, FIN), dropped);
  EXPECT_EQ(filter_.press(enterKey, 1330, autoRepeat, FIN), dropped);
}

TEST_F(KeyRepeat, isDroppedWhenTheFreshPressWasNeverSeen) {
  EXPECT_EQ(filter_.press(spaceKey, 1300, autoRepeat, addition), dropped);
}

TEST_F(KeyRepeat, isKnownByItsTimeWhenItIsNotMarked) {
  filter_.release(enterKey, 1300, hand);
  EXPECT_EQ(filter_.press(enterKey, 1301, hand, FIN), dropped);
  filter_.release(enterKey, 1330, hand);
  EXPECT_EQ(filter_.press(enterKey, 1330, hand, FIN), dropped);
}

TEST_F(KeyRepeat, endsWithTheRelease) {
  filter_.release(enterKey, 1300, hand);
  EXPECT_EQ(filter_.press(enterKey, 1302, hand, FIN), counts);
  EXPECT_EQ(filter_.press(enterKey, 1600, autoRepeat, FIN), counts);
}

TEST_F(KeyRepeat, isNotAnotherKeySoonAfter) {
  filter_.release(enterKey, 1300, hand);
  EXPECT_EQ(filter_.press(spaceKey, 1300, hand, FIN), counts);
}

/// While a screen reader listens, Qt passes keys on without their times.
TEST_F(KeyRepeat, isNotTakenForOneWithoutTimes) {
  filter_.release(enterKey, KeyRepeatFilter::unknown, hand);
  EXPECT_EQ(filter_.press(enterKey, KeyRepeatFilter::unknown, hand, FIN), counts);
}

TEST_F(KeyRepeat, markedReleaseIsNone) {
  filter_.release(enterKey, 1300, autoRepeat);
  EXPECT_EQ(filter_.press(enterKey, 1300, hand, FIN), counts);
}

} // namespace

} // namespace chiffrolo::qt
