// SPDX-License-Identifier: MIT
#include "modes/division.h"

#include "screen/layouts.h"

namespace chiffrolo {

namespace {

constexpr ExerciseValues values{
    .feedbackCentre = 240,
    .ligneBravo = 260,
    .colonneConsigneBravo = 140,
    .answerStyle = AnswerStyle::plainText,
    .eraserMargin = 8,
    .firstDigits = "123456789",
};

constexpr int pitch = 24; // between digits of the long division, in points

/// "372 : 6"; with a blank after the thousands "1 234 : 2".
std::string question(const LongDivision& division) {
  std::string dividend = std::to_string(division.dividend());
  if (division.dividend() > 999) dividend.insert(1, " ");
  return dividend + " : " + std::to_string(division.divisor());
}

} // namespace

DivisionScreen::DivisionScreen(ScreenHost& host)
    : ExerciseScreen(host, layoutOf(ScreenName::division), values) {}

void DivisionScreen::Form_Load() { shared.score = 0; }

void DivisionScreen::TirerOperation() {
  shared.essai = 0;
  etapeReste = 0;
  shared.enAttente = 0;
  randomNumbers().Randomize();
  const int quotient = randomNumbers().whole(shared.score <= 2 ? 89 : 989, 11);
  division = LongDivision(quotient, randomNumbers().whole(4, shared.score <= 4 ? 2 : 6));
  shared.operation = question(division);
  shared.resultat = quotient;
}

void DivisionScreen::NouvelleOperation() {
  setFont("Times new roman", 28);
  flèche.hide();
  arret.hide();
  if (levelIsPassed()) return Show(ScreenName::FIN);
  if (enCorrection != 0)
    drawCorrectionStep();
  else
    drawQuestion();
}

void DivisionScreen::drawQuestion() {
  beginStep();
  titre.setCaption("Chiffrolo");
  Minuterie.setInterval(answerLimit);
  Minuterie.turnOn();
  Cls();
  shared.couleur = 1;
  TirerOperation();
  moveTo(CInt(168 - TextWidth(shared.operation)), 120);
  Ecrire(shared.operation);
  shared.colonne = 180;
  Ecrire("=  ?");
  shared.colonne = 212;
}

// ---- The long division -------------------------------------------------------------------------------

void DivisionScreen::drawCorrectionStep() {
  titre.setCaption(" correction ");
  const int k = shared.essai;
  if (k == 0)
    drawLayout();
  else if (etapeReste == 0)
    revealQuotientDigit(k);
  else
    revealRemainder(k);
}

void DivisionScreen::drawLayout() {
  Cls();
  shared.couleur = 1;
  Line({140, 120}, {140, 260});
  Line({140, 150}, {200, 150});
  moveTo(160, 120);
  Ecrire(SaturatingInt16(division.divisor()));
  const int digits = division.dividendDigits();
  for (int index = 1; index <= digits; ++index)
    write({120 - pitch * (digits - index + 1), 120}, division.dividendDigit(index));
  write(quotientPlace(1), "?");
  shared.essai = 1;
}

void DivisionScreen::revealQuotientDigit(int k) {
  reveal(quotientPlace(k), division.quotientDigit(k));
  etapeReste = 1;
  write(remainderPlace(k), "?");
}

void DivisionScreen::revealRemainder(int k) {
  reveal(remainderPlace(k), division.remainder(k));
  if (k >= division.quotientDigits())
    endCorrection();
  else
    bringDown(k);
}

void DivisionScreen::bringDown(int k) {
  shared.essai = k + 1;
  const Place remainder = remainderPlace(k);
  write({remainder.colonne + pitch, remainder.ligne}, division.broughtDown(k));
  etapeReste = 0;
  write(quotientPlace(k + 1), "?");
}

void DivisionScreen::endCorrection() {
  AfficherScore();
  enCorrection = 0;
  FontSize = 10;
  write({120, 335}, "en cas d'erreur, la correction est affichée en rouge");
}

DivisionScreen::Place DivisionScreen::quotientPlace(int k) { return {136 + pitch * k, 160}; }

DivisionScreen::Place DivisionScreen::remainderPlace(int k) const {
  return {120 - pitch * (division.quotientDigits() - k + 1), 120 + 40 * k};
}

void DivisionScreen::write(Place place, std::string_view text) {
  shared.couleur = 1;
  moveTo(place.colonne, place.ligne);
  Ecrire(text);
}

void DivisionScreen::reveal(Place place, std::string_view digit) {
  moveTo(place.colonne, place.ligne);
  shared.couleur = 15;
  Ecrire("?");
  if (digit.empty()) return;
  const bool isRight = shared.touche == static_cast<char32_t>(digit.front());
  shared.couleur = isRight ? 1 : 12;
  textRole = isRight ? TextRole::rightGuess : TextRole::wrongGuess;
  Ecrire(digit);
  textRole = TextRole::plain;
}

// ---- The judgement -----------------------------------------------------------------------------------

void DivisionScreen::BonneReponse() {
  shared.score += 1;
  showBravo();
  AfficherScore();
}

void DivisionScreen::MauvaiseReponse() {
  losePoint();
  showFaux(120);
  flèche.show();
  enCorrection = 1;
}

void DivisionScreen::AfficherScore() { showScore(); }

// ---- Keys --------------------------------------------------------------------------------------------

void DivisionScreen::Form_KeyPress(char32_t typed) {
  shared.touche = typed;
  if (enCorrection != 0) {
    if (typed == character::escape) enCorrection = 0;
    if (typed != character::enter) NouvelleOperation();
    return;
  }
  if (!flèche.Visible()) erase({0, 240}, 350);
  if (typed == character::escape) return leave();
  if (typed == character::enter) {
    if (!arret.Visible()) submitOrAskAgain();
  } else if (!flèche.Visible()) {
    SaisirChiffre();
  }
}

} // namespace chiffrolo
