// SPDX-License-Identifier: MIT
#include "tests/learner.h"
#include "tests/rows.h"

namespace chiffrolo::test {

namespace {

#define ADDITION "rnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1\n" // 47+35
#define WRONG ADDITION "key 9\nkey Enter\n"
#define STEP_1 WRONG "key Right\n"
#define STEP_2 STEP_1 "key 7\nkey 7\nkey Enter\n"
#define WRONG_THRICE STEP_1 "key 8\nkey Enter\nkey x\nkey 9\nkey Enter\n"
#define TOO_LATE " | tu dois répondre en moins de 30 secondes"

class Addition : public testing::TestWithParam<Row> {};

TEST_P(Addition, reads) { EXPECT_EQ(Learner(GetParam().scenario).reads(), GetParam().expected); }

// On the recording platform blanks are as wide as digits. An answer then begins at the "=" of its question
// and takes its place, and the first guided step wipes the last digit of the first line.
ROWS(Addition, {"question", ADDITION, "47 + 35 = ?"}, {"firstDigit", ADDITION "key 8", "47 + 35 8 ?"},
     {"fifthDigitIgnored", ADDITION "key 1\nkey 2\nkey 3\nkey 4\nkey 5", "47 + 35 1234 ?"},
     {"backspace", ADDITION "key 1\nkey 2\nkey Backspace", "47 + 35 1 ?"},
     {"backspaceOfFourDigits", ADDITION "key 1\nkey 2\nkey 3\nkey 4\nkey Backspace", "47 + 35 123 ?"},
     {"backspaceOnNothing", ADDITION "key Backspace", "47 + 35 ?"},
     {"enterOnNothing", ADDITION "key Enter", "47 + 35 ?"},
     {"equalsOnNothing", ADDITION "key =", "47 + 35 = ?"},
     {"lettersAndSignsIgnored", ADDITION "key 8\nkey a\nkey +\nkey Space\nkey é\nkey '", "47 + 35 8 ?"},
     {"right", ADDITION "key 8\nkey 2\nkey Enter",
      "47 + 35 82 | Bravo | Score = 1 | Tu dois réussir 10 opérations sans te tromper"},
     {"rightByEquals", ADDITION "set score 3\nkey 8\nkey 2\nkey =", "47 + 35 82 | Bravo | Score = 4"},
     {"leadingZero", ADDITION "set score 1\nkey 0\nkey 8\nkey 2\nkey Enter",
      "47 + 35 082 | Bravo | Score = 2"},
     {"tenPoints", ADDITION "set score 9\nkey 8\nkey 2\nkey Enter", "47 + 35 82 | Bravo | Score = 10"},
     {"pointAfterFallingToZero", ADDITION "set score 0\nkey 8\nkey 2\nkey Enter",
      "47 + 35 82 | Bravo | Score = 1 | Tu dois réussir 10 opérations sans te tromper"},
     {"wrong", WRONG, "47 + 35 9 | FAUX"},
     {"digitGoesOnAndIsNotTaken", WRONG "key 7", "47 + 3 | 47 + 30 = ?"},
     {"enterGoesOnOnce", WRONG "key Enter", "47 + 3 | 47 + 30 = ?"},
     {"leftDoesNotGoOn", WRONG "key Left", "47 + 35 9 | FAUX"},
     {"step2AfterRightStep1", STEP_2, "47 + 3 | 47 + 30 =77 | 77 + 5 = ?"},
     {"step2AfterWrongStep1", STEP_1 "key 8\nkey Enter\nkey x", "47 + 3 | 47 + 30 =77 | 77 + 5 = ?"},
     {"bothStepsRight", STEP_2 "key 8\nkey 2\nkey Enter", "47 + 3 | 47 + 30 =77 | 77 + 5 =82 | Score = 0"},
     {"wrongThrice", WRONG_THRICE, "47 + 3 | 47 + 30 =77 | 77 + 5 =9 | FAUX"},
     {"arrowKeyIsNoHelpNow", WRONG_THRICE "key Right\nclick flèche",
      "47 + 3 | 47 + 30 =77 | 77 + 5 =9 | FAUX"},
     {"characterShowsTheResult", WRONG_THRICE "key x", "47 + 3 | 47 + 30 =77 | 77 + 5 =82 | Score = 0"},
     {"digitsNotTakenAfterTheEnd", ADDITION "set score 1\nkey 8\nkey 2\nkey Enter\nkey 5",
      "47 + 35 82 | Bravo | Score = 2"},
     {"lateWithNothing", ADDITION "wait 30000", "47 + 35" TOO_LATE},
     {"notYetLate", ADDITION "wait 29999", "47 + 35 = ?"},
     {"lateWithWrongDigits", ADDITION "key 9\nwait 30000", "47 + 35 9 | FAUX" TOO_LATE},
     {"lateWithRightDigits", ADDITION "set score 1\nkey 8\nkey 2\nwait 30000",
      "47 + 35 82 | Bravo | Score = 2"},
     {"stepsHaveNoLimit", STEP_1 "wait 86400000", "47 + 3 | 47 + 30 = ?"},
     {"lateWhileAway", ADDITION "key Escape\nwait 30000\nclick Commande1", "47 + 3 | 47 + 30 = ?"},
     {"backAtFirstAttempt", ADDITION "key Escape\nrnd 0.5 0.7 0.4 0.3 0.5\nclick Commande1", "82 - 35 = ?"},
     {"backWithinStep", STEP_1 "key 5\nkey Escape\nclick Commande1", "47 + 3 | 47 + 30 =5 ??"},
     {"cursorBeyondTheSteps", STEP_1 "set essai 4\nfront accueil\nfront addition", "47 + 3 | 47 + 30 = ?"},
     {"wrongAtUnknownStep", ADDITION "set essai 32767\nset score 0\nkey 9\nkey Enter", "47 + 35 9 | FAUX"});

TEST(AdditionScore, countsFirstAttemptsUpAndEveryWrongAnswerDown) {
  const auto score = [](std::string_view scenario) { return int{Learner(scenario).shared().score}; };
  EXPECT_EQ(score(ADDITION "set score 5\nkey 8\nkey 2\nkey Enter"), 6);
  EXPECT_EQ(score(ADDITION "set score 5\nkey 9\nkey Enter\nkey x\nkey 9\nkey Enter\nkey x\nkey 9\nkey Enter"),
            2);
  EXPECT_EQ(score(STEP_2 "set score 5\nkey 8\nkey 2\nkey Enter"), 5) << "right guided steps win nothing";
  EXPECT_EQ(score(WRONG), 0) << "never below 0";
}

TEST(AdditionTimer, runsFromTheQuestionToTheJudgement) {
  Learner learner(ADDITION "key 8\nkey 2\nkey Enter");
  EXPECT_EQ(learner.effects({"addition timer", "addition show", "addition hide"}),
            "addition timer Minuterie off, addition show flèche, addition show arret");
  learner.play("rnd 0.1 0.7 0.4 0.3 0.5\nkey Right");
  EXPECT_EQ(learner.effects({"addition timer", "addition show", "addition hide"}),
            "addition hide flèche, addition hide arret, addition timer Minuterie on 30000");
  learner.play("wait 20000\nfront accueil\nfront addition\nwait 20000");
  EXPECT_EQ(learner.effects({"addition timer"}), "") << "coming back starts a fresh limit";
}

} // namespace

} // namespace chiffrolo::test
