// SPDX-License-Identifier: MIT
#include "recording/recording_platform.h"
#include "screens.h"
#include "tests/core/rows.h"

#include <cmath>
#include <map>
#include <set>

namespace chiffrolo::test {

namespace {

/// The largest random number.
#define MOST "0.9999999999999999"

// ---- Exercises: the smallest and the largest numbers at the scores that change them ------------------

#define DRAWN(button, screen, score, numbers)                                                                \
  "click " button "\nset score " score "\nfront accueil\nrnd " numbers "\nfront " screen
// Below 0.3 for an addition; the units and the tens of the first number; the tens and the units of the
// second.
#define DRAWN_ADDITION(score, numbers) DRAWN("Commande1", "addition", score, numbers)
// Below 0.5 for the multiplier on the right; tens; units; the multiplier from score 5 on; the one below
// score 5.
#define DRAWN_MULTIPLICATION(score, numbers) DRAWN("Commande2", "multiplication", score, numbers)
// The quotient; the divisor.
#define DRAWN_DIVISION(score, numbers) DRAWN("Commande3", "division", score, numbers)

ROWS(DrawnOperations, visibleText, {"smallestAddition", DRAWN_ADDITION("0", "0 0 0 0 0"), "11 + 11 = ?"},
     {"sumOf100IsDrawnAgainAtScore5", DRAWN_ADDITION("5", "0 0 0 0.8 " MOST " 0 0 0.8 0.8"), "11 + 88 = ?"},
     {"largestAdditionFromScore6", DRAWN_ADDITION("6", "0.2999 " MOST " " MOST " " MOST " " MOST),
      "99 + 99 = ?"},
     {"largestSubtraction", DRAWN_ADDITION("6", "0.3 " MOST " " MOST " " MOST " " MOST), "198 - 99 = ?"},

     {"productOf100IsDrawnAgainAtScore2", DRAWN_MULTIPLICATION("2", "0.5 0.12 0.5 0 0.5 0.3 0.3 0 0.25"),
      "3 x 33 = ?"},
     {"largestMultiplicationAtScore3", DRAWN_MULTIPLICATION("3", "0.4999 " MOST " " MOST " 0 " MOST),
      "99 x 5 = ?"},
     {"smallestMultiplicationAtScore4", DRAWN_MULTIPLICATION("4", "0 0 0 0 0"), "11 x 2 = ?"},
     {"smallestMultiplicationFromScore5", DRAWN_MULTIPLICATION("5", "0.5 0 0 0"), "3 x 11 = ?"},
     {"largestMultiplicationFromScore5", DRAWN_MULTIPLICATION("5", "0 " MOST " " MOST " " MOST),
      "99 x 9 = ?"},

     {"smallestDivision", DRAWN_DIVISION("0", "0 0"), "22 : 2 = ?"},
     {"largestDivisionAtScore2", DRAWN_DIVISION("2", MOST " " MOST), "495 : 5 = ?"},
     {"thousandsAreSetApart", DRAWN_DIVISION("3", "0.4945 0"), "1 000 : 2 = ?"},
     {"hundredsAreNotSetApart", DRAWN_DIVISION("3", "0.3256 0.25"), "999 : 3 = ?"},
     {"largestDivisionAtScore4", DRAWN_DIVISION("4", MOST " " MOST), "4 995 : 5 = ?"},
     {"smallestDivisionFromScore5", DRAWN_DIVISION("5", "0 0"), "66 : 6 = ?"},
     {"largestDivisionFromScore5", DRAWN_DIVISION("5", MOST " " MOST), "8 991 : 9 = ?"});

// ---- The challenge: with the answers, which a correction shows ---------------------------------------

// The kind, then the numbers; of a number of two digits the units first.
#define CORRECTED(numbers) "rnd " numbers "\nclick Commande4\nkey 0\nkey =\nkey x"
#define AFTER(right, numbers)                                                                                \
  "click Commande4\nset reussies " right "\nkey 0\nkey =\nkey x\nrnd " numbers "\nkey Right"

ROWS(MixedOperations, visibleText,
     {"sumOf40IsDrawnAgain", CORRECTED("0 0 " MOST " 0.12 0.012 " MOST " 0.12"), "12 + 29 = 41 | Score = 0"},
     {"largestAddition", CORRECTED("0.2499 " MOST " " MOST " " MOST), "98 + 99 = 197 | Score = 0"},
     {"smallestSubtraction", CORRECTED("0.25 0 0 0 0"), "42 - 21 = 21 | Score = 0"},
     {"largestSubtraction", CORRECTED("0.4999 " MOST " " MOST " " MOST " " MOST),
      "188 - 99 = 89 | Score = 0"},
     {"smallestMultiplication", CORRECTED("0.5 0 0 0 0.4999"), "2 x 21 = 42 | Score = 0"},
     {"largestMultiplication", CORRECTED("0.7499 " MOST " " MOST " " MOST " 0.5"),
      "99 x 9 = 891 | Score = 0"},
     {"smallestDivision", CORRECTED("0.75 0 0 0"), "22 : 2 = 11 | Score = 0"},
     {"largestDivision", CORRECTED(MOST " " MOST " " MOST " " MOST), "891 : 9 = 99 | Score = 0"},
     {"onlyMultiplicationsAreLeft", AFTER("5 5 4 5", "0 " MOST " 0.25 0.5 0 0 0 0"), "2 x 21 = ?"},
     {"onlyAdditionsAreLeft", AFTER("4 5 5 5", MOST " 0.5 0.25 0 " MOST " " MOST " " MOST), "98 + 99 = ?"},
     {"anyKindIsDrawnWhenNoneIsLeft", AFTER("5 5 5 5", "0.5 0 0 0 0"), "2 x 21 = ?"});

// ---- Random numbers ----------------------------------------------------------------------------------

std::string drawnAt(std::uint64_t timeOfDay, ScreenName screen) {
  RecordingPlatform platform({}, timeOfDay);
  Program program(platform, allScreens);
  program.start();
  program.Show(screen);
  return program.shared().operation;
}

TEST(RandomNumbers, dependOnTheTimeOfDay) {
  using enum ScreenName;
  for (const auto screen : {addition, multiplication, division, record}) {
    std::set<std::string> operations;
    for (std::uint64_t timeOfDay = 0; timeOfDay < 20; ++timeOfDay)
      operations.insert(drawnAt(timeOfDay, screen));
    EXPECT_GT(operations.size(), 10U) << static_cast<int>(screen);
  }
}

/// The tolerance is five standard deviations.
TEST(RandomNumbers, areUniformAndIndependentAlthoughTheClockStandsStill) {
  RandomNumbers random([] { return 7U; });
  std::map<int, int> counts;
  for (int draw = 0; draw < 40500; ++draw) {
    random.Randomize();
    const int tens = random.whole(9, 1);
    ++counts[10 * tens + random.whole(9, 1)];
  }
  EXPECT_EQ(counts.size(), 81U);
  for (const auto& [number, count] : counts)
    EXPECT_NEAR(count, 500, 5 * std::sqrt(500)) << number;
}

} // namespace

} // namespace chiffrolo::test
