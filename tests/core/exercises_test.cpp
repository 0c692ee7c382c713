// SPDX-License-Identifier: MIT
#include "tests/core/rows.h"

namespace chiffrolo::test {

namespace {

#define SUBTRACTION_NUMBERS "rnd 0.5 0.7 0.4 0.3 0.5\n" // 82 - 35
#define RIGHT "key 8\nkey 2\nkey Enter"
#define WRONG ADDITION "key 9\nkey Enter\n"
#define STEP_1 WRONG "key Right\n"
#define ALL_STEPS_WRONG STEP_1 "key 8\nkey Enter\nkey x\nkey 9\nkey Enter\n"
#define TIME_LIMIT_TEXT " | tu dois répondre en moins de 30 secondes"
#define FIRST_POINT " | Bravo | Score = 1 | Tu dois réussir 10 opérations sans te tromper"

ROWS(Addition, visibleText,
     {"fifthDigitIsIgnored", ADDITION "key 1\nkey 2\nkey 3\nkey 4\nkey 5", "47 + 35 = 1234 ?"},
     {"backspaceRemovesTheFourthDigit", ADDITION "key 1\nkey 2\nkey 3\nkey 4\nkey Backspace",
      "47 + 35 = 123 ?"},
     {"nothingIsSubmittedOrRemovedBeforeADigit", ADDITION "key Backspace\nkey =\nclick Minuterie",
      "47 + 35 = ?"},
     {"otherCharactersAreIgnored", ADDITION "key 8\nkey a\nkey +\nkey Space\nkey é\nkey '", "47 + 35 = 8 ?"},
     // From the second point on, no instruction follows the score.
     {"leadingZeroIsAccepted", ADDITION "set score 1\nkey 0\n" RIGHT, "47 + 35 = 082 | Bravo | Score = 2"},
     {"digitStartsTheNextStepAndIsNotTyped", WRONG "key 7", "47 + 35 | 47 + 30 = ?"},
     {"leftKeyDoesNotStartTheNextStep", WRONG "key Left", "47 + 35 = 9 | FAUX"},
     {"rightKeyAndArrowImageDoNothingAfterTheLastStep", ALL_STEPS_WRONG "key Right\nclick flèche",
      "47 + 35 | 47 + 30 = 77 | 77 + 5 = 9 | FAUX"},
     {"digitAfterTheLastStepStartsTheNextOperation", ALL_STEPS_WRONG "key x\n" SUBTRACTION_NUMBERS "key 7",
      "82 - 35 = ?"},
     {"everyWrongAnswerCostsAPoint",
      ADDITION "set score 5\nkey 9\nkey Enter\nkey x\nkey 9\nkey Enter\nkey x\nkey 9\nkey Enter\nkey x",
      "47 + 35 | 47 + 30 = 77 | 77 + 5 = 82 | Score = 2"},
     {"digitsAreIgnoredAfterTheRightAnswer", ADDITION "set score 1\n" RIGHT "\nkey 5",
      "47 + 35 = 82 | Bravo | Score = 2"},
     {"timeLimitWithoutAnswerShowsInstruction", ADDITION "wait 30000", "47 + 35 =" TIME_LIMIT_TEXT},
     {"timeLimitIsNotReachedAfter29999Milliseconds", ADDITION "wait 29999", "47 + 35 = ?"},
     {"timeLimitRejectsWrongAnswer", ADDITION "key 9\nwait 30000", "47 + 35 = 9 | FAUX" TIME_LIMIT_TEXT},
     {"timeLimitRunsForTheNextOperation", ADDITION RIGHT "\n" SUBTRACTION_NUMBERS "key Enter\nwait 30000",
      "82 - 35 =" TIME_LIMIT_TEXT},
     {"timeLimitAcceptsRightAnswer", ADDITION "set score 1\nkey 8\nkey 2\nwait 30000",
      "47 + 35 = 82 | Bravo | Score = 2"},
     {"returningRestartsTheTimeLimit",
      ADDITION "wait 20000\nfront accueil\n" SUBTRACTION_NUMBERS "front addition\nwait 20000", "82 - 35 = ?"},
     // The limit judges the empty answer as wrong, so that the correction has begun.
     {"timeLimitRunsOnWhileAnotherScreenIsClosed",
      ADDITION "key Escape\nkey Escape\nclose\nwait 30000\nclick Commande1", "47 + 35 | 47 + 30 = ?"},
     {"leavingResetsTheScore", ADDITION "set score 4\nkey Escape\n" ADDITION RIGHT,
      "47 + 35 = 82" FIRST_POINT},
     {"stopImageResetsTheScore", ADDITION "set score 4\n" RIGHT "\nclick arret\n" ADDITION RIGHT,
      "47 + 35 = 82" FIRST_POINT},
     {"leavingACorrectionKeepsTheScoreAndTheStep",
      ADDITION "set score 4\nkey 9\nkey Enter\nkey Escape\nclick Commande1\nkey 7\nkey 7\nkey Enter\n" RIGHT,
      "47 + 35 | 47 + 30 = 77 | 77 + 5 = 82 | Score = 3"},
     {"challengeResetsTheScore",
      ADDITION
      "set score 4\nkey 9\nkey Enter\nkey Escape\nclick Commande4\nkey Escape\nkey Enter\n" ADDITION RIGHT,
      "47 + 35 = 82" FIRST_POINT},
     {"closingACorrectionResetsTheStep", WRONG "close\n" ADDITION RIGHT, "47 + 35 = 82" FIRST_POINT},
     // The home screen counts its turns in `essai`, which is also the step: 1 expects the sum of the tens.
     {"openingByKeyMakesTheFirstRightAnswerWrong", "key a\nrnd 0.1 0.7 0.4 0.3 0.5\nkey a\n" RIGHT,
      "47 + 35 = 82 | FAUX"},
     // Only what is above the step is erased; "5?" stays, and a question mark is drawn again.
     {"returningDuringAStepDrawsItAgain", STEP_1 "key 5\nkey Escape\nclick Commande1",
      "47 + 35 | 47 + 30 = 5??"},
     {"unknownStepDrawsNothing", STEP_1 "set essai 4\nfront accueil\nfront addition",
      "47 + 35 | 47 + 30 = ?"});

// ---- Multiplications and divisions -------------------------------------------------------------------

#define MULTIPLICATION_WRONG MULTIPLICATION "key 9\nkey Enter\n"
#define TENS_RIGHT MULTIPLICATION_WRONG "key x\nkey 4\nkey 0\nkey Enter\n"
#define UNITS_RIGHT TENS_RIGHT "key 8\nkey Enter\n"
#define WRONG_STEP "key 9\nkey =\nkey x\n"
#define CLOSING_TEXT "en cas d'erreur, la correction est affichée en rouge"

ROWS(MultiplicationAndDivision, visibleText,
     {"multiplicationsStartFromZero", "set score 4\n" MULTIPLICATION "key 4\nkey 8\nkey Enter",
      "12 x 4 = 48" FIRST_POINT},
     {"everyWrongProductCostsAPoint",
      MULTIPLICATION "set score 9\n" WRONG_STEP WRONG_STEP WRONG_STEP WRONG_STEP,
      "10 x 4 = 40 | + 2 x 4 = 8 | 12 x 4 = 48 | Score = 5"},
     {"timeLimitRunsForTheNextMultiplication",
      MULTIPLICATION "key 4\nkey 8\nkey Enter\nrnd 0 0 0.12 0 0.5\nkey Enter\nwait 30000",
      "12 x 4 =" TIME_LIMIT_TEXT},
     {"rightKeyDoesNothingAfterWrongSum", UNITS_RIGHT "key 9\nkey Enter\nkey Right",
      "10 x 4 = 40 | + 2 x 4 = 8 | 12 x 4 = 9 | FAUX"},
     {"digitAfterTheLastStepStartsTheNextMultiplication",
      UNITS_RIGHT "key 9\nkey Enter\nkey x\nrnd 0 0 0.12 0 0.5\nkey 7", "12 x 4 = ?"},
     {"unknownMultiplicationStepDrawsNothing", MULTIPLICATION_WRONG "set essai 5\nkey x",
      "12 x 4 = 9 | FAUX"},
     {"noAnswerIsRightAtUnknownStep", MULTIPLICATION "set essai 4\nkey 0\nkey Enter", "12 x 4 = 0 | FAUX"},

     {"divisionsStartFromZero", "set score 4\n" DIVISION "key 2\nkey 4\nkey Enter",
      "48 : 2 = 24" FIRST_POINT},
     {"leavingDivisionsResetsTheScore",
      DIVISION "set score 4\nkey Escape\n" DIVISION "key 2\nkey 4\nkey Enter", "48 : 2 = 24" FIRST_POINT},
     {"leadingZeroOfQuotientIsIgnored", DIVISION "key 0", "48 : 2 = ?"},
     {"laterZeroOfQuotientIsAccepted", DIVISION "key 2\nkey 0", "48 : 2 = 20 ?"},
     {"timeLimitRunsForTheNextDivision", DIVISION "key 2\nkey 4\nkey Enter\nrnd 0 0\nkey Enter\nwait 30000",
      "22 : 2 =" TIME_LIMIT_TEXT},
     {"divisionTimeLimitShowsInstruction", DIVISION "wait 30000", "48 : 2 =" TIME_LIMIT_TEXT},
     {"enterAndRightRevealNoDigit", LONG_DIVISION "key Enter\nkey Right", "4 8 | 2 | ?"},
     {"quotientWithZeroIsCorrected", // 505 : 5
      "click Commande3\nset score 3\nrnd 0.0915 0.8\nfront accueil\nfront division\n"
      "key 9\nkey =\nkey x\nkey 1\nkey 0\nkey 0\nkey 0\nkey 1\nkey 0",
      "5 0 5 | 5 | 0 0 | 1 0 1 | 0 5 | 0 | Score = 2 | " CLOSING_TEXT},
     {"escapeDuringCorrectionDrawsANewOperationAndKeepsTheScore",
      LONG_DIVISION "key 2\nset score 4\nrnd 0 0\nkey Escape\nkey 1\nkey 1\nkey Enter",
      "22 : 2 = 11 | Bravo | Score = 5"},
     {"activationRevealsTheNextDigit", LONG_DIVISION "key 2\nfront accueil\nset essai 1\nfront division",
      "4 8 | 2 | 0 8 | 2 ?"},
     // Opening by a key has counted `essai` up, so that the correction does not begin with the layout.
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

// ---- What is drawn and what only the transcript shows ------------------------------------------------

/// Returning draws the step again, after a digit was typed in blue.
TEST(Addition, firstGuidedStepIsRed) {
  PlayedScenario returned(STEP_1 "key 5\nkey Escape\nclick Commande1");
  EXPECT_EQ(returned.effects({"addition text 60 140"}),
            "addition text 60 140 \"Times new roman\" 28 #ff0000 \"4\"");
}

TEST(Addition, drawsNothingWhenTheLevelIsPassedAgain) {
  const std::string passed = ADDITION RIGHT "\nset score 10\nkey Enter";
  EXPECT_EQ(PlayedScenario(passed + "\nkey Enter\n" + passed).effects({"activate ", "addition "}),
            "activate FIN");
}

/// A multiplication changes the line and the column, which are shared: its 40 begins at 172, the 8 under its
/// last digit at 186.
TEST(Addition, resultOfTheTensIsPrintedOnTheirLineAfterAMultiplication) {
  PlayedScenario returned(MULTIPLICATION "front accueil\n" STEP_1
                                         "key 9\nkey Enter\nfront multiplication\nfront addition");
  EXPECT_EQ(returned.effects({"addition text 186 140"}),
            "addition text 186 140 \"Times new roman\" 28 #ff0000 \"7\"");
}

/// Neither "Bravo" nor "FAUX" was drawn before: the box sets its own line width and fill. " Score = 1"
/// is 72.25 points wide, centred at 320; the box is 20 points wider on each side.
TEST(Addition, scoreBoxAfterALateAnswerHasItsOwnStyle) {
  PlayedScenario played(ADDITION "wait 30000\nkey x\nkey 7\nkey 7\nkey Enter\n" RIGHT);
  EXPECT_EQ(played.effects({"addition box 263"}), "addition box 263.875 280 376.125 310 3 #808080 #800000");
}

} // namespace

} // namespace chiffrolo::test
