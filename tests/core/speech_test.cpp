// SPDX-License-Identifier: MIT
#include "tests/core/rows.h"

#include "screen/layouts.h"

namespace chiffrolo::test {

namespace {

// ---- Announcements after the last command of a scenario ----------------------------------------------

ROWS(Announcement, announcement,
     {"newScreenIsAnnouncedFromTheTop", "rnd 0 0 0.12 0 0.5\nclick Commande2",
      "Multiplications. Chiffrolo. 12 fois 4 égale ?"},
     {"typedDigitIsAnnounced", MULTIPLICATION "key 4", "4"},
     {"backspaceAnnouncesTheRemainingDigit", MULTIPLICATION "key 4\nkey 8\nkey Backspace", "4"},
     {"backspaceOfTheOnlyDigitAnnouncesErasure", MULTIPLICATION "key 4\nkey Backspace", "effacé"},
     {"rightAnswerAnnouncesResultAndScore", MULTIPLICATION "key 4\nkey 8\nkey Enter",
      "12 fois 4 égale 48. Bravo. Score égale 1. Tu dois réussir 10 opérations sans te tromper"},
     {"timeLimitAnnouncesInstruction", MULTIPLICATION "wait 30000",
      "12 fois 4 égale. tu dois répondre en moins de 30 secondes"},
     {"correctedStepAndNextStepAreAnnounced",
      MULTIPLICATION "key 9\nkey Enter\nkey x\nkey 3\nkey Enter\nkey x",
      "10 fois 4 égale 40. 2 fois 4 égale ?"},
     {"correctionOfADivisionIsAnnounced", DIVISION "key 9\nkey Enter\nkey x", "correction. 4 8. 2"},
     {"nextDivisionAnnouncesTheTitle", LONG_DIVISION "key 2\nrnd 0 0\nkey Escape",
      "Chiffrolo. 22 divisé par 2 égale ?"},
     {"wrongGuessAnnouncesTheRightDigit", LONG_DIVISION "key 3", "faux : 2"},
     {"remainderAndDigitBroughtDownAreAnnounced", LONG_DIVISION "key 2\nkey 7", "faux : 0, 8"},
     {"endOfCorrectionAnnouncesScore", LONG_DIVISION "key 2\nkey 0\nkey 4\nkey 0",
      "juste : 0. Score égale 0. en cas d'erreur, la correction est affichée en rouge"},
     {"stopwatchIsNotAnnounced", CHALLENGE "wait 1000", ""},
     {"resultsTableIsAnnounced", CHALLENGE "key Escape",
      "Résultats. Opérations. effectuées. réussies. pour cent de réussite. additions. 1. 0. 0 pour cent. "
      "soustractions. 0. 0. multiplications. 0. 0. divisions. 0. 0. Total. 1. 0. 0 pour cent"},
     {"homeScreenIsAnnounced", DIVISION "key Escape", "Accueil. Chiffrolo. Entrainement"},
     {"endOfProgramIsNotAnnounced", "click Commande5\nclick flèche", ""});

TEST(FirstAnnouncement, doesNotContainTheFirstScreen) { EXPECT_EQ(PlayedScenario("").announcement(), ""); }

// ---- Spoken texts of the active screen ---------------------------------------------------------------

ROWS(SpokenTexts, spokenText,
     {"correctionOfAProductHasOneTextPerStep",
      MULTIPLICATION "key 9\nkey Enter\nkey x\nkey 4\nkey 0\nkey Enter\nkey 8\nkey Enter",
      "10 fois 4 égale 40 | plus 2 fois 4 égale 8 | 12 fois 4 égale ?"},
     {"verdictsRemainDuringTheCorrection", LONG_DIVISION "key 2\nkey 0\nkey 5",
      "4 8 | 2 | juste : 0, 8 | juste : 2, faux : 4 | ?"},
     {"oneSecondIsSingular", CHALLENGE "wait 1000", "1 seconde | 20 plus 47 égale ?"},
     {"stopwatchIsSpokenInSeconds", CHALLENGE "set chrono 119\nwait 1000",
      "120 secondes | 20 plus 47 égale ?"},
     {"fifthDigitOfTheStopwatchIsNotSpoken", CHALLENGE "set chrono 9999\nwait 1000",
      "0 seconde | 20 plus 47 égale ?"},
     {"minusSignIsSpokenAsAWord", "rnd 0.5 0.7 0.4 0.3 0.5\nclick Commande1", "82 moins 35 égale ?"});

/// With some fonts, there is no gap between them.
TEST(Speech, equalsSignBesideANumberIsAWord) {
  EXPECT_EQ(spoken({{{"47="}, {"=82"}}, {}}), "47 égale égale 82");
}

TEST(AccessibleNames, existForEveryScreenAndPicture) {
  for (std::size_t screen = 0; screen < screenCount; ++screen) {
    const ScreenLayout& layout = layoutOf(static_cast<ScreenName>(screen));
    EXPECT_NE(layout.accessibleName, "") << screen;
    for (const auto& control : layout.controls)
      EXPECT_EQ(control.picture != Picture::none, !control.accessibleName.empty()) << control.name;
  }
}

} // namespace

} // namespace chiffrolo::test
