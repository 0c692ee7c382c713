// SPDX-License-Identifier: MIT
#include "tests/core/rows.h"

namespace chiffrolo::test {

namespace {

/// `tests/web/scenario_test.py` has many more, for both players.
TEST(Scenario, malformedKeyIsRejected) {
  for (const auto* key :
       {"\xF0\x9F\x98\x80", "\x01", "\xC3", "\xC1\xA1", "\xED\xA0\x80", "\xED\xBF\xBF", "\xE0\x9F\xBF"})
    EXPECT_THROW(PlayedScenario(std::string("key ") + key), ScenarioError) << key;
}

TEST(Scenario, keysHaveTheirCharacterCodes) {
  for (const auto& [key, code] : {std::pair{"é", 233}, {"\uE000", 57344}, {"\uD7FF", 55295}}) {
    PlayedScenario played(std::string("click Commande1\nkey ") + key + "\nstate");
    EXPECT_NE(played.effects({"state active=addition touche=" + std::to_string(code) + " "}), "") << key;
  }
}

TEST(Scenario, setChangesEveryVariable) {
  PlayedScenario played(
      "rnd 0.25 0.5\nset couleur 15\nset ligne 2\nset colonne 3\nset chrono 4\nset score 5\nset essai 6\n"
      "set enAttente 1\nset nbOperations 7\nset resultat 32767\nset reussies 1 2 3 4\n"
      "set effectuees 5 6 7 8\nstate");
  EXPECT_EQ(played.effects({""}),
            "state active=accueil touche=0 texte=\"\" couleur=15 ligne=2 colonne=3 reponse=\"\" chrono=4 "
            "consigne=\"\" score=5 essai=6 enAttente=1 nbOperations=7 operation=\"\" termes2=\"\" "
            "termes3=\"\" resultat=32767 reussies=1,2,3,4 effectuees=5,6,7,8 rnd=2");
}

/// The transcripts have the other screens. The caption of `mail` depends on the build.
TEST(Scenario, layoutPrintsTheGoodbyeScreen) {
  const std::string layout = PlayedScenario("layout Aurevoir").effects({""});
  const std::string expected =
      "layout Aurevoir screen \"\" toolWindow \"Arial\" 15.75 regular #ffffff, "
      "layout Aurevoir pictureBox Picture1 7560 7920 495 495 farewell #ffffff, "
      "layout Aurevoir image flèche 11280 4200 480 480 arrow visible, "
      "layout Aurevoir label Label2 7440 3960 3015 1095 \"Au revoir\" \"Brush Script MT\" 36 italic #ff0000 "
      "#ffffff left none, "
      "layout Aurevoir label mail 8760 8040 3075 285 \"";
  EXPECT_EQ(layout.substr(0, expected.size()), expected);
}

} // namespace

} // namespace chiffrolo::test
