// SPDX-License-Identifier: MIT
#include "modes/long_division.h"
#include "tests/core/drill.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>

namespace chiffrolo::test {

namespace {

constexpr int draws = 100000;

/// "47x3" is 47, 'x', 3; blanks do not count.
struct Operation {
  int left{};
  char sign{};
  int right{};
};

Operation parsed(std::string text) {
  std::erase(text, ' ');
  Operation operation;
  std::istringstream(text) >> operation.left >> operation.sign >> operation.right;
  return operation;
}

class Draws : public testing::TestWithParam<int> {
protected:
  const int score = GetParam();
};

INSTANTIATE_TEST_SUITE_P(Scores, Draws, testing::Values(0, 2, 3, 4, 5, 6, 9));

TEST_P(Draws, additions) {
  Drill drill(ScreenName::addition);
  Counts<bool> signs;
  Counts<std::pair<int, int>> numbers;
  for (int draw = 0; draw < draws; ++draw) {
    const auto& shared = drill.draw(score);
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
  // Two numbers without a 0 digit; up to a score of 5 their sum has two digits.
  std::size_t pairs = 0;
  for (int first = 11; first < 100; ++first)
    for (int second = 11; second < 100; ++second)
      pairs += first % 10 != 0 && second % 10 != 0 && (score > 5 || first + second < 100) ? 1 : 0;
  EXPECT_TRUE(looksUniform(numbers, pairs)) << numbers.size() << " of " << pairs;
  // Three in ten, within five standard deviations.
  EXPECT_NEAR(signs[true], 0.3 * draws, 5 * std::sqrt(draws * 0.3 * 0.7));
}

TEST_P(Draws, multiplications) {
  Drill drill(ScreenName::multiplication);
  Counts<std::pair<int, int>> factors;
  Counts<bool> numberFirst;
  for (int draw = 0; draw < draws; ++draw) {
    const auto& shared = drill.draw(score);
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
  EXPECT_TRUE(looksUniform(factors, pairs)) << factors.size() << " of " << pairs;
  EXPECT_TRUE(looksUniform(numberFirst, 2));
}

TEST_P(Draws, divisions) {
  Drill drill(ScreenName::division);
  Counts<int> quotients;
  Counts<int> divisors;
  for (int draw = 0; draw < draws; ++draw) {
    const auto& shared = drill.draw(score);
    const auto [dividend, sign, divisor] = parsed(shared.operation);
    ASSERT_EQ(shared.resultat * divisor, dividend) << shared.operation;
    ASSERT_EQ(shared.operation.find(' ') == 1, dividend > 999) << shared.operation;
    ++quotients[shared.resultat];
    ++divisors[divisor];
  }
  EXPECT_EQ(quotients.begin()->first, 11);
  EXPECT_EQ(quotients.rbegin()->first, score <= 2 ? 99 : 999);
  EXPECT_TRUE(looksUniform(quotients, score <= 2 ? 89 : 989));
  EXPECT_EQ(divisors.begin()->first, score <= 4 ? 2 : 6);
  EXPECT_TRUE(looksUniform(divisors, 4));
}

TEST(LongDivisionDigits, endWhereTheNumberEnds) {
  const LongDivision division(62, 6);
  for (const int beyond : {0, -1, 3, 32767})
    EXPECT_EQ(division.quotientDigit(beyond), "") << beyond;
}

} // namespace

} // namespace chiffrolo::test
