// SPDX-License-Identifier: MIT
#include "modes/multiplication.h"

#include "screen/layouts.h"

namespace chiffrolo {

namespace {

constexpr ExerciseValues values{
    .feedbackCentre = 240,
    .ligneBravo = 260,
    .colonneConsigneBravo = 130,
    .dropOfTimes = 12,
};

constexpr int colonneEgal = 140;
constexpr int colonneReponse = 172;

struct Factors {
  int tens;
  int units;
  int multiplier;

  int number() const { return tens + units; }
  int product() const { return number() * multiplier; }
};

Factors drawFactors(RandomNumbers& random, int score) {
  const int tens = 10 * random.whole(9, 1);
  const int units = random.whole(9, 1);
  const int multiplier = random.whole(7, 3);
  return {tens, units, score < 5 ? random.whole(4, 2) : multiplier};
}

Factors drawFactorsForScore(RandomNumbers& random, int score) {
  constexpr int lastScoreBelowHundred = 2;
  Factors factors = drawFactors(random, score);
  while (score <= lastScoreBelowHundred && factors.product() >= 100)
    factors = drawFactors(random, score);
  return factors;
}

} // namespace

MultiplicationScreen::MultiplicationScreen(ScreenHost& host)
    : ExerciseScreen(host, layoutOf(ScreenName::multiplication), values) {}

void MultiplicationScreen::TirerOperation() {
  randomNumbers().Randomize();
  const bool multiplierLast = randomNumbers().whole(2, 1) == 1;
  const Factors drawn = drawFactorsForScore(randomNumbers(), shared.score);
  const auto times = [&](int number) {
    const std::string left = std::to_string(multiplierLast ? number : drawn.multiplier);
    return left + "x" + std::to_string(multiplierLast ? drawn.multiplier : number);
  };
  shared.operation = times(drawn.number());
  shared.termes[2] = times(drawn.tens);
  shared.termes[3] = times(drawn.units);
  resultatsEtape[0] = drawn.product();
  resultatsEtape[1] = drawn.tens * drawn.multiplier;
  resultatsEtape[2] = drawn.units * drawn.multiplier;
  resultatsEtape[3] = drawn.product();
}

void MultiplicationScreen::NouvelleOperation() {
  if (!beginGuidedStep()) return;
  switch (shared.essai) {
  case 0: return drawOperation();
  case 1: return drawTensStep();
  case 2: return drawUnitsStep();
  case 3: return drawSumStep();
  case 4: return drawResult();
  default: return;
  }
}

void MultiplicationScreen::drawOperation() {
  Minuterie.turnOn();
  Cls();
  shared.couleur = 1;
  TirerOperation();
  moveTo(60, 160);
  EcrireExpression(shared.operation);
  shared.colonne = colonneEgal;
  EcrireExpression("= ?");
  shared.colonne = colonneReponse;
}

void MultiplicationScreen::drawTensStep() {
  erase({colonneEgal, 160}, 220);
  moveTo(60, 70);
  EcrireExpression(shared.termes[2]);
  shared.colonne = colonneEgal;
  EcrireExpression("= ?");
  shared.colonne = colonneReponse;
}

void MultiplicationScreen::drawUnitsStep() {
  erase({static_cast<Points>(shared.colonne), 70}, 130);
  shared.ligne = 70;
  EcrireExpression(resultatsEtape[1]);
  shared.couleur = 12;
  moveTo(CInt(115 - TextWidth(shared.termes[3])), 110);
  EcrireExpression(shared.termes[3]);
  shared.colonne = colonneEgal;
  EcrireExpression("=");
  shared.colonne = colonneUnderTens(2);
  EcrireExpression("?");
}

void MultiplicationScreen::drawSumStep() {
  erase({static_cast<Points>(shared.colonne), 110}, 170);
  Line({20, 150}, {220, 150});
  shared.ligne = 110;
  EcrireExpression(resultatsEtape[2]);
  shared.couleur = 1;
  shared.colonne = 30;
  EcrireExpression("+");
  moveTo(colonneEgal, 160);
  EcrireExpression("=");
  shared.colonne = colonneUnderTens(3);
  EcrireExpression("?");
}

void MultiplicationScreen::drawResult() {
  erase({static_cast<Points>(shared.colonne), 160}, 210);
  shared.ligne = 160;
  EcrireExpression(resultatsEtape[3]);
  shared.enAttente = 1;
  AfficherScore();
}

SaturatingInt16 MultiplicationScreen::colonneUnderTens(int step) const {
  const auto width = [&](int index) {
    return TextWidth(numberText(resultatsEtape[static_cast<std::size_t>(index)]));
  };
  return CInt(width(1) + colonneReponse - width(step));
}

std::optional<int> MultiplicationScreen::expectedAnswer() const {
  constexpr int lastAsked = 3;
  if (shared.essai < 0 || shared.essai > lastAsked) return std::nullopt;
  return resultatsEtape[static_cast<std::size_t>(int{shared.essai})];
}

void MultiplicationScreen::BonneReponse() {
  if (shared.essai == 0) {
    shared.score += 1;
    showBravo();
  }
  shared.essai += 1;
  if (shared.essai == 1 || shared.essai == 4)
    AfficherScore();
  else
    NouvelleOperation();
}

void MultiplicationScreen::MauvaiseReponse() {
  waitForNextStep();
  losePoint();
  const bool isWholeProduct = shared.essai == 1 || shared.essai == 4;
  showFaux(isWholeProduct ? 160 : 40 * (shared.essai - 1) + 30);
  if (shared.essai < 4) flèche.show();
}

} // namespace chiffrolo
