// SPDX-License-Identifier: MIT
#include "tests/learner.h"
#include "tests/rows.h"

namespace chiffrolo::test {

namespace {

class Malformed : public testing::TestWithParam<Row> {};

TEST_P(Malformed, isRefusedBeforeAnythingHappens) {
  Learner learner;
  learner.moves();
  EXPECT_THROW(learner.play(GetParam().scenario), ScenarioError);
  learner.play("state");
  EXPECT_EQ(learner.effects({"load", "state"}), GetParam().expected);
}

#define UNTOUCHED                                                                                            \
  "state active=accueil touche=0 texte=\"\" couleur=0 ligne=0 colonne=0 reponse=\"\" chrono=0 "              \
  "consigne=\"\" "                                                                                           \
  "score=0 essai=0 enAttente=0 nbOperations=0 operation=\"\" termes2=\"\" termes3=\"\" resultat=0 "          \
  "reussies=0,0,0,0 effectuees=0,0,0,0 rnd=0"

#define REFUSED(name, line)                                                                                  \
  Row { name, line, UNTOUCHED }
ROWS(Malformed, REFUSED("unknownCommand", "press 1"), REFUSED("commandInCapitals", "KEY 1"),
     REFUSED("indentedComment", " # x"), REFUSED("keyWithout", "key"), REFUSED("keySurplus", "key 1 2"),
     REFUSED("keyUnknown", "key enter"), REFUSED("keyBeyondFourHexDigits", "key \xF0\x9F\x98\x80"),
     REFUSED("keyControl", "key \x01"), REFUSED("keyTruncated", "key \xC3"),
     REFUSED("keyOverlong", "key \xC1\xA1"), REFUSED("keySurrogate", "key \xED\xA0\x80"),
     REFUSED("clickWithout", "click"), REFUSED("frontUnknown", "front home"),
     REFUSED("closeSurplus", "close addition"), REFUSED("waitNegative", "wait -1"),
     REFUSED("waitFraction", "wait 1.5"), REFUSED("waitMoreThanADay", "wait 86400001"),
     REFUSED("waitEnormous", "wait 99999999999999999999"), REFUSED("rndWithout", "rnd"),
     REFUSED("rndOne", "rnd 0.5 1"), REFUSED("rndNegative", "rnd -0.1"), REFUSED("rndNotANumber", "rnd nan"),
     REFUSED("rndTrailing", "rnd 0.5x"), REFUSED("setWithout", "set"),
     REFUSED("setWithoutValue", "set essai"), REFUSED("setUnknown", "set reponse 1"),
     REFUSED("setBeyondSixteenBits", "set essai 32768"), REFUSED("setColour", "set couleur 16"),
     REFUSED("setFlag", "set enAttente 2"), REFUSED("setThreeCounters", "set reussies 1 2 3"),
     REFUSED("setFiveCounters", "set effectuees 1 2 3 4 5"),
     REFUSED("setCounterRange", "set reussies 1 2 3 32768"), REFUSED("stateSurplus", "state all"));

TEST(Scenario, setReachesEveryVariable) {
  Learner learner(
      "rnd 0.25 0.5\nset couleur 15\nset ligne 2\nset colonne 3\nset chrono 4\nset score 5\nset essai 6\n"
      "set enAttente 1\nset nbOperations 7\nset resultat 32767\nset reussies 1 2 3 4\n"
      "set effectuees 5 6 7 8\nstate");
  EXPECT_EQ(
      learner.effects({"state"}),
      "state active=accueil touche=0 texte=\"\" couleur=15 ligne=2 colonne=3 reponse=\"\" chrono=4 "
      "consigne=\"\" "
      "score=5 essai=6 enAttente=1 nbOperations=7 operation=\"\" termes2=\"\" termes3=\"\" resultat=32767 "
      "reussies=1,2,3,4 effectuees=5,6,7,8 rnd=2");
}

TEST(Scenario, blanksAndCommentsDoNothing) {
  Learner learner("\n   \n\t\n# key Escape\n#key Escape\r\n");
  EXPECT_EQ(learner.moves(), "load accueil, activate accueil");
  learner.play("  key\tEscape \r");
  EXPECT_EQ(learner.moves(), "load Aurevoir, activate Aurevoir");
}

} // namespace

} // namespace chiffrolo::test
