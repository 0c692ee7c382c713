// SPDX-License-Identifier: MIT
#include "tests/core/rows.h"

#include "screen/layouts.h"

namespace chiffrolo::test {

namespace {

// 47+35, right answer.
#define RIGHT_ANSWER "rnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1\nkey 8\nkey 2\nkey Enter\n"
#define LEVEL_PASSED RIGHT_ANSWER "set score 10\nkey Enter\n"

ROWS(Navigation, takeScreenChanges, {"escapeShowsGoodbye", "key Escape", "load Aurevoir, activate Aurevoir"},
     {"firstKeyOpensNothing", "key Right", ""}, {"leftKeyOpensNothing", "key Right\nkey Left", ""},
     {"apostropheIsNotTheRightKey", "key '", ""},
     {"secondKeyOpensAddition", "key a\nkey Enter", "load addition, activate addition"},
     {"keyAtCursor2OpensMultiplication", "set essai 2\nkey Right",
      "load multiplication, activate multiplication"},
     {"keyAtCursor3OpensDivision", "set essai 3\nkey Space", "load division, activate division"},
     {"keyAtCursor4OpensChallenge", "set essai 4\nkey 1", "load record, activate record"},
     {"keyAtCursor5OpensGoodbye", "set essai 5\nkey Right", "load Aurevoir, activate Aurevoir"},
     {"keyAtUnknownCursorOpensNothing", "set essai 9\nkey Right", ""},
     {"hiddenStopImageCannotBeClicked", "click Commande1\nclick arret", ""},
     {"labelCannotBeClicked", "click Commande1\nclick titre", ""},
     {"buttonActivatesLoadedAddition", "click Commande1\nkey Escape\nclick Commande1", "activate addition"},
     {"passedLevelUnloadsAddition", RIGHT_ANSWER "set score 10\nkey Enter",
      "load FIN, unload addition, activate FIN"},
     {"rightKeyLeavesFin", LEVEL_PASSED "key Right", "activate accueil"},
     {"enterLeavesFin", LEVEL_PASSED "key Enter", "activate accueil"},
     {"escapeLeavesFin", LEVEL_PASSED "key Escape", "activate accueil"},
     {"arrowImageLeavesFin", LEVEL_PASSED "click flèche", "activate accueil"},
     {"arrowImageLeavesResults", "click Commande4\nkey Escape\nclick flèche",
      "activate accueil, unload FIN2"},
     {"secondPassedLevelKeepsAdditionLoaded",
      LEVEL_PASSED "key Enter\nclick Commande1\nset score 10\nkey 1\nfront accueil\nfront addition",
      "activate addition, activate FIN"},
     {"goodbyeIgnoresKeys", "key Escape\nkey Escape", ""},
     {"arrowImageOnGoodbyeEndsTheProgram", "click Commande1\nkey Escape\nkey Escape\nclick flèche", "end"},
     {"closingAScreenShowsHome", "click Commande1\nclose", "activate accueil, unload addition"},
     {"closingGoodbyeShowsHome", "key Escape\nclose", "activate accueil, unload Aurevoir"},
     {"closingHomeEndsTheProgram", "click Commande1\nkey Escape\nclose", "end"},
     {"unloadedScreenCannotBeBroughtToFront", "front addition", ""},
     {"bringingTheActiveScreenToFrontDoesNothing", "front accueil", ""},
     {"bringingALoadedScreenToFrontActivatesIt", "click Commande1\nfront accueil", "activate accueil"});

TEST(HomeCursor, advancesByOneAndIsResetByLoadingAScreen) {
  ScenarioSession session;
  std::string cursor;
  for (int key = 0; key < 7; ++key) {
    session.play("key Right\nfront accueil");
    cursor += std::to_string(session.shared().essai);
  }
  // Loading a screen sets `essai` to 0 before the key adds 1: additions at the second key, multiplications at
  // the fourth, divisions at the seventh. A screen that is already loaded does not reset it.
  EXPECT_EQ(cursor, "1121231");
}

TEST(HomeCursor, isUnchangedByClicksAndEscape) {
  ScenarioSession session("set essai 3\nclick Commande5\nfront accueil\nkey Escape");
  EXPECT_EQ(session.shared().essai, 3);
}

// What the guide says about an exercise that is left during a correction: 47+35, the tens step is 47+30.
#define WRONG_ANSWER "rnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1\nkey 9\nkey Enter\n"
#define OPENED_AGAIN "\nrnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1\nkey 8\nkey 2\nkey Enter"

/// The right answer 82 brings a point if the exercise has begun anew.
TEST(LeavingACorrection, goesOnThereUnlessTheScreenWasClosed) {
  EXPECT_EQ(ScenarioSession(WRONG_ANSWER "key Escape" OPENED_AGAIN).shared().score, 0);
  EXPECT_EQ(ScenarioSession(WRONG_ANSWER "close" OPENED_AGAIN).shared().score, 1);
}

TEST(HomeCursor, makesAFirstRightAnswerWrong) {
  const std::string answer = "\nkey 8\nkey 2\nkey Enter";
  EXPECT_EQ(ScenarioSession("key a\nrnd 0.1 0.7 0.4 0.3 0.5\nkey a" + answer).shared().score, 0);
  EXPECT_EQ(ScenarioSession("key a\nrnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1" + answer).shared().score, 1);
}

TEST(Score, isResetByLeavingAnExerciseAndByFin) {
  EXPECT_EQ(ScenarioSession("click Commande1\nset score 4\nkey Escape").shared().score, 0);
  EXPECT_EQ(ScenarioSession(RIGHT_ANSWER "set score 4\nclick arret").shared().score, 0);
  for (const auto* const exercise : {"1", "2", "3"})
    EXPECT_EQ(ScenarioSession(std::string("set score 4\nclick Commande") + exercise).shared().score, 0);
  EXPECT_EQ(ScenarioSession(LEVEL_PASSED).shared().score, 0);
  EXPECT_EQ(ScenarioSession(LEVEL_PASSED "set score 4\nclick flèche").shared().score, 0);
  EXPECT_EQ(ScenarioSession(LEVEL_PASSED "set score 4\nkey 7").shared().score, 0)
      << "any character resets it on FIN";
  EXPECT_EQ(ScenarioSession(LEVEL_PASSED "set score 4\nkey Left").shared().score, 4)
      << "the Left key types no character and does not leave FIN";
  EXPECT_EQ(
      ScenarioSession("rnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1\nset score 4\nkey 9\nkey Enter\nkey Escape")
          .shared()
          .score,
      3)
      << "Escape during a correction does not reset it";
}

// ---- Layouts -----------------------------------------------------------------------------------------

TEST(Layouts, fitIntoTheMinimumContentArea) {
  for (std::size_t screen = 0; screen < screenCount; ++screen)
    for (const auto& control : layoutOf(static_cast<ScreenName>(screen)).controls) {
      EXPECT_LE(control.place.left + control.place.width, minimumContentArea.width) << control.name;
      EXPECT_LE(control.place.top + control.place.height, minimumContentArea.height) << control.name;
    }
}

} // namespace

} // namespace chiffrolo::test
