// SPDX-License-Identifier: MIT
#include "exercise/exercise_screen.h"

#include "screen/utf8.h"

namespace chiffrolo {

namespace {

constexpr std::string_view expressionFace = "Times new roman";
constexpr Points expressionSize = 28;

bool isDigit(std::string_view character) {
  return character.size() == 1 && character.find_first_of("0123456789") == 0;
}

} // namespace

ExerciseScreen::ExerciseScreen(ScreenHost& host, const ScreenLayout& layout, const ExerciseValues& values)
    : Screen(host, layout), values_(values) {}

void ExerciseScreen::Form_Load() {
  shared.score = 0;
  shared.essai = 0;
}

void ExerciseScreen::Form_KeyDown(int code) {
  if ((code == keyCode::right || code == keyCode::enter) && flèche.Visible()) NouvelleOperation();
}

void ExerciseScreen::Form_KeyPress(char32_t typed) {
  shared.touche = typed;
  if (shared.enAttente != 0)
    return typed == character::escape ? Show(ScreenName::accueil) : NouvelleOperation();
  if (!flèche.Visible()) erase({0, 240}, 350);
  if (typed == character::escape)
    leave();
  else if (typed == character::enter)
    submitOrAskAgain();
  else if (!flèche.Visible())
    SaisirChiffre();
}

void ExerciseScreen::Minuterie_Timer() {
  if (shared.enAttente == 0) judgeLateAnswer();
}

// ---- The next operation or step ----------------------------------------------------------------------

bool ExerciseScreen::beginGuidedStep() {
  Minuterie.setInterval(answerLimit);
  if (levelIsPassed()) {
    Show(ScreenName::FIN);
    return false;
  }
  shared.enAttente = 0;
  beginStep();
  return true;
}

bool ExerciseScreen::levelIsPassed() const {
  constexpr int objective = 10;
  return shared.score == objective;
}

void ExerciseScreen::beginStep() {
  erase({1, 300}, 380);
  flèche.hide();
  arret.hide();
  shared.reponse.clear();
  shared.consigne.clear();
  colonneConsigne = 140;
}

void ExerciseScreen::leave() {
  shared.score = 0;
  Show(ScreenName::accueil);
}

// ---- The answer --------------------------------------------------------------------------------------

void ExerciseScreen::submitOrAskAgain() {
  if (shared.reponse.empty())
    redrawAnswer();
  else
    SaisirChiffre();
}

void ExerciseScreen::SaisirChiffre() {
  constexpr std::size_t mostDigits = 4;
  const char32_t touche = shared.touche;
  auto& reponse = shared.reponse;
  const bool submits = touche == character::enter || touche == U'=';
  const bool mayBegin = chiffrolo::isDigit(touche) &&
                        values_.firstDigits.find(static_cast<char>(touche)) != std::string_view::npos;
  if (!reponse.empty() || mayBegin) {
    if (touche == character::backspace)
      reponse.pop_back();
    else if (submits)
      Corriger();
    else if (chiffrolo::isDigit(touche) && reponse.size() < mostDigits)
      reponse += static_cast<char>(touche);
  }
  if (!submits) redrawAnswer();
}

void ExerciseScreen::EffacerReponse() {
  erase({static_cast<Points>(shared.colonne - values_.eraserMargin), static_cast<Points>(shared.ligne)},
        static_cast<Points>(shared.ligne + 40));
}

void ExerciseScreen::redrawAnswer() {
  shared.couleur = 1;
  EffacerReponse();
  writeAnswer();
  Print(" ?", Then::nextZone);
}

void ExerciseScreen::writeAnswer() {
  if (values_.answerStyle == AnswerStyle::expression)
    EcrireExpression(shared.reponse);
  else
    Ecrire(shared.reponse);
}

// ---- The judgement -----------------------------------------------------------------------------------

void ExerciseScreen::judgeLateAnswer() {
  shared.consigne = " tu dois répondre en moins de 30 secondes ";
  colonneConsigne = 140;
  Corriger();
}

void ExerciseScreen::Corriger() {
  shared.couleur = 1;
  stopTimers();
  if (numberOf(shared.reponse) != expectedAnswer()) return MauvaiseReponse();
  EffacerReponse();
  writeAnswer();
  BonneReponse();
}

void ExerciseScreen::showBravo() {
  drawBravo();
  shared.consigne.clear();
  colonneConsigne = values_.colonneConsigneBravo;
  if (points() != 1) return;
  shared.consigne = values_.objective;
  printConsigne();
}

void ExerciseScreen::drawBravo() {
  setFont("Arial", 20);
  shared.ligne = values_.ligneBravo;
  shared.couleur = 15;
  shared.colonne = CInt(static_cast<Points>(values_.feedbackCentre) - TextWidth("Bravo") / 2);
  FillColor = QBColor(4);
  FillStyle = Fill::solid;
  DrawWidth = 3;
  const Point centre{static_cast<Points>(values_.feedbackCentre),
                     static_cast<Points>(values_.ligneBravo + 12)};
  Circle(centre, 40, QBColor(8), 0.7F);
  Ecrire("Bravo");
}

void ExerciseScreen::losePoint() {
  if (shared.score > 0) shared.score -= 1;
}

void ExerciseScreen::waitForNextStep() {
  shared.essai += 1;
  shared.enAttente = 1;
}

void ExerciseScreen::showFaux(int ligne) {
  EffacerReponse();
  writeAnswer();
  if (!shared.reponse.empty()) drawFaux(ligne);
  printConsigne();
  shared.couleur = 12;
}

void ExerciseScreen::drawFaux(int ligne) {
  const auto y = static_cast<Points>(ligne);
  FillColor = QBColor(11);
  FillStyle = Fill::solid;
  DrawWidth = 3;
  Line({380, y + 3}, {460, y + 33}, QBColor(3), Form::box);
  setFont("Arial", 16);
  ForeColor = QBColor(12);
  CurrentX = 400;
  CurrentY = y + 10;
  Print("FAUX", Then::sameLine);
}

void ExerciseScreen::printConsigne() {
  ForeColor = QBColor(1);
  CurrentX = static_cast<Points>(colonneConsigne);
  CurrentY = 335;
  FontSize = 10;
  Print(shared.consigne, Then::sameLine);
}

void ExerciseScreen::AfficherScore() {
  Minuterie.turnOff();
  shared.essai = 0;
  showScore();
}

void ExerciseScreen::showScore() {
  flèche.show();
  arret.show();
  shared.texte = " Score =" + numberText(points());
  setFont("Arial", 16);
  const auto centre = static_cast<Points>(values_.feedbackCentre);
  const auto ligne = static_cast<Points>(values_.ligneBravo);
  const Points halfWidth = TextWidth(shared.texte) / 2;
  constexpr Points margin = 20;
  FillColor = QBColor(4);
  FillStyle = Fill::solid;
  DrawWidth = 3;
  Line({centre - halfWidth - margin, ligne + 40}, {centre + halfWidth + margin, ligne + 70}, QBColor(8),
       Form::box);
  ForeColor = QBColor(15);
  CurrentX = centre - halfWidth;
  CurrentY = ligne + 46;
  Print(shared.texte, Then::sameLine);
}

// ---- Printing ----------------------------------------------------------------------------------------

void ExerciseScreen::Ecrire(std::string_view text) {
  beginPrinting();
  Print(text, Then::sameLine);
}

void ExerciseScreen::Ecrire(SaturatingInt16 number) {
  beginPrinting();
  Print(number, Then::sameLine);
}

void ExerciseScreen::EcrireExpression(std::string_view expression) {
  beginPrinting();
  std::string_view previous;
  for (const auto character : characters(expression)) {
    printCharacter(character, previous);
    previous = character;
  }
  setFont(expressionFace, expressionSize);
}

/// `previous` is empty for the first character of an expression.
void ExerciseScreen::printCharacter(std::string_view character, std::string_view previous) {
  CurrentY = static_cast<Points>(shared.ligne);
  setFont(expressionFace, expressionSize);
  if (!previous.empty()) {
    const bool apart = !isDigit(character) || !isDigit(previous);
    if (apart && values_.spacing == Spacing::aroundSigns) Print(" ", Then::sameLine);
    if (character == "x") {
      setFont("Arial", 14);
      CurrentY = static_cast<Points>(shared.ligne + values_.dropOfTimes);
    }
  }
  Print(character, Then::sameLine);
}

void ExerciseScreen::beginPrinting() {
  ForeColor = QBColor(shared.couleur);
  CurrentX = static_cast<Points>(shared.colonne);
  CurrentY = static_cast<Points>(shared.ligne);
}

void ExerciseScreen::moveTo(SaturatingInt16 colonne, SaturatingInt16 ligne) {
  shared.colonne = colonne;
  shared.ligne = ligne;
}

void ExerciseScreen::setFont(std::string_view face, Points size) {
  FontName = face;
  FontSize = size;
}

void ExerciseScreen::erase(Point topLeft, Points bottom) {
  Line(topLeft, {ScaleWidth(), bottom}, QBColor(15), Form::filledBox);
}

} // namespace chiffrolo
