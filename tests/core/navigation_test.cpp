// SPDX-License-Identifier: MIT
#include "tests/core/rows.h"

#include "screen/layouts.h"

namespace chiffrolo::test {

namespace {

#define ADDITIONS_PASSED "click Commande1\nset score 10\nfront accueil\nfront addition\n"
#define MULTIPLICATIONS_PASSED "click Commande2\nset score 10\nfront accueil\nfront multiplication\n"
// FIN stays loaded: the second time, only a key or a click on it can reset the score.
#define PASSED_TWICE MULTIPLICATIONS_PASSED "key Enter\n" MULTIPLICATIONS_PASSED
#define HOME_KEY "key Right\nfront accueil\n"

ROWS(Navigation, screenChanges, {"escapeShowsGoodbye", "key Escape", "load Aurevoir, activate Aurevoir"},
     {"firstKeyOpensNothing", "key Right", ""}, {"leftKeyOpensNothing", "key Right\nkey Left", ""},
     {"apostropheIsNotTheRightKey", "key '", ""},
     {"secondKeyOpensAddition", "key a\nkey Enter", "load addition, activate addition"},
     // Loading a screen resets the turn: keys 2, 3 and 5 open additions, 4 and 6 multiplications.
     {"seventhKeyOpensDivision", HOME_KEY HOME_KEY HOME_KEY HOME_KEY HOME_KEY HOME_KEY "key Right",
      "load division, activate division"},
     {"keyAtCursor4OpensChallenge", "set essai 4\nkey 1", "load record, activate record"},
     {"keyAtCursor5OpensGoodbye", "set essai 5\nkey Right", "load Aurevoir, activate Aurevoir"},
     {"additionFollowsGoodbye", "set essai 5\n" HOME_KEY "key Right", "load addition, activate addition"},
     {"keyAtUnknownCursorOpensNothing", "set essai 9\nkey Right", ""},
     {"clicksAndEscapeDoNotMoveTheCursor",
      "set essai 3\nclick Commande5\nfront accueil\nkey Escape\nfront accueil\nkey Right",
      "load division, activate division"},
     {"hiddenStopImageCannotBeClicked", "click Commande1\nclick arret", ""},
     {"labelCannotBeClicked", "click Commande1\nclick titre", ""},
     {"buttonActivatesLoadedAddition", "click Commande1\nkey Escape\nclick Commande1", "activate addition"},
     {"tenthPointShowsFinAndUnloadsAddition", ADDITION "set score 9\nkey 8\nkey 2\nkey Enter\nkey Enter",
      "load FIN, unload addition, activate FIN"},
     {"secondPassedLevelKeepsAdditionLoaded",
      ADDITIONS_PASSED "key Enter\nclick Commande1\nset score 10\nfront accueil\nfront addition",
      "activate addition, activate FIN"},
     // At a score of 10, the multiplications would show "Félicitations" again.
     {"loadingFinResetsTheScore", MULTIPLICATIONS_PASSED "close\nclick Commande2", "activate multiplication"},
     {"rightKeyLeavesFin", PASSED_TWICE "key Right\nclick Commande2", "activate multiplication"},
     {"enterLeavesFin", PASSED_TWICE "key Enter\nclick Commande2", "activate multiplication"},
     {"escapeLeavesFin", PASSED_TWICE "key Escape\nclick Commande2", "activate multiplication"},
     {"anyCharacterOnFinResetsTheScore", PASSED_TWICE "key 7\nclose\nclick Commande2",
      "activate multiplication"},
     {"leftKeyOnFinKeepsTheScore", PASSED_TWICE "key Left\nclose\nclick Commande2",
      "activate multiplication, load FIN, activate FIN"},
     {"arrowImageLeavesFin", PASSED_TWICE "click flèche\nclick Commande2", "activate multiplication"},
     {"goodbyeIgnoresKeys", "key Escape\nkey Escape", ""},
     {"arrowImageOnGoodbyeEndsTheProgram", "click Commande1\nkey Escape\nkey Escape\nclick flèche", "end"},
     {"closingAScreenShowsHome", "click Commande1\nclose", "activate accueil, unload addition"},
     {"closingGoodbyeShowsHome", "key Escape\nclose", "activate accueil, unload Aurevoir"},
     {"closingHomeEndsTheProgram", "click Commande1\nkey Escape\nclose", "end"},
     {"unloadedScreenCannotBeBroughtToFront", "front addition", ""},
     {"bringingTheActiveScreenToFrontDoesNothing", "front accueil", ""},
     {"bringingALoadedScreenToFrontActivatesIt", "click Commande1\nfront accueil", "activate accueil"});

TEST(Layouts, fitIntoTheMinimumContentArea) {
  for (std::size_t screen = 0; screen < screenCount; ++screen)
    for (const auto& control : layoutOf(static_cast<ScreenName>(screen)).controls) {
      EXPECT_LE(control.place.left + control.place.width, minimumContentArea.width) << control.name;
      EXPECT_LE(control.place.top + control.place.height, minimumContentArea.height) << control.name;
    }
}

} // namespace

} // namespace chiffrolo::test
