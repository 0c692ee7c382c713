// SPDX-License-Identifier: MIT
#include "challenge/mixed_operations.h"
#include "tests/core/drill.h"
#include "tests/core/learner.h"
#include "tests/core/rows.h"

#include <cmath>
#include <sstream>

namespace chiffrolo::test {

namespace {

// 20 + 47, then 47 again as 85 - 38.
#define CHALLENGE "rnd 0 0.11 0.7 0.4\nclick Commande4\n"
#define NEXT "rnd 0.25 0.8 0.2 0.7 0.3\n"
#define WRONG CHALLENGE "key 9\nkey =\n"

class Challenge : public testing::TestWithParam<Row> {};

TEST_P(Challenge, reads) {
  Learner learner(GetParam().scenario);
  std::string seen = learner.reads();
  // On the recording platform the stopwatch's digits are wider than its cells: they are left to the
  // transcripts.
  if (seen.starts_with("0 0 ")) seen.erase(0, seen.find(" | 20") + 3);
  EXPECT_EQ(seen, GetParam().expected);
}

#define TABLE(additions, subtractions, total)                                                                \
  "Opérations | effectuées | réussies | % de réussite | additions | " additions                              \
  " | soustractions | " subtractions " | multiplications | 0 | 0 | divisions | 0 | 0 | Total | " total

ROWS(Challenge, {"correctionByEnter", WRONG "key Enter", "20 + 47 = 67 | Score = 0"},
     {"cursorBeyondTheSteps", CHALLENGE "set essai 2\nkey x", "20 + 47 = ?"},
     {"ratesAreTruncated", CHALLENGE "set effectuees 6 7 0 0\nset reussies 5 5 0 0\nkey Escape",
      TABLE("6 | 5 | 83 %", "7 | 5 | 71 %", "13 | 10 | 76 %")});

class ChallengeNavigation : public testing::TestWithParam<Row> {};

TEST_P(ChallengeNavigation, moves) {
  Learner learner(CHALLENGE);
  learner.moves();
  learner.play(GetParam().scenario);
  EXPECT_EQ(learner.moves(), GetParam().expected);
}

#define TO_RESULTS "load FIN2, unload record, activate FIN2"
ROWS(ChallengeNavigation, {"escape", "key Escape", TO_RESULTS},
     {"escapeWhileWaiting", "key 9\nkey =\nkey Escape", TO_RESULTS},
     {"stopSign", "key 6\nkey 7\nkey =\nclick arret", TO_RESULTS},
     {"twentiethAnswer", "set nbOperations 19\nkey 6\nkey 7\nkey =\nkey Enter", TO_RESULTS},
     {"homeByRight", "key Escape\nkey Right", TO_RESULTS ", activate accueil, unload FIN2"},
     {"homeByEnter", "key Escape\nkey Enter", TO_RESULTS ", activate accueil, unload FIN2"},
     {"homeByEscape", "key Escape\nkey Escape", TO_RESULTS ", activate accueil, unload FIN2"},
     {"digitStays", "key Escape\nkey 7", TO_RESULTS},
     {"closeBox", "close", "activate accueil, unload record"},
     {"comingBackWhenComplete", "front accueil\nset nbOperations 20\nclick Commande4",
      "activate accueil, activate record, " TO_RESULTS});

TEST(ChallengeCounters, stopAtTheirEnds) {
  Learner learner(CHALLENGE
                  "set chrono 32767\nset effectuees 0 32767 0 0\nwait 1000\nkey 9\nkey =\nkey x\n" NEXT
                  "key Right");
  EXPECT_EQ(learner.shared().chrono, 32767);
  EXPECT_EQ(learner.shared().effectuees[2], 32767);
}

TEST(ChallengeTimers, tickInTheOrderInWhichTheyWereTurnedOn) {
  Learner learner(CHALLENGE "wait 31999\nkey 6\nkey 7");
  learner.effects({});
  learner.play("wait 1");
  EXPECT_EQ(learner.shared().chrono, 32) << "the stopwatch ticks before the limit judges";
  EXPECT_EQ(learner.effects({"record timer"}), "record timer Minuterie off, record timer Minuterie1 off");
}

TEST(ChallengeTimers, restWhileACorrectionWaits) {
  Learner learner(CHALLENGE "wait 2900\nkey 9\nkey =\nwait 60000\nkey x\nwait 60000\n" NEXT
                            "key Right\nwait 1999");
  EXPECT_EQ(learner.shared().chrono, 3) << "whole seconds of open operations: two and one";
}

TEST(ChallengeScore, isResetByTheResults) {
  EXPECT_EQ(Learner(CHALLENGE "set score 7\nkey 6").shared().score, 7);
  EXPECT_EQ(Learner(CHALLENGE "set score 7\nkey Escape").shared().score, 0);
  EXPECT_EQ(Learner(CHALLENGE "key Escape\nset score 7\nkey 7").shared().score, 0);
}

// ---- The operations ----------------------------------------------------------------------------------

struct Drawn {
  MixedOperation operation;
  int left{};
  int right{};
};

Drawn draw(const std::array<SaturatingInt16, 5>& rightAnswers, RandomNumbers& random) {
  Drawn drawn{drawMixedOperation(rightAnswers, random)};
  char sign = ' ';
  std::istringstream(drawn.operation.text) >> drawn.left >> sign >> drawn.right;
  return drawn;
}

/// Two digits, both in their ranges, as a set of all such numbers would be counted.
bool isTwoDigits(int number, int lowestTens, int highestTens) {
  return number % 10 != 0 && number / 10 >= lowestTens && number / 10 <= highestTens;
}

TEST(MixedOperations, keepTheRangesOfTheirKind) {
  RandomNumbers random([] { return 7U; });
  Counts<int> kinds, additionAnswers, subtractionAnswers, quotients, productNumbers;
  Counts<bool> multiplierFirst;
  for (int count = 0; count < 200000; ++count) {
    const auto [operation, left, right] = draw({}, random);
    const int answer = operation.answer;
    ++kinds[operation.kind];
    switch (operation.kind) {
    case kind::addition:
      ASSERT_EQ(answer, left + right);
      ASSERT_TRUE(answer > 40 && left >= 11 && left <= 98 && isTwoDigits(right, 1, 9)) << operation.text;
      ++additionAnswers[answer];
      break;
    case kind::subtraction:
      ASSERT_EQ(answer, left - right);
      ASSERT_TRUE(isTwoDigits(answer, 2, 8) && isTwoDigits(right, 2, 9)) << operation.text;
      ++subtractionAnswers[answer];
      break;
    case kind::multiplication:
      ASSERT_EQ(answer, left * right);
      ASSERT_TRUE(isTwoDigits(std::max(left, right), 2, 9) && std::min(left, right) >= 2) << operation.text;
      ++productNumbers[std::max(left, right)];
      ++multiplierFirst[left < right];
      break;
    default:
      ASSERT_EQ(answer * right, left);
      ASSERT_TRUE(isTwoDigits(answer, 1, 9) && right >= 2 && right <= 9) << operation.text;
      ++quotients[answer];
    }
  }
  EXPECT_TRUE(looksUniform(kinds, 4));
  EXPECT_EQ(additionAnswers.begin()->first, 41);
  EXPECT_EQ(additionAnswers.rbegin()->first, 197);
  EXPECT_TRUE(looksUniform(subtractionAnswers, 63));
  EXPECT_TRUE(looksUniform(productNumbers, 72));
  EXPECT_TRUE(looksUniform(multiplierFirst, 2));
  EXPECT_TRUE(looksUniform(quotients, 81));
}

TEST(MixedOperations, areOfKindsThatStillNeedAnswers) {
  RandomNumbers random([] { return 7U; }); // the clock stands still
  Counts<int> kinds;
  for (int count = 0; count < 10000; ++count)
    ++kinds[draw({0, 5, 2, 5, 4}, random).operation.kind];
  EXPECT_TRUE(looksUniform(kinds, 2)) << "only kinds 2 and 4";
  EXPECT_EQ(kinds.begin()->first, kind::subtraction);
  for (int count = 0; count < 100; ++count)
    ASSERT_EQ(draw({0, 5, 5, 5, 4}, random).operation.kind, kind::division);
  random.give(0.6); // the third kind
  EXPECT_EQ(draw({0, 5, 5, 5, 5}, random).operation.kind, kind::multiplication);
}

} // namespace

} // namespace chiffrolo::test
