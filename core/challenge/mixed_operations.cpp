// SPDX-License-Identifier: MIT
#include "challenge/mixed_operations.h"

#include <algorithm>

namespace chiffrolo {

namespace {

constexpr int answersPerKind = 5;

int drawKind(const std::array<SaturatingInt16, 5>& rightAnswers, RandomNumbers& random) {
  const auto isFull = [](int answers) { return answers >= answersPerKind; };
  const bool allFull = std::all_of(rightAnswers.begin() + 1, rightAnswers.end(), isFull);
  while (true) {
    random.Randomize();
    const int kind = random.whole(4, 1);
    if (allFull || !isFull(rightAnswers[static_cast<std::size_t>(kind)])) return kind;
  }
}

/// Draws the units (1 to 9), then the tens (`tensBase` to `tensBase` + `tensSpan` - 1).
int drawTwoDigits(RandomNumbers& random, int tensSpan, int tensBase) {
  const int units = random.whole(9, 1);
  return 10 * random.whole(tensSpan, tensBase) + units;
}

std::string written(int left, const char* sign, int right) {
  return std::to_string(left) + sign + std::to_string(right);
}

MixedOperation drawAddition(RandomNumbers& random) {
  constexpr int tooEasy = 40;
  int left{};
  int right{};
  do {
    left = random.whole(88, 11);
    right = drawTwoDigits(random, 9, 1);
  } while (left + right <= tooEasy);
  return {kind::addition, written(left, " + ", right), left + right};
}

MixedOperation drawSubtraction(RandomNumbers& random) {
  const int subtracted = drawTwoDigits(random, 8, 2);
  const int answer = drawTwoDigits(random, 7, 2);
  return {kind::subtraction, written(subtracted + answer, " - ", subtracted), answer};
}

MixedOperation drawMultiplication(RandomNumbers& random) {
  const int number = drawTwoDigits(random, 8, 2);
  const int multiplier = random.whole(8, 2);
  const bool multiplierFirst = random.Rnd() < 0.5;
  return {kind::multiplication,
          multiplierFirst ? written(multiplier, " x ", number) : written(number, " x ", multiplier),
          number * multiplier};
}

MixedOperation drawDivision(RandomNumbers& random) {
  const int quotient = drawTwoDigits(random, 9, 1);
  const int divisor = random.whole(8, 2);
  return {kind::division, written(divisor * quotient, " : ", divisor), quotient};
}

} // namespace

MixedOperation drawMixedOperation(const std::array<SaturatingInt16, 5>& rightAnswers, RandomNumbers& random) {
  switch (drawKind(rightAnswers, random)) {
  case kind::addition: return drawAddition(random);
  case kind::subtraction: return drawSubtraction(random);
  case kind::multiplication: return drawMultiplication(random);
  default: return drawDivision(random);
  }
}

} // namespace chiffrolo
