// SPDX-License-Identifier: MIT
#include "tests/learner.h"
#include "tests/rows.h"

namespace chiffrolo::test {

namespace {

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
