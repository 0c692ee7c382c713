// SPDX-License-Identifier: MIT
#pragma once

#include "screen/random_numbers.h"
#include "screen/values.h"

#include <array>
#include <string>

namespace chiffrolo {

/// The kinds of operation; they index the counters of the challenge.
namespace kind {
constexpr int addition = 1;
constexpr int subtraction = 2;
constexpr int multiplication = 3;
constexpr int division = 4;
} // namespace kind

/// The right answers that complete a challenge, equally many of each kind.
constexpr int operationsOfChallenge = 20;

struct MixedOperation {
  int kind{};
  std::string text; ///< as printed, a blank on each side of its sign: "7 x 24"
  int answer{};     ///< 11 to 891
};

/// Draws an operation of a kind with fewer than five right answers, or of any kind if none is left; these
/// kinds are equally likely. `rightAnswers` is indexed by kind, 1 to 4. Calls `Randomize` before each
/// attempt.
MixedOperation drawMixedOperation(const std::array<SaturatingInt16, 5>& rightAnswers, RandomNumbers& random);

} // namespace chiffrolo
