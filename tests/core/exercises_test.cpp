// SPDX-License-Identifier: MIT
#include "tests/core/learner.h"
#include "tests/core/rows.h"

namespace chiffrolo::test {

namespace {

#define ADDITION "rnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1\n" // 47+35
#define SUBTRACTION "rnd 0.5 0.7 0.4 0.3 0.5\n"               // 82-35, next
#define WRONG ADDITION "key 9\nkey Enter\n"
#define STEP_1 WRONG "key Right\n"
#define STEP_2 STEP_1 "key 7\nkey 7\nkey Enter\n"
#define WRONG_THRICE STEP_1 "key 8\nkey Enter\nkey x\nkey 9\nkey Enter\n"
#define TOO_LATE " | tu dois répondre en moins de 30 secondes"

class Addition : public testing::TestWithParam<Row> {};

TEST_P(Addition, reads) { EXPECT_EQ(Learner(GetParam().scenario).reads(), GetParam().expected); }

// On the recording platform blanks are as wide as digits. An answer then begins at the "=" of its question
// and takes its place, and the first guided step wipes the last digit of the first line.
ROWS(Addition, {"fifthDigitIgnored", ADDITION "key 1\nkey 2\nkey 3\nkey 4\nkey 5", "47 + 35 1234 ?"},
     {"backspaceOfFourDigits", ADDITION "key 1\nkey 2\nkey 3\nkey 4\nkey Backspace", "47 + 35 123 ?"},
     {"backspaceOnNothing", ADDITION "key Backspace", "47 + 35 ?"},
     {"equalsOnNothing", ADDITION "key =", "47 + 35 = ?"},
     {"lettersAndSignsIgnored", ADDITION "key 8\nkey a\nkey +\nkey Space\nkey é\nkey '", "47 + 35 8 ?"},
     {"leadingZero", ADDITION "set score 1\nkey 0\nkey 8\nkey 2\nkey Enter",
      "47 + 35 082 | Bravo | Score = 2"},
     {"tenPoints", ADDITION "set score 9\nkey 8\nkey 2\nkey Enter", "47 + 35 82 | Bravo | Score = 10"},
     {"pointAfterFallingToZero", ADDITION "set score 0\nkey 8\nkey 2\nkey Enter",
      "47 + 35 82 | Bravo | Score = 1 | Tu dois réussir 10 opérations sans te tromper"},
     {"digitGoesOnAndIsNotTaken", WRONG "key 7", "47 + 3 | 47 + 30 = ?"},
     {"leftDoesNotGoOn", WRONG "key Left", "47 + 35 9 | FAUX"},
     {"arrowKeyIsNoHelpNow", WRONG_THRICE "key Right\nclick flèche",
      "47 + 3 | 47 + 30 =77 | 77 + 5 =9 | FAUX"},
     {"digitsNotTakenAfterTheEnd", ADDITION "set score 1\nkey 8\nkey 2\nkey Enter\nkey 5",
      "47 + 35 82 | Bravo | Score = 2"},
     {"lateWithNothing", ADDITION "wait 30000", "47 + 35" TOO_LATE},
     {"notYetLate", ADDITION "wait 29999", "47 + 35 = ?"},
     {"lateWithWrongDigits", ADDITION "key 9\nwait 30000", "47 + 35 9 | FAUX" TOO_LATE},
     {"lateWithRightDigits", ADDITION "set score 1\nkey 8\nkey 2\nwait 30000",
      "47 + 35 82 | Bravo | Score = 2"},
     {"comingBackStartsAFreshLimit",
      ADDITION "wait 20000\nfront accueil\n" SUBTRACTION "front addition\nwait 20000", "82 - 35 = ?"},
     {"lateWhileAway", ADDITION "key Escape\nwait 30000\nclick Commande1", "47 + 3 | 47 + 30 = ?"},
     {"backAtFirstAttempt", ADDITION "key Escape\n" SUBTRACTION "click Commande1", "82 - 35 = ?"},
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

// ---- Multiplications and divisions -------------------------------------------------------------------

// 12 x 4 at a score of 0.
#define MULTIPLICATION "rnd 0 0 0.12 0 0.5\nclick Commande2\n"
#define MULTIPLIED_WRONG MULTIPLICATION "key 9\nkey Enter\n"
#define TENS_RIGHT MULTIPLIED_WRONG "key x\nkey 4\nkey 0\nkey Enter\n"
#define UNITS_RIGHT TENS_RIGHT "key 8\nkey Enter\n"
// 48 : 2 at a score of 0.
#define DIVISION "rnd 0.1517 0\nclick Commande3\n"
#define DIVIDED_WRONG DIVISION "key 9\nkey Enter\n"
#define LAYOUT DIVIDED_WRONG "key x\n"
#define CLOSING "en cas d'erreur, la correction est affichée en rouge"

// On the recording platform "12 x 4" ends where the "=" begins.
class Modes : public testing::TestWithParam<Row> {};

TEST_P(Modes, reads) { EXPECT_EQ(Learner(GetParam().scenario).reads(), GetParam().expected); }

ROWS(Modes,
     {"productTooLate", MULTIPLICATION "wait 30000", "12 x 4= | tu dois répondre en moins de 30 secondes"},
     {"sumWrongNeedsACharacter", UNITS_RIGHT "key 9\nkey Enter\nkey Right",
      "10 x 4= 40 | + 2 x 4= 8 | 12 x 4= 9 | FAUX"},
     {"unknownStep", MULTIPLIED_WRONG "set essai 5\nkey x", "12 x 4= 9 | FAUX"},
     {"noAnswerIsRightBeyondTheSteps", MULTIPLICATION "set essai 4\nkey 0\nkey Enter", "12 x 4= 0 | FAUX"},

     {"noLeadingZero", DIVISION "key 0", "48 : 2 = ?"},
     {"laterZero", DIVISION "key 2\nkey 0", "48 : 2 = 20 ?"},
     {"quotientTooLate", DIVISION "wait 30000", "48 : 2 = | tu dois répondre en moins de 30 secondes"},
     {"enterDoesNotGoOn", LAYOUT "key Enter\nkey Right", "4 8 | 2 | ?"},
     {"zeroWithinTheQuotient", // 505 : 5
      "click Commande3\nset score 3\nrnd 0.0915 0.8\nfront accueil\nfront division\n"
      "key 9\nkey =\nkey x\nkey 1\nkey 0\nkey 0\nkey 0\nkey 1\nkey 0",
      "5 0 5 | 5 | 0 0 | 1 0 1 | 0 5 | 0 | Score = 2 | " CLOSING},
     {"escapeDrawsAnew", LAYOUT "key 2\nrnd 0 0\nkey Escape", "22 : 2 = ?"},
     {"activationIsAStep", LAYOUT "key 2\nfront accueil\nset essai 1\nfront division", "4 8 | 2 | 0 8 | 2 ?"},
     {"fromTheHomeKeyboard", "set essai 3\nrnd 0.1517 0\nkey Right\nkey 9\nkey Enter\nkey x",
      "48 : 2 = 9 | FAUX | ? | 2"},
     {"cursorBeyondTheDigits", LAYOUT "set essai 7\nkey 2\nkey 0", "4 8 | 2 | ? | Score = 0 | " CLOSING},
     {"layoutFirstWhateverIsNext", LAYOUT "key 2\nset essai 0\nkey 0", "4 8 | 2 | ?"});

TEST(Division, titleTellsOfTheCorrection) {
  Learner learner(LAYOUT "key 2\nkey Escape");
  EXPECT_EQ(learner.effects({"division caption"}),
            "division caption titre \" correction \", division caption titre \"Chiffrolo\"");
}

TEST(Division, escapeKeepsTheScoreOnlyInACorrection) {
  EXPECT_EQ(Learner(LAYOUT "set score 4\nkey Escape").shared().score, 4);
  EXPECT_EQ(Learner(DIVISION "set score 4\nkey Escape").shared().score, 0);
}

TEST(Multiplication, eachWrongStepCostsAPoint) {
  Learner learner(MULTIPLICATION
                  "set score 9\nkey 9\nkey =\nkey x\nkey 9\nkey =\nkey x\nkey 9\nkey =\nkey x\nkey 9\nkey =");
  EXPECT_EQ(learner.shared().score, 5);
  learner.play("key x");
  EXPECT_EQ(learner.shared().essai, 0);
}

} // namespace

} // namespace chiffrolo::test
