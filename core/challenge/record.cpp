// SPDX-License-Identifier: MIT
#include "challenge/record.h"

#include "challenge/mixed_operations.h"
#include "challenge/stopwatch.h"
#include "screen/layouts.h"

namespace chiffrolo {

namespace {

constexpr ExerciseValues values{
    .feedbackCentre = 240,
    .ligneBravo = 260,
    .colonneConsigneBravo = 110,
    .objective = " Tu dois réussir 20 opérations le plus rapidement possible ",
    .points = &MODULE11::nbOperations,
    .dropOfTimes = 12,
    .spacing = Spacing::asWritten,
};

} // namespace

RecordScreen::RecordScreen(ScreenHost& host) : ExerciseScreen(host, layoutOf(ScreenName::record), values) {}

void RecordScreen::Form_Load() {
  shared.essai = 0;
  shared.effectuees.fill(0);
  shared.reussies.fill(0);
  shared.nbOperations = 0;
  shared.chrono = 0;
}

void RecordScreen::NouvelleOperation() {
  if (shared.nbOperations == operationsOfChallenge) return Show(ScreenName::FIN2);
  beginStep();
  setFont("Times new roman", 28);
  switch (shared.essai) {
  case 0: return drawOperation();
  case 1: return drawCorrection();
  default: return;
  }
}

void RecordScreen::drawOperation() {
  Minuterie1.turnOn();
  Minuterie.turnOn();
  erase({1, 60}, 380);
  drawStopwatchBox(*this);
  shared.couleur = 1;
  TirerOperation();
  moveTo(CInt(250 - TextWidth(shared.operation)), 120);
  EcrireExpression(shared.operation);
  shared.colonne = 260;
  EcrireExpression("=  ?");
  shared.colonne = 292;
}

void RecordScreen::TirerOperation() {
  const auto drawn = drawMixedOperation(shared.reussies, randomNumbers());
  typeOperation = drawn.kind;
  shared.effectuees[static_cast<std::size_t>(drawn.kind)] += 1;
  resultatAttendu = drawn.answer;
  shared.operation = drawn.text;
}

void RecordScreen::drawCorrection() {
  erase({static_cast<Points>(shared.colonne), 120}, 170);
  EcrireExpression(resultatAttendu);
  AfficherScore();
}

void RecordScreen::Minuterie1_Timer() {
  printStopwatchTime(*this, shared.chrono, stopwatchCells());
  shared.chrono += 1;
  printStopwatchTime(*this, shared.chrono, stopwatchDigits());
}

// ---- The judgement -----------------------------------------------------------------------------------

void RecordScreen::stopTimers() {
  Minuterie.turnOff();
  Minuterie1.turnOff();
}

void RecordScreen::BonneReponse() {
  shared.reussies[static_cast<std::size_t>(int{typeOperation})] += 1;
  shared.nbOperations += 1;
  showBravo();
  AfficherScore();
}

void RecordScreen::MauvaiseReponse() {
  shared.essai += 1;
  showFaux(120);
  if (shared.essai == 1) flèche.show();
}

void RecordScreen::AfficherScore() {
  shared.essai = 0;
  showScore();
}

// ---- Keys --------------------------------------------------------------------------------------------

void RecordScreen::Form_KeyPress(char32_t typed) {
  shared.touche = typed;
  if (typed == character::escape)
    leave();
  else if (shared.essai != 0)
    NouvelleOperation();
  else if (typed == character::enter && shared.reponse.empty() && !flèche.Visible())
    redrawAnswer();
  else if (typed == character::enter || !flèche.Visible())
    SaisirChiffre();
}

} // namespace chiffrolo
