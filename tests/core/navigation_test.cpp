// SPDX-License-Identifier: MIT
#include "tests/core/learner.h"
#include "tests/core/rows.h"

#include "screen/layouts.h"

namespace chiffrolo::test {

namespace {

// 47+35, answered rightly.
#define RIGHT_ANSWER "rnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1\nkey 8\nkey 2\nkey Enter\n"
#define LEVEL_PASSED RIGHT_ANSWER "set score 10\nkey Enter\n"

class Navigation : public testing::TestWithParam<Row> {};

/// The last line of a scenario is what is looked at; the lines before lead there.
TEST_P(Navigation, moves) {
  const std::string scenario = GetParam().scenario;
  const auto last = scenario.rfind('\n') == std::string::npos ? 0 : scenario.rfind('\n') + 1;
  Learner learner(scenario.substr(0, last));
  if (last > 0) learner.moves();
  learner.play(scenario.substr(last));
  EXPECT_EQ(learner.moves(), GetParam().expected);
}

ROWS(Navigation, {"goodbyeByEscape", "\nkey Escape", "load Aurevoir, activate Aurevoir"},
     {"firstKeyOpensNothing", "\nkey Right", ""}, {"leftOpensNothing", "key Right\nkey Left", ""},
     {"apostropheIsNotRight", "set essai 7\nkey '", ""},
     {"secondKeyOpensAdditions", "key a\nkey Enter", "load addition, activate addition"},
     {"cursorAt2", "set essai 2\nkey Right", "load multiplication, activate multiplication"},
     {"cursorAt3", "set essai 3\nkey Space", "load division, activate division"},
     {"cursorAt4", "set essai 4\nkey 1", "load record, activate record"},
     {"cursorAt5", "set essai 5\nkey Right", "load Aurevoir, activate Aurevoir"},
     {"cursorBeyond", "set essai 9\nkey Right", ""}, {"hiddenStopImage", "click Commande1\nclick arret", ""},
     {"labelIsNoButton", "click Commande1\nclick titre", ""},
     {"backToLoadedAdditions", "click Commande1\nkey Escape\nclick Commande1", "activate addition"},
     {"homeFromFinByRight", LEVEL_PASSED "key Right", "activate accueil"},
     {"homeFromFinByEnter", LEVEL_PASSED "key Enter", "activate accueil"},
     {"homeFromFinByEscape", LEVEL_PASSED "key Escape", "activate accueil"},
     {"homeFromFinByArrow", LEVEL_PASSED "click flèche", "activate accueil"},
     {"secondLevelKeepsAdditions",
      LEVEL_PASSED "key Enter\nclick Commande1\nset score 10\nkey 1\nfront accueil\nfront addition",
      "activate addition, activate FIN"},
     {"goodbyeHasNoKeys", "key Escape\nkey Escape", ""},
     {"goodbyeEndsByArrow", "click Commande1\nkey Escape\nkey Escape\nclick flèche", "end"},
     {"closeLeadsHome", "click Commande1\nclose", "activate accueil, unload addition"},
     {"closeHomeEnds", "click Commande1\nkey Escape\nclose", "end"},
     {"frontOfUnloaded", "\nfront addition", ""}, {"frontOfActive", "\nfront accueil", ""},
     {"frontOfLoaded", "click Commande1\nfront accueil", "activate accueil"});

TEST(HomeCursor, goesRoundAndSkipsTheStart) {
  Learner learner;
  std::string cursor;
  for (int key = 0; key < 7; ++key) {
    learner.play("key Right\nfront accueil");
    cursor += std::to_string(learner.shared().essai);
  }
  // Whatever loads sets `essai` to 0 on its way: additions at the second key, multiplications at the fourth,
  // divisions at the seventh. Screens that were loaded before leave it as it is.
  EXPECT_EQ(cursor, "1121231");
}

TEST(HomeCursor, clicksAndEscapeLeaveIt) {
  Learner learner("set essai 3\nclick Commande5\nfront accueil\nkey Escape");
  EXPECT_EQ(learner.shared().essai, 3);
}

TEST(Score, isResetByLeavingAndByFin) {
  EXPECT_EQ(Learner("click Commande1\nset score 4\nkey Escape").shared().score, 0);
  EXPECT_EQ(Learner(RIGHT_ANSWER "set score 4\nclick arret").shared().score, 0);
  EXPECT_EQ(Learner(LEVEL_PASSED).shared().score, 0);
  EXPECT_EQ(Learner(LEVEL_PASSED "set score 4\nkey 7").shared().score, 0) << "any character typed on FIN";
  EXPECT_EQ(Learner(LEVEL_PASSED "set score 4\nkey Left").shared().score, 4) << "no character, no way home";
  EXPECT_EQ(Learner("rnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1\nset score 4\nkey 9\nkey Enter\nkey Escape")
                .shared()
                .score,
            3)
      << "Escape while a correction waits";
}

// ---- Layouts -----------------------------------------------------------------------------------------

TEST(Layouts, lieWithinTheLeastInnerArea) {
  for (std::size_t screen = 0; screen < screenCount; ++screen)
    for (const auto& row : layoutOf(static_cast<ScreenName>(screen)).controls) {
      EXPECT_LE(row.place.left + row.place.width, minimumContentArea.width) << row.name;
      EXPECT_LE(row.place.top + row.place.height, minimumContentArea.height) << row.name;
    }
}

} // namespace

} // namespace chiffrolo::test
