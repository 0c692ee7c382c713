// SPDX-License-Identifier: MIT
#pragma once

#include "screen/random_numbers.h"
#include "screen/values.h"

#include <array>
#include <string>

namespace chiffrolo {

/// The kinds of operation, by which the counters of the challenge are indexed.
namespace kind {
constexpr int addition = 1;
constexpr int subtraction = 2;
constexpr int multiplication = 3;
constexpr int division = 4;
} // namespace kind

/// A challenge is complete when so many operations, equally many of each kind, have been answered rightly.
constexpr int operationsOfChallenge = 20;

struct MixedOperation {
  int kind{};
  std::string text; ///< as printed, a blank on each side of its sign: "7 x 24"
  int answer{};     ///< 11 to 891
};

/// Draws an operation of a kind that has fewer than five right answers, each such kind being equally likely;
/// when none has, of any kind. `rightAnswers` counts at 1 to 4. Reseeds the random numbers before each
/// attempt.
MixedOperation drawMixedOperation(const std::array<SaturatingInt16, 5>& rightAnswers, RandomNumbers& random);

} // namespace chiffrolo
