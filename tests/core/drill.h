// SPDX-License-Identifier: MIT
#pragma once

#include "recording/recording_platform.h"
#include "screens.h"

#include <cmath>
#include <map>

namespace chiffrolo::test {

/// Draws one operation after another on an exercise screen, without a transcript and always in the same way.
class Drill {
public:
  explicit Drill(ScreenName screen) : screen_(screen) {
    program_.start();
    program_.Show(screen);
  }

  /// The shared variables after a new operation was drawn at `score`, 0 to 9.
  const MODULE11& draw(int score) {
    program_.shared().score = score;
    program_.front(ScreenName::accueil);
    program_.front(screen_);
    return program_.shared();
  }

private:
  ScreenName screen_;
  RecordingPlatform platform_{{}};
  Program program_{platform_, allScreens};
};

/// How often each outcome was drawn.
template <typename Outcome> using Counts = std::map<Outcome, int>;

/// Whether the counts of all `outcomes` equally likely outcomes differ no more than chance allows: the
/// chi-squared sum lies within five standard deviations of its mean.
template <typename Outcome> bool looksUniform(const Counts<Outcome>& counts, std::size_t outcomes) {
  if (counts.size() != outcomes) return false;
  double draws = 0;
  for (const auto& [outcome, count] : counts)
    draws += count;
  const double expected = draws / static_cast<double>(outcomes);
  double sum = 0;
  for (const auto& [outcome, count] : counts)
    sum += (count - expected) * (count - expected) / expected;
  const auto freedom = static_cast<double>(outcomes - 1);
  return sum < freedom + 5 * std::sqrt(2 * freedom);
}

} // namespace chiffrolo::test
