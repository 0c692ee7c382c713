// SPDX-License-Identifier: MIT
#include "tests/core/rows.h"

namespace chiffrolo::test {

namespace {

#define NEXT "rnd 0.25 0.8 0.2 0.7 0.3\nkey Right\n" // 85 - 38
#define WRONG CHALLENGE "key 9\nkey =\n"

#define TABLE(additions, subtractions, multiplications, divisions, total)                                    \
  "Opérations | effectuées | réussies | % de réussite | additions | " additions                              \
  " | soustractions | " subtractions " | multiplications | " multiplications " | divisions | " divisions     \
  " | Total | " total

ROWS(Challenge, visibleText, {"enterShowsCorrection", WRONG "key Enter", "20 + 47 = 67 | Score = 0"},
     {"timeLimitRejectsAWrongAnswer", CHALLENGE "key 9\nwait 32000",
      "0 0 3 2 | 20 + 47 = 9 | FAUX | tu dois répondre en moins de 30 secondes"},
     {"timeLimitAcceptsARightAnswer", CHALLENGE "key 6\nkey 7\nwait 32000",
      "0 0 3 2 | 20 + 47 = 67 | Bravo | Score = 1 | Tu dois réussir 20 opérations le plus rapidement "
      "possible"},
     {"unknownStepDrawsNothing", CHALLENGE "set essai 2\nkey x", "20 + 47 = ?"},
     // After the first right answer, the screen would also show an instruction.
     {"digitsAreIgnoredAfterTheRightAnswer", CHALLENGE "set nbOperations 5\nkey 6\nkey 7\nkey =\nkey 5",
      "20 + 47 = 67 | Bravo | Score = 6"},
     {"timersStopDuringACorrection",
      CHALLENGE "wait 2900\nkey 9\nkey =\nwait 60000\nkey x\nwait 60000\n" NEXT "wait 1999",
      "0 0 0 3 | 85 - 38 = ?"},
     {"stopwatchStopsAtItsMaximum", CHALLENGE "set chrono 32767\nwait 1000", "2 7 6 7 | 20 + 47 = ?"},
     {"stopwatchOfTheSecondChallengeStartsFromZero",
      CHALLENGE "wait 5000\nkey Escape\nkey Enter\n" CHALLENGE "wait 1000", "0 0 0 1 | 20 + 47 = ?"},
     {"secondChallengeStartsFromZero",
      CHALLENGE
      "set chrono 50\nset effectuees 6 7 8 9\nset reussies 5 5 5 4\nset nbOperations 19\nkey Escape\n"
      "key Enter\n" CHALLENGE "key 6\nkey 7\nkey Enter\nkey Escape",
      TABLE("1 | 1 | 100 %", "0 | 0", "0 | 0", "0 | 0", "1 | 1 | 100 %")},
     {"successRatesAreTruncated", CHALLENGE "set effectuees 6 7 0 0\nset reussies 5 5 0 0\nkey Escape",
      TABLE("6 | 5 | 83 %", "7 | 5 | 71 %", "0 | 0", "0 | 0", "13 | 10 | 76 %")},
     {"everyKindIsCounted",
      "rnd 0.25 0 0 0 0 0.5 0 0 0 0 0.75 0 0 0 0.75 0 0 0\nclick Commande4\n" // 42 - 21, 2 x 21, twice 22 : 2
      "key 2\nkey 1\nkey =\nkey Right\nkey 4\nkey 2\nkey =\nkey Right\n"
      "key 1\nkey 1\nkey =\nkey Right\nkey Escape",
      TABLE("0 | 0", "1 | 1 | 100 %", "1 | 1 | 100 %", "2 | 1 | 50 %", "4 | 3 | 75 %")});

#define TO_RESULTS "load FIN2, unload record, activate FIN2"
ROWS(ChallengeNavigation, screenChanges, {"escapeShowsResults", CHALLENGE "key Escape", TO_RESULTS},
     {"escapeDuringCorrectionShowsResults", WRONG "key Escape", TO_RESULTS},
     {"stopImageShowsResults", WRONG "key x\nclick arret", TO_RESULTS},
     {"enterAfterTwentiethRightAnswerShowsResults",
      CHALLENGE "set nbOperations 19\nkey 6\nkey 7\nkey =\nkey Enter", TO_RESULTS},
     {"rightKeyLeavesResults", CHALLENGE "key Escape\nkey Right", "activate accueil, unload FIN2"},
     {"enterLeavesResults", CHALLENGE "key Escape\nkey Enter", "activate accueil, unload FIN2"},
     {"escapeLeavesResults", CHALLENGE "key Escape\nkey Escape", "activate accueil, unload FIN2"},
     {"arrowImageLeavesResults", CHALLENGE "key Escape\nclick flèche", "activate accueil, unload FIN2"},
     {"digitDoesNotLeaveResults", CHALLENGE "key Escape\nkey 7", ""},
     {"closeBoxUnloadsChallenge", CHALLENGE "close", "activate accueil, unload record"},
     {"returningToCompleteChallengeShowsResults",
      CHALLENGE "front accueil\nset nbOperations 20\nclick Commande4", "activate record, " TO_RESULTS});

/// The stopwatch changes the font.
TEST(ChallengeFont, questionMarkHasTheFontOfTheOperationAfterASecond) {
  EXPECT_EQ(PlayedScenario(CHALLENGE "key 6\nwait 1000\nkey Backspace").effects({"record text"}),
            "record text 292 120 \"Times new roman\" 28 #000080 \" ?\"");
}

} // namespace

} // namespace chiffrolo::test
