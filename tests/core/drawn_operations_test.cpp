// SPDX-License-Identifier: MIT
#include "modes/long_division.h"
#include "tests/core/operation.h"
#include "tests/core/operation_sampler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace chiffrolo::test {

namespace {

/// At each score that may change the level. The draws are many enough for every outcome to come.
class DrawnOperations : public testing::TestWithParam<int> {
protected:
  const int score = GetParam();
};
class Additions : public DrawnOperations {};
class Multiplications : public DrawnOperations {};
class Divisions : public DrawnOperations {};

INSTANTIATE_TEST_SUITE_P(Scores, Additions, testing::Values(0, 5, 6));
INSTANTIATE_TEST_SUITE_P(Scores, Multiplications, testing::Values(0, 2, 3, 4, 5, 9));
INSTANTIATE_TEST_SUITE_P(Scores, Divisions, testing::Values(0, 2, 3, 4, 5));

TEST_P(Additions, areUniform) {
  constexpr int drawCount = 100000;
  OperationSampler sampler(ScreenName::addition);
  Counts<bool> signs;
  Counts<std::pair<int, int>> numbers;
  for (int draw = 0; draw < drawCount; ++draw) {
    const auto& shared = sampler.draw(score);
    const auto [left, sign, right] = parsed(shared.operation);
    const bool adds = sign == '+';
    const int result = adds ? left + right : left - right;
    ASSERT_EQ(shared.resultat, result) << shared.operation;
    const auto tens = parsed(shared.termes[2]);
    const auto units = parsed(shared.termes[3]);
    ASSERT_EQ(std::pair(tens.left, tens.right), std::pair(left, right - right % 10)) << shared.operation;
    ASSERT_EQ(std::pair(units.left, units.right),
              std::pair(adds ? left + tens.right : left - tens.right, right % 10));
    ++signs[adds];
    ++numbers[{adds ? left : result, right}];
  }
  // Two-digit numbers without the digit 0. Up to a score of 5, their sum is below 100.
  std::size_t pairs = 0;
  for (int first = 11; first < 100; ++first)
    for (int second = 11; second < 100; ++second)
      pairs += first % 10 != 0 && second % 10 != 0 && (score > 5 || first + second < 100) ? 1 : 0;
  EXPECT_TRUE(isUniform(numbers, pairs)) << numbers.size() << " of " << pairs;
  // Additions have a probability of 0.3. The tolerance is five standard deviations.
  EXPECT_NEAR(signs[true], 0.3 * drawCount, 5 * std::sqrt(drawCount * 0.3 * 0.7));
}

TEST_P(Multiplications, areUniform) {
  constexpr int drawCount = 20000;
  OperationSampler sampler(ScreenName::multiplication);
  Counts<std::pair<int, int>> factors;
  Counts<bool> numberFirst;
  for (int draw = 0; draw < drawCount; ++draw) {
    const auto& shared = sampler.draw(score);
    const auto [left, sign, right] = parsed(shared.operation);
    const bool first = left > 9;
    const int number = std::max(left, right);
    const int multiplier = std::min(left, right);
    const auto tens = parsed(shared.termes[2]);
    const auto units = parsed(shared.termes[3]);
    ASSERT_EQ(std::pair(first ? tens.left : tens.right, first ? tens.right : tens.left),
              std::pair(number - number % 10, multiplier));
    ASSERT_EQ(std::pair(first ? units.left : units.right, first ? units.right : units.left),
              std::pair(number % 10, multiplier));
    ++factors[{number, multiplier}];
    ++numberFirst[first];
  }
  std::size_t pairs = 0;
  for (int number = 11; number < 100; ++number)
    for (int multiplier = score < 5 ? 2 : 3; multiplier <= (score < 5 ? 5 : 9); ++multiplier)
      pairs += number % 10 != 0 && (score > 2 || number * multiplier < 100) ? 1 : 0;
  EXPECT_TRUE(isUniform(factors, pairs)) << factors.size() << " of " << pairs;
  EXPECT_TRUE(isUniform(numberFirst, 2));
}

TEST_P(Divisions, areUniform) {
  constexpr int drawCount = 20000;
  OperationSampler sampler(ScreenName::division);
  Counts<int> quotients;
  Counts<int> divisors;
  for (int draw = 0; draw < drawCount; ++draw) {
    const auto& shared = sampler.draw(score);
    const auto [dividend, sign, divisor] = parsed(shared.operation);
    ASSERT_EQ(shared.resultat * divisor, dividend) << shared.operation;
    ASSERT_EQ(shared.operation.find(' ') == 1, dividend > 999) << shared.operation;
    ++quotients[shared.resultat];
    ++divisors[divisor];
  }
  EXPECT_EQ(quotients.begin()->first, 11);
  EXPECT_EQ(quotients.rbegin()->first, score <= 2 ? 99 : 999);
  EXPECT_TRUE(isUniform(quotients, score <= 2 ? 89 : 989));
  EXPECT_EQ(divisors.begin()->first, score <= 4 ? 2 : 6);
  EXPECT_TRUE(isUniform(divisors, 4));
}

TEST(DrawnOperations, dependOnTheTimeOfDay) {
  using enum ScreenName;
  for (const auto screen : {addition, multiplication, division, record}) {
    OperationSampler early(screen, 1);
    OperationSampler late(screen, 2);
    int equal = 0;
    for (int draw = 0; draw < 20; ++draw)
      equal += early.draw(0).operation == late.draw(0).operation ? 1 : 0;
    EXPECT_LT(equal, 10) << static_cast<int>(screen);
  }
}

TEST(LongDivisionDigits, areEmptyOutsideTheQuotient) {
  const LongDivision division(62, 6);
  for (const int index : {0, -1, 3, 32767})
    EXPECT_EQ(division.quotientDigit(index), "") << index;
}

} // namespace

} // namespace chiffrolo::test
