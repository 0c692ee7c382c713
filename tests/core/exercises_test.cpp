// SPDX-License-Identifier: MIT
#include "tests/core/rows.h"

namespace chiffrolo::test {

namespace {

#define ADDITION "rnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1\n" // 47+35
#define SUBTRACTION "rnd 0.5 0.7 0.4 0.3 0.5\n"               // 82-35, next
#define WRONG ADDITION "key 9\nkey Enter\n"
#define STEP_1 WRONG "key Right\n"
#define STEP_2 STEP_1 "key 7\nkey 7\nkey Enter\n"
#define ALL_STEPS_WRONG STEP_1 "key 8\nkey Enter\nkey x\nkey 9\nkey Enter\n"
#define TIME_LIMIT_TEXT " | tu dois répondre en moins de 30 secondes"

ROWS(Addition, visibleText,
     {"fifthDigitIsIgnored", ADDITION "key 1\nkey 2\nkey 3\nkey 4\nkey 5", "47 + 35 = 1234 ?"},
     {"backspaceRemovesTheFourthDigit", ADDITION "key 1\nkey 2\nkey 3\nkey 4\nkey Backspace",
      "47 + 35 = 123 ?"},
     {"backspaceOnEmptyAnswerDoesNothing", ADDITION "key Backspace", "47 + 35 = ?"},
     {"equalsOnEmptyAnswerDoesNothing", ADDITION "key =", "47 + 35 = ?"},
     {"clickOnATimerIsIgnored", ADDITION "click Minuterie", "47 + 35 = ?"},
     {"lettersAndSignsAreIgnored", ADDITION "key 8\nkey a\nkey +\nkey Space\nkey é\nkey '", "47 + 35 = 8 ?"},
     {"leadingZeroIsAccepted", ADDITION "set score 1\nkey 0\nkey 8\nkey 2\nkey Enter",
      "47 + 35 = 082 | Bravo | Score = 2"},
     {"rightAnswerAtNinePointsScoresTen", ADDITION "set score 9\nkey 8\nkey 2\nkey Enter",
      "47 + 35 = 82 | Bravo | Score = 10"},
     {"firstPointShowsTheObjective", ADDITION "set score 0\nkey 8\nkey 2\nkey Enter",
      "47 + 35 = 82 | Bravo | Score = 1 | Tu dois réussir 10 opérations sans te tromper"},
     {"digitStartsTheNextStepAndIsNotTyped", WRONG "key 7", "47 + 35 | 47 + 30 = ?"},
     {"leftKeyDoesNotStartTheNextStep", WRONG "key Left", "47 + 35 = 9 | FAUX"},
     {"rightKeyAndArrowImageDoNothingAfterTheLastStep", ALL_STEPS_WRONG "key Right\nclick flèche",
      "47 + 35 | 47 + 30 = 77 | 77 + 5 = 9 | FAUX"},
     {"digitsAreIgnoredAfterTheRightAnswer", ADDITION "set score 1\nkey 8\nkey 2\nkey Enter\nkey 5",
      "47 + 35 = 82 | Bravo | Score = 2"},
     {"timeLimitWithoutAnswerShowsInstruction", ADDITION "wait 30000", "47 + 35 =" TIME_LIMIT_TEXT},
     {"timeLimitIsNotReachedAfter29999Milliseconds", ADDITION "wait 29999", "47 + 35 = ?"},
     {"timeLimitRejectsWrongAnswer", ADDITION "key 9\nwait 30000", "47 + 35 = 9 | FAUX" TIME_LIMIT_TEXT},
     {"timeLimitRunsForTheNextOperation",
      ADDITION "key 8\nkey 2\nkey Enter\n" SUBTRACTION "key Enter\nwait 30000", "82 - 35 =" TIME_LIMIT_TEXT},
     {"timeLimitAcceptsRightAnswer", ADDITION "set score 1\nkey 8\nkey 2\nwait 30000",
      "47 + 35 = 82 | Bravo | Score = 2"},
     {"returningRestartsTheTimeLimit",
      ADDITION "wait 20000\nfront accueil\n" SUBTRACTION "front addition\nwait 20000", "82 - 35 = ?"},
     {"timeLimitRunsOnTheHomeScreen", ADDITION "key Escape\nwait 30000\nclick Commande1",
      "47 + 35 | 47 + 30 = ?"},
     {"returningAtTheFirstAttemptDrawsANewOperation", ADDITION "key Escape\n" SUBTRACTION "click Commande1",
      "82 - 35 = ?"},
     {"returningDuringAStepDrawsItAgain", STEP_1 "key 5\nkey Escape\nclick Commande1",
      "47 + 35 | 47 + 30 = 5??"},
     {"unknownStepDrawsNothing", STEP_1 "set essai 4\nfront accueil\nfront addition",
      "47 + 35 | 47 + 30 = ?"},
     {"wrongAnswerAtUnknownStepIsRejected", ADDITION "set essai 32767\nset score 0\nkey 9\nkey Enter",
      "47 + 35 = 9 | FAUX"});

TEST(AdditionScore, risesOnRightFirstAttemptAndFallsOnEveryWrongAnswer) {
  const auto score = [](std::string_view scenario) { return int{ScenarioSession(scenario).shared().score}; };
  EXPECT_EQ(score(ADDITION "set score 5\nkey 8\nkey 2\nkey Enter"), 6);
  EXPECT_EQ(score(ADDITION "set score 5\nkey 9\nkey Enter\nkey x\nkey 9\nkey Enter\nkey x\nkey 9\nkey Enter"),
            2);
  EXPECT_EQ(score(STEP_2 "set score 5\nkey 8\nkey 2\nkey Enter"), 5)
      << "right answers to guided steps earn no point";
  EXPECT_EQ(score(WRONG), 0) << "never below 0";
}

// ---- Multiplications and divisions -------------------------------------------------------------------

// 12 x 4 at a score of 0.
#define MULTIPLICATION "rnd 0 0 0.12 0 0.5\nclick Commande2\n"
#define MULTIPLICATION_WRONG MULTIPLICATION "key 9\nkey Enter\n"
#define TENS_RIGHT MULTIPLICATION_WRONG "key x\nkey 4\nkey 0\nkey Enter\n"
#define UNITS_RIGHT TENS_RIGHT "key 8\nkey Enter\n"
// 48 : 2 at a score of 0.
#define DIVISION "rnd 0.1517 0\nclick Commande3\n"
#define DIVISION_WRONG DIVISION "key 9\nkey Enter\n"
#define LONG_DIVISION DIVISION_WRONG "key x\n"
#define CLOSING_TEXT "en cas d'erreur, la correction est affichée en rouge"

ROWS(MultiplicationAndDivision, visibleText,
     {"multiplicationTimeLimitShowsInstruction", MULTIPLICATION "wait 30000",
      "12 x 4 = | tu dois répondre en moins de 30 secondes"},
     {"timeLimitRunsForTheNextMultiplication",
      MULTIPLICATION "key 4\nkey 8\nkey Enter\nrnd 0 0 0.12 0 0.5\nkey Enter\nwait 30000",
      "12 x 4 = | tu dois répondre en moins de 30 secondes"},
     {"rightKeyDoesNothingAfterWrongSum", UNITS_RIGHT "key 9\nkey Enter\nkey Right",
      "10 x 4 = 40 | + 2 x 4 = 8 | 12 x 4 = 9 | FAUX"},
     {"digitAfterTheLastStepStartsTheNextMultiplication",
      UNITS_RIGHT "key 9\nkey Enter\nkey x\nrnd 0 0 0.12 0 0.5\nkey 7", "12 x 4 = ?"},
     {"unknownMultiplicationStepDrawsNothing", MULTIPLICATION_WRONG "set essai 5\nkey x",
      "12 x 4 = 9 | FAUX"},
     {"noAnswerIsRightAtUnknownStep", MULTIPLICATION "set essai 4\nkey 0\nkey Enter", "12 x 4 = 0 | FAUX"},

     {"leadingZeroOfQuotientIsIgnored", DIVISION "key 0", "48 : 2 = ?"},
     {"laterZeroOfQuotientIsAccepted", DIVISION "key 2\nkey 0", "48 : 2 = 20 ?"},
     {"divisionTimeLimitShowsInstruction", DIVISION "wait 30000",
      "48 : 2 = | tu dois répondre en moins de 30 secondes"},
     {"enterAndRightRevealNoDigit", LONG_DIVISION "key Enter\nkey Right", "4 8 | 2 | ?"},
     {"quotientWithZeroIsCorrected", // 505 : 5
      "click Commande3\nset score 3\nrnd 0.0915 0.8\nfront accueil\nfront division\n"
      "key 9\nkey =\nkey x\nkey 1\nkey 0\nkey 0\nkey 0\nkey 1\nkey 0",
      "5 0 5 | 5 | 0 0 | 1 0 1 | 0 5 | 0 | Score = 2 | " CLOSING_TEXT},
     {"escapeDuringCorrectionDrawsANewOperation", LONG_DIVISION "key 2\nrnd 0 0\nkey Escape", "22 : 2 = ?"},
     {"activationRevealsTheNextDigit", LONG_DIVISION "key 2\nfront accueil\nset essai 1\nfront division",
      "4 8 | 2 | 0 8 | 2 ?"},
     {"correctionSkipsLayoutAfterOpeningByKey",
      "set essai 3\nrnd 0.1517 0\nkey Right\nkey 9\nkey Enter\nkey x", "48 : 2 = 9 | FAUX | ? | 2"},
     {"indexBeyondTheDigitsEndsTheCorrection", LONG_DIVISION "set essai 7\nkey 2\nkey 0",
      "4 8 | 2 | ? | Score = 0 | " CLOSING_TEXT},
     {"digitsAreIgnoredAfterTheCorrection", LONG_DIVISION "key 2\nkey 0\nkey 4\nkey 0\nkey 5",
      "4 8 | 2 | 0 8 | 2 4 | 0 | Score = 0 | " CLOSING_TEXT},
     {"nextCorrectionBeginsWithTheQuotient",
      LONG_DIVISION "key 2\nkey 0\nkey 4\nkey 0\nrnd 0 0\nkey Enter\nkey 9\nkey Enter\nkey x\nkey 1",
      "2 2 | 2 | ? | 1"},
     {"stepZeroDrawsTheLayout", LONG_DIVISION "key 2\nset essai 0\nkey 0", "4 8 | 2 | ?"});

/// Returning draws the step again, after a digit was typed in blue.
TEST(Addition, firstGuidedStepIsRed) {
  EXPECT_EQ(lastEffects(STEP_1 "key 5\nkey Escape\nclick Commande1", "addition text 60 140"),
            "addition text 60 140 \"Times new roman\" 28 #ff0000 \"4\"");
}

TEST(Addition, variablesFollowTheJudgement) {
  EXPECT_EQ(ScenarioSession(WRONG).shared().enAttente, 1);
  EXPECT_EQ(ScenarioSession(ADDITION "set score 5\nkey 8\nkey 2\nwait 30000").shared().consigne, "");
}

TEST(Addition, drawsNothingWhenTheLevelIsPassedAgain) {
  const std::string passed = ADDITION "key 8\nkey 2\nkey Enter\nset score 10\n";
  EXPECT_EQ(lastEffects(passed + "key Enter\nkey Enter\n" + passed + "key Enter", "a"), "activate FIN");
}

/// A multiplication changes the line, which is shared.
TEST(Addition, resultOfTheTensIsPrintedOnTheirLineAfterAMultiplication) {
  EXPECT_EQ(lastEffects(MULTIPLICATION "front accueil\n" STEP_1
                                       "key 9\nkey Enter\nfront multiplication\nfront addition",
                        "addition text 186 140"),
            "addition text 186 140 \"Times new roman\" 28 #ff0000 \"7\"");
}

/// Neither "Bravo" nor "FAUX" was drawn before: the box sets its own line width and fill.
TEST(Addition, scoreBoxAfterALateAnswerHasItsOwnStyle) {
  ScenarioSession session(ADDITION "wait 30000\nkey x\nkey 7\nkey 7\nkey Enter\nkey 8\nkey 2\nkey Enter");
  EXPECT_EQ(session.takeEffects({"addition box 263"}),
            "addition box 263.875 280 376.125 310 3 #808080 #800000");
}

TEST(Division, nextOperationHidesTheImages) {
  EXPECT_EQ(lastEffects(DIVISION "key 2\nkey 4\nkey Enter\nkey Enter", "division hide"),
            "division hide flèche, division hide arret");
}

TEST(Division, titleIsCorrectionDuringACorrection) {
  ScenarioSession session(LONG_DIVISION "key 2\nkey Escape");
  EXPECT_EQ(session.takeEffects({"division caption"}),
            "division caption titre \" correction \", division caption titre \"Chiffrolo\"");
}

TEST(Division, escapeKeepsTheScoreOnlyDuringACorrection) {
  EXPECT_EQ(ScenarioSession(LONG_DIVISION "set score 4\nkey Escape").shared().score, 4);
  EXPECT_EQ(ScenarioSession(DIVISION "set score 4\nkey Escape").shared().score, 0);
}

TEST(Multiplication, everyWrongStepCostsOnePoint) {
  ScenarioSession session(
      MULTIPLICATION
      "set score 9\nkey 9\nkey =\nkey x\nkey 9\nkey =\nkey x\nkey 9\nkey =\nkey x\nkey 9\nkey =");
  EXPECT_EQ(session.shared().score, 5);
  session.play("key x");
  EXPECT_EQ(session.shared().essai, 0);
}

} // namespace

} // namespace chiffrolo::test
