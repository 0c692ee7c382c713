// SPDX-License-Identifier: MIT
#pragma once

#include "recording/recording_platform.h"
#include "screens.h"

#include <cmath>
#include <map>

namespace chiffrolo::test {

/// Draws operations on an exercise screen, without a transcript. The sequence is the same in each run.
class OperationSampler {
public:
  explicit OperationSampler(ScreenName screen, std::uint64_t timeOfDay = 0)
      : screen_(screen), platform_({}, timeOfDay) {
    program_.start();
    program_.Show(screen);
  }

  /// Draws an operation at `score`, 0 to 9, and returns the shared variables.
  const MODULE11& draw(int score) {
    program_.shared().score = score;
    program_.front(ScreenName::accueil);
    program_.front(screen_);
    return program_.shared();
  }

private:
  ScreenName screen_;
  RecordingPlatform platform_;
  Program program_{platform_, allScreens};
};

/// How often each outcome was drawn.
template <typename Outcome> using Counts = std::map<Outcome, int>;

/// Chi-squared test of `outcomes` equally likely outcomes: whether the statistic is less than five standard
/// deviations above its mean.
template <typename Outcome> bool isUniform(const Counts<Outcome>& counts, std::size_t outcomes) {
  if (counts.size() != outcomes) return false;
  double draws = 0;
  for (const auto& [outcome, count] : counts)
    draws += count;
  const double expected = draws / static_cast<double>(outcomes);
  double chiSquared = 0;
  for (const auto& [outcome, count] : counts)
    chiSquared += (count - expected) * (count - expected) / expected;
  const auto degreesOfFreedom = static_cast<double>(outcomes - 1);
  return chiSquared < degreesOfFreedom + 5 * std::sqrt(2 * degreesOfFreedom);
}

} // namespace chiffrolo::test
