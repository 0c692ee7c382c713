// SPDX-License-Identifier: MIT
#include "screen/random_numbers.h"
#include "screen/values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace chiffrolo::test {

namespace {

TEST(Values, CIntRoundsHalvesToEvenAndSaturates) {
  const std::pair<double, int> rows[]{{2.5, 2},  {3.5, 4},      {-0.5, 0},    {-1.5, -2},    {2.4999, 2},
                                      {2.51, 3}, {293.75, 294}, {1e9, 32767}, {-1e9, -32768}};
  for (const auto& [value, expected] : rows)
    EXPECT_EQ(CInt(value), expected) << value;
}

TEST(Values, numbersAreConvertedToAndFromTexts) {
  EXPECT_EQ(numberText(-15), "-15");
  const std::pair<const char*, int> rows[]{{"", 0},    {"007", 7}, {"12x", 12},
                                           {"x12", 0}, {"-5", 0},  {"9999", 9999}};
  for (const auto& [text, expected] : rows)
    EXPECT_EQ(numberOf(text), expected) << text;
}

TEST(RandomNumbers, givenNumbersComeFirstDespiteReseeding) {
  RandomNumbers random([] { return 1U; });
  random.give(0.25);
  random.give(0.999);
  random.Randomize();
  EXPECT_EQ(random.Rnd(), 0.25);
  EXPECT_EQ(random.whole(10, 5), 14);
  EXPECT_EQ(random.givenNumbersLeft(), 0U);
}

TEST(RandomNumbers, largestNumberStaysWithinItsRange) {
  RandomNumbers random([] { return 1U; });
  for (const auto& [span, base] : {std::pair{4, 1}, {4, 2}, {4, 6}, {9, 1}, {88, 11}, {89, 11}, {989, 11}}) {
    random.give(std::nextafter(1.0, 0.0));
    EXPECT_EQ(random.whole(span, base), base + span - 1);
  }
}

TEST(RandomNumbers, reseedingAtTheSameInstantRepeatsNoNumber) {
  RandomNumbers random([] { return 1U; });
  std::set<double> drawn;
  for (int draw = 0; draw < 100; ++draw) {
    random.Randomize();
    drawn.insert(random.Rnd());
  }
  EXPECT_EQ(drawn.size(), 100U);
}

} // namespace

} // namespace chiffrolo::test
