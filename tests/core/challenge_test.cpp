// SPDX-License-Identifier: MIT
#include "challenge/mixed_operations.h"
#include "tests/core/operation.h"
#include "tests/core/operation_sampler.h"
#include "tests/core/rows.h"

#include <cmath>

namespace chiffrolo::test {

namespace {

// 20 + 47, and 85 - 38 as the next operation.
#define CHALLENGE "rnd 0 0.11 0.7 0.4\nclick Commande4\n"
#define NEXT_NUMBERS "rnd 0.25 0.8 0.2 0.7 0.3\n"
#define WRONG CHALLENGE "key 9\nkey =\n"

#define TABLE(additions, subtractions, total)                                                                \
  "Opérations | effectuées | réussies | % de réussite | additions | " additions                              \
  " | soustractions | " subtractions " | multiplications | 0 | 0 | divisions | 0 | 0 | Total | " total

ROWS(Challenge, visibleText, {"enterShowsCorrection", WRONG "key Enter", "20 + 47 = 67 | Score = 0"},
     {"timeLimitRejectsAnEmptyAnswer", CHALLENGE "wait 32000",
      "0 0 3 2 | 20 + 47 = | tu dois répondre en moins de 30 secondes"},
     {"timeLimitRejectsAWrongAnswer", CHALLENGE "key 9\nwait 32000",
      "0 0 3 2 | 20 + 47 = 9 | FAUX | tu dois répondre en moins de 30 secondes"},
     {"timeLimitAcceptsARightAnswer", CHALLENGE "key 6\nkey 7\nwait 32000",
      "0 0 3 2 | 20 + 47 = 67 | Bravo | Score = 1 | Tu dois réussir 20 opérations le plus rapidement "
      "possible"},
     {"unknownStepDrawsNothing", CHALLENGE "set essai 2\nkey x", "20 + 47 = ?"},
     {"digitsAreIgnoredAfterTheRightAnswer", CHALLENGE "set nbOperations 5\nkey 6\nkey 7\nkey =\nkey 5",
      "20 + 47 = 67 | Bravo | Score = 6"},
     {"secondChallengeStartsFromZero",
      CHALLENGE
      "set chrono 50\nset effectuees 6 7 8 9\nset reussies 5 5 5 4\nset nbOperations 19\nkey Escape\n"
      "key Enter\n" CHALLENGE "key 6\nkey 7\nkey Enter\nkey Escape",
      TABLE("1 | 1 | 100 %", "0 | 0", "1 | 1 | 100 %")},
     {"successRatesAreTruncated", CHALLENGE "set effectuees 6 7 0 0\nset reussies 5 5 0 0\nkey Escape",
      TABLE("6 | 5 | 83 %", "7 | 5 | 71 %", "13 | 10 | 76 %")});

#define TO_RESULTS "load FIN2, unload record, activate FIN2"
ROWS(ChallengeNavigation, takeScreenChanges, {"escapeShowsResults", CHALLENGE "key Escape", TO_RESULTS},
     {"escapeDuringCorrectionShowsResults", CHALLENGE "key 9\nkey =\nkey Escape", TO_RESULTS},
     {"stopImageShowsResults", CHALLENGE "key 6\nkey 7\nkey =\nclick arret", TO_RESULTS},
     {"enterAfterTwentiethRightAnswerShowsResults",
      CHALLENGE "set nbOperations 19\nkey 6\nkey 7\nkey =\nkey Enter", TO_RESULTS},
     {"rightKeyLeavesResults", CHALLENGE "key Escape\nkey Right", "activate accueil, unload FIN2"},
     {"enterLeavesResults", CHALLENGE "key Escape\nkey Enter", "activate accueil, unload FIN2"},
     {"escapeLeavesResults", CHALLENGE "key Escape\nkey Escape", "activate accueil, unload FIN2"},
     {"digitDoesNotLeaveResults", CHALLENGE "key Escape\nkey 7", ""},
     {"closeBoxUnloadsChallenge", CHALLENGE "close", "activate accueil, unload record"},
     {"returningToCompleteChallengeShowsResults",
      CHALLENGE "front accueil\nset nbOperations 20\nclick Commande4", "activate record, " TO_RESULTS});

/// The stopwatch changes the font.
TEST(ChallengeFont, questionMarkHasTheFontOfTheOperationAfterASecond) {
  EXPECT_EQ(lastEffects(CHALLENGE "key 6\nwait 1000\nkey Backspace", "record text"),
            "record text 292 120 \"Times new roman\" 28 #000080 \" ?\"");
}

TEST(ChallengeCounters, stopAtTheirMaximum) {
  ScenarioSession session(
      CHALLENGE "set chrono 32767\nset effectuees 0 32767 0 0\nwait 1000\nkey 9\nkey =\nkey x\n" NEXT_NUMBERS
                "key Right");
  EXPECT_EQ(session.shared().chrono, 32767);
  EXPECT_EQ(session.shared().effectuees[2], 32767);
}

TEST(ChallengeTimers, tickInStartOrder) {
  ScenarioSession session(CHALLENGE "wait 31999\nkey 6\nkey 7");
  session.takeEffects({});
  session.play("wait 1");
  EXPECT_EQ(session.shared().chrono, 32) << "the stopwatch ticks before the time limit";
  EXPECT_EQ(session.takeEffects({"record timer"}), "record timer Minuterie off, record timer Minuterie1 off");
}

TEST(ChallengeTimers, areStoppedDuringACorrection) {
  ScenarioSession session(CHALLENGE "wait 2900\nkey 9\nkey =\nwait 60000\nkey x\nwait 60000\n" NEXT_NUMBERS
                                    "key Right\nwait 1999");
  EXPECT_EQ(session.shared().chrono, 3) << "two and one whole seconds of unanswered operations";
}

TEST(ChallengeScore, isResetByTheResultsScreen) {
  EXPECT_EQ(ScenarioSession(CHALLENGE "set score 7\nkey 6").shared().score, 7);
  EXPECT_EQ(ScenarioSession(CHALLENGE "set score 7\nkey Escape").shared().score, 0);
  EXPECT_EQ(ScenarioSession(CHALLENGE "key Escape\nset score 7\nkey 7").shared().score, 0);
}

// ---- The operations ----------------------------------------------------------------------------------

/// Whether the tens are `lowestTens` to `highestTens` and the units 1 to 9.
bool isTwoDigits(int number, int lowestTens, int highestTens) {
  return number % 10 != 0 && number / 10 >= lowestTens && number / 10 <= highestTens;
}

TEST(MixedOperations, areUniformWithinTheRangesOfTheirKind) {
  RandomNumbers random([] { return 7U; });
  Counts<int> kinds, additionAnswers, subtractionAnswers, quotients, productNumbers;
  Counts<bool> multiplierFirst;
  for (int count = 0; count < 200000; ++count) {
    const auto drawn = drawMixedOperation({}, random);
    const auto operation = parsed(drawn.text);
    const auto [left, sign, right] = operation;
    ASSERT_EQ(drawn.answer, operation.result()) << drawn.text;
    ++kinds[drawn.kind];
    switch (sign) {
    case '+':
      ASSERT_TRUE(left >= 11 && left <= 98 && isTwoDigits(right, 1, 9)) << drawn.text;
      ++additionAnswers[drawn.answer];
      break;
    case '-':
      ASSERT_TRUE(isTwoDigits(drawn.answer, 2, 8) && isTwoDigits(right, 2, 9)) << drawn.text;
      ++subtractionAnswers[drawn.answer];
      break;
    case 'x':
      ASSERT_TRUE(isTwoDigits(std::max(left, right), 2, 9) && std::min(left, right) >= 2) << drawn.text;
      ++productNumbers[std::max(left, right)];
      ++multiplierFirst[left < right];
      break;
    default:
      ASSERT_EQ(drawn.answer * right, left) << drawn.text;
      ASSERT_TRUE(isTwoDigits(drawn.answer, 1, 9) && right >= 2 && right <= 9) << drawn.text;
      ++quotients[drawn.answer];
    }
  }
  EXPECT_TRUE(isUniform(kinds, 4));
  EXPECT_EQ(additionAnswers.begin()->first, 41);
  EXPECT_EQ(additionAnswers.rbegin()->first, 197);
  EXPECT_TRUE(isUniform(subtractionAnswers, 63));
  EXPECT_TRUE(isUniform(productNumbers, 72));
  EXPECT_TRUE(isUniform(multiplierFirst, 2));
  EXPECT_TRUE(isUniform(quotients, 81));
}

TEST(MixedOperations, haveKindsThatStillNeedRightAnswers) {
  RandomNumbers random([] { return 7U; }); // constant time of day
  Counts<int> kinds;
  for (int count = 0; count < 10000; ++count)
    ++kinds[drawMixedOperation({0, 5, 2, 5, 4}, random).kind];
  EXPECT_TRUE(isUniform(kinds, 2)) << "only subtractions and divisions";
  EXPECT_EQ(kinds.begin()->first, kind::subtraction);
  for (int needed = kind::addition; needed <= kind::division; ++needed) {
    std::array<SaturatingInt16, 5> rightAnswers{0, 5, 5, 5, 5};
    rightAnswers[static_cast<std::size_t>(needed)] = 4;
    for (int count = 0; count < 30; ++count)
      ASSERT_EQ(drawMixedOperation(rightAnswers, random).kind, needed);
  }
  random.give(0.6); // draws kind 3
  EXPECT_EQ(drawMixedOperation({0, 5, 5, 5, 5}, random).kind, kind::multiplication);
}

} // namespace

} // namespace chiffrolo::test
