// SPDX-License-Identifier: MIT
#include "tests/core/scenario_session.h"

#include <gtest/gtest.h>

#include <sstream>

namespace chiffrolo::test {

namespace {

/// One malformed command per line.
constexpr const char* malformed =
    "press 1\nKEY 1\n # x\n"
    "key\nkey 1 2\nkey enter\nkey \xF0\x9F\x98\x80\nkey \x01\nkey \xC3\nkey \xC1\xA1\nkey \xED\xA0\x80\nkey "
    "\xED\xBF\xBF\nkey \xE0\x9F\xBF\n"
    "click\nfront home\nclose addition\nwait -1\nwait 1.5\nwait 86400001\nwait 99999999999999999999\n"
    "rnd\nrnd 0.5 1\nrnd -0.1\nrnd nan\nrnd 0.5x\n"
    "set\nset essai\nset reponse 1\nset essai 32768\nset couleur 16\nset enAttente 2\n"
    "set reussies 1 2 3\nset effectuees 1 2 3 4 5\nset reussies 1 2 3 32768\nstate all\n"
    "layout\nlayout home\nlayout accueil addition\n";

TEST(Scenario, malformedLineIsRejectedAndHasNoEffect) {
  ScenarioSession session("state");
  const std::string untouched = session.takeEffects({"state"});
  std::istringstream lines(malformed);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_THROW(session.play(line), ScenarioError) << line;
    EXPECT_EQ(session.takeEffects({""}), "") << line;
    session.play("state");
    EXPECT_EQ(session.takeEffects({"state"}), untouched) << line;
  }
}

TEST(Scenario, setChangesEveryVariable) {
  ScenarioSession session(
      "rnd 0.25 0.5\nset couleur 15\nset ligne 2\nset colonne 3\nset chrono 4\nset score 5\nset essai 6\n"
      "set enAttente 1\nset nbOperations 7\nset resultat 32767\nset reussies 1 2 3 4\n"
      "set effectuees 5 6 7 8\nstate");
  EXPECT_EQ(
      session.takeEffects({"state"}),
      "state active=accueil touche=0 texte=\"\" couleur=15 ligne=2 colonne=3 reponse=\"\" chrono=4 "
      "consigne=\"\" "
      "score=5 essai=6 enAttente=1 nbOperations=7 operation=\"\" termes2=\"\" termes3=\"\" resultat=32767 "
      "reussies=1,2,3,4 effectuees=5,6,7,8 rnd=2");
}

/// The transcripts have the other screens. The caption of `mail` depends on the build.
TEST(Scenario, keysHaveTheirCharacterCodes) {
  for (const auto& [key, code] : {std::pair{"Enter", 13},
                                  {"Escape", 27},
                                  {"Backspace", 8},
                                  {"Space", 32},
                                  {"é", 233},
                                  {"\uE000", 57344},
                                  {"\uD7FF", 55295}}) {
    ScenarioSession session(std::string("click Commande1\nkey ") + key + "\nstate");
    EXPECT_NE(session.takeEffects({"state"}).find(" touche=" + std::to_string(code) + " "), std::string::npos)
        << key;
  }
}

TEST(Scenario, layoutPrintsTheGoodbyeScreen) {
  ScenarioSession session("layout Aurevoir");
  EXPECT_EQ(
      session.takeEffects({"layout Aurevoir screen", "layout Aurevoir pictureBox", "layout Aurevoir image",
                           "layout Aurevoir label Label2"}),
      "layout Aurevoir screen \"\" toolWindow \"Arial\" 15.75 regular #ffffff, "
      "layout Aurevoir pictureBox Picture1 7560 7920 495 495 farewell #ffffff, "
      "layout Aurevoir image flèche 11280 4200 480 480 arrow visible, "
      "layout Aurevoir label Label2 7440 3960 3015 1095 \"Au revoir\" \"Brush Script MT\" 36 italic #ff0000 "
      "#ffffff left none");
  ScenarioSession mail("layout Aurevoir");
  EXPECT_EQ(mail.takeEffects({"layout Aurevoir label mail"})
                .find("layout Aurevoir label mail 8760 8040 3075 285 \""),
            0U);
}

TEST(Scenario, blanksAndCommentsAreIgnored) {
  ScenarioSession session("\n   \n\t\n# key Escape\n#key Escape\r\n");
  EXPECT_EQ(session.takeScreenChanges(), "load accueil, activate accueil");
  session.play("  key\tEscape \r");
  EXPECT_EQ(session.takeScreenChanges(), "load Aurevoir, activate Aurevoir");
}

} // namespace

} // namespace chiffrolo::test
