// SPDX-License-Identifier: MIT
#include "tests/core/learner.h"
#include "tests/core/rows.h"

#include "screen/layouts.h"

namespace chiffrolo::test {

namespace {

// 12 x 4 and 48 : 2 at a score of 0.
#define MULTIPLICATION "rnd 0 0 0.12 0 0.5\nclick Commande2\n"
#define DIVISION "rnd 0.1517 0\nclick Commande3\n"
#define LAYOUT DIVISION "key 9\nkey Enter\nkey x\n"

// ---- What is new after the last command of a scenario ------------------------------------------------

class News : public testing::TestWithParam<Row> {};

TEST_P(News, areHeard) {
  const std::string scenario = GetParam().scenario;
  const auto last = scenario.rfind('\n') + 1;
  Learner learner(scenario.substr(0, last));
  learner.hears();
  learner.play(scenario.substr(last));
  EXPECT_EQ(learner.hears(), GetParam().expected);
  EXPECT_EQ(learner.hears(), "") << "told once";
}

ROWS(News,
     {"aScreenIsReadFromTheTop", "rnd 0 0 0.12 0 0.5\nclick Commande2",
      "Multiplications. Chiffrolo. 12 fois 4 égale ?"},
     {"firstDigit", MULTIPLICATION "key 4", "4"},
     {"afterBackspace", MULTIPLICATION "key 4\nkey 8\nkey Backspace", "4"},
     {"nothingLeft", MULTIPLICATION "key 4\nkey Backspace", "effacé"},
     {"right", MULTIPLICATION "key 4\nkey 8\nkey Enter",
      "12 fois 4 égale 48. Bravo. Score égale 1. Tu dois réussir 10 opérations sans te tromper"},
     {"tooLate", MULTIPLICATION "wait 30000", "12 fois 4 égale. tu dois répondre en moins de 30 secondes"},
     {"correctionAndNextStep", MULTIPLICATION "key 9\nkey Enter\nkey x\nkey 3\nkey Enter\nkey x",
      "10 fois 4 égale 40. 2 fois 4 égale ?"},
     {"wrongGuess", LAYOUT "key 3", "faux : 2"},
     {"remainderAndTheDigitBroughtDown", LAYOUT "key 2\nkey 7", "faux : 0, 8"},
     {"endOfTheCorrection", LAYOUT "key 2\nkey 0\nkey 4\nkey 0",
      "juste : 0. Score égale 0. en cas d'erreur, la correction est affichée en rouge"},
     {"theStopwatchIsSilent", "click Commande4\nwait 1000", ""},
     {"results", "rnd 0.1 0.11 0.7 0.4\nclick Commande4\nkey Escape",
      "Résultats. Opérations. effectuées. réussies. pour cent de réussite. additions. 1. 0. 0 pour cent. "
      "soustractions. 0. 0. multiplications. 0. 0. divisions. 0. 0. Total. 1. 0. 0 pour cent"},
     {"home", DIVISION "key Escape", "Accueil. Chiffrolo. Entrainement"},
     {"theEnd", "click Commande5\nclick flèche", ""});

TEST(FirstNews, areNoneOfTheScreenThatTheProgramStartsWith) {
  Learner learner;
  learner.play("key Left");
  EXPECT_EQ(learner.hears(), "");
}

// ---- What can be read aloud at any time --------------------------------------------------------------

class Speech : public testing::TestWithParam<Row> {};

TEST_P(Speech, isWhatAChildWouldReadOut) {
  Learner learner(GetParam().scenario);
  std::string said;
  for (const auto& text : learner.program().spokenTexts(*learner.program().active()))
    said += (said.empty() ? "" : " | ") + text.words;
  EXPECT_EQ(said, GetParam().expected);
}

ROWS(Speech,
     {"correctionOfAProduct",
      MULTIPLICATION "key 9\nkey Enter\nkey x\nkey 4\nkey 0\nkey Enter\nkey 8\nkey Enter",
      "10 fois 4 égale 40 | plus 2 fois 4 égale 8 | 12 fois 4 égale ?"},
     {"verdictsStay", LAYOUT "key 2\nkey 0\nkey 5", "4 8 | 2 | juste : 0, 8 | juste : 2, faux : 4 | ?"},
     {"subtraction", "rnd 0.5 0.7 0.4 0.3 0.5\nclick Commande1", "82 moins 35 égale ?"});

TEST(Speech, theStopwatchCountsInSeconds) {
  const auto time = [](std::vector<Word> cells) {
    for (Word& cell : cells)
      cell.role = TextRole::stopwatch;
    return spoken({cells, {}});
  };
  EXPECT_EQ(time({{"0"}, {"0"}, {"0"}, {"0"}}), "0 seconde");
  EXPECT_EQ(time({{"0"}, {"0"}, {"0"}, {"1"}}), "1 seconde");
  EXPECT_EQ(time({{"0"}, {"1"}, {"2"}, {"0"}}), "120 secondes");
}

TEST(Speech, everyScreenAndPictureHasAName) {
  for (std::size_t screen = 0; screen < screenCount; ++screen) {
    const ScreenLayout& layout = layoutOf(static_cast<ScreenName>(screen));
    EXPECT_NE(layout.accessibleName, "") << screen;
    for (const auto& row : layout.controls)
      EXPECT_EQ(row.picture != Picture::none, !row.accessibleName.empty()) << row.name;
  }
}

} // namespace

} // namespace chiffrolo::test
