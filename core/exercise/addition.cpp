// SPDX-License-Identifier: MIT
#include "exercise/addition.h"

#include "screen/layouts.h"

namespace chiffrolo {

namespace {

constexpr ExerciseValues values{
    .feedbackCentre = 320,
    .ligneBravo = 240,
    .colonneConsigneBravo = 200,
    .dropOfTimes = 8, // for the steps of a multiplication, if the learner left one to come here
};

/// The three numbers of an operation: `first`, and the `tens` and `units` of the second number.
struct Numbers {
  int first;
  int tens;
  int units;

  int second() const { return tens + units; }
  int sum() const { return first + second(); }
};

Numbers drawNumbers(RandomNumbers& random) {
  const int unitsOfFirst = random.whole(9, 1);
  const int tensOfFirst = random.whole(9, 1) * 10;
  const int tens = random.whole(9, 1) * 10;
  const int units = random.whole(9, 1);
  return {tensOfFirst + unitsOfFirst, tens, units};
}

Numbers drawNumbersForScore(RandomNumbers& random, int score) {
  constexpr int lastScoreBelowHundred = 5;
  Numbers numbers = drawNumbers(random);
  while (score <= lastScoreBelowHundred && numbers.sum() >= 100)
    numbers = drawNumbers(random);
  return numbers;
}

std::string expression(int left, char sign, int right) {
  return std::to_string(left) + sign + std::to_string(right);
}

} // namespace

AdditionScreen::AdditionScreen(ScreenHost& host)
    : ExerciseScreen(host, layoutOf(ScreenName::addition), values) {}

void AdditionScreen::TirerOperation() {
  randomNumbers().Randomize();
  const bool addition = randomNumbers().whole(10, 0) < 3;
  const Numbers drawn = drawNumbersForScore(randomNumbers(), shared.score);
  const char sign = addition ? '+' : '-';
  const int left = addition ? drawn.first : drawn.sum();
  shared.resultat = addition ? drawn.sum() : drawn.first;
  resultatPartiel = drawn.first + (addition ? drawn.tens : drawn.units);
  shared.operation = expression(left, sign, drawn.second());
  shared.termes[2] = expression(left, sign, drawn.tens);
  shared.termes[3] = expression(resultatPartiel, sign, drawn.units);
}

void AdditionScreen::NouvelleOperation() {
  if (!beginGuidedStep()) return;
  switch (shared.essai) {
  case 0: return drawOperation();
  case 1: return drawTensStep();
  case 2: return drawUnitsStep();
  case 3: return drawResult();
  default: return;
  }
}

void AdditionScreen::drawOperation() {
  Cls();
  shared.couleur = 1;
  TirerOperation();
  Minuterie.turnOn();
  moveTo(60, 80);
  EcrireExpression(shared.operation + "= ?");
  shared.colonne = CInt(TextWidth(shared.operation + "=") + 88);
}

void AdditionScreen::drawTensStep() {
  erase({static_cast<Points>(shared.colonne - 24), 60}, 120);
  shared.couleur = 12;
  moveTo(60, 140);
  EcrireExpression(shared.termes[2] + "= ?");
  shared.colonne = CInt(60 + 16 + TextWidth(shared.termes[2] + " = "));
}

void AdditionScreen::drawUnitsStep() {
  erase({static_cast<Points>(shared.colonne), 140}, 200);
  shared.ligne = 140;
  EcrireExpression(resultatPartiel);
  shared.couleur = 12;
  shared.ligne = 200;
  EcrireExpression(shared.termes[3] + "= ?");
  shared.colonne = CInt(static_cast<Points>(shared.colonne) + TextWidth(shared.termes[3] + " = ?"));
}

void AdditionScreen::drawResult() {
  shared.couleur = 12;
  erase({static_cast<Points>(shared.colonne), 200}, 240);
  shared.ligne = 200;
  EcrireExpression(shared.resultat);
  shared.enAttente = 1;
  AfficherScore();
}

std::optional<int> AdditionScreen::expectedAnswer() const {
  return shared.essai == 1 ? resultatPartiel : shared.resultat;
}

void AdditionScreen::BonneReponse() {
  if (shared.essai == 0) {
    shared.score += 1;
    showBravo();
  }
  if (shared.essai != 1) return AfficherScore();
  shared.essai = 2;
  NouvelleOperation();
}

void AdditionScreen::MauvaiseReponse() {
  waitForNextStep();
  losePoint();
  showFaux(60 * shared.essai + 20);
  if (shared.essai < 3) flèche.show();
}

} // namespace chiffrolo
