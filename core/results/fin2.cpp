// SPDX-License-Identifier: MIT
#include "results/fin2.h"

#include "challenge/mixed_operations.h"
#include "challenge/stopwatch.h"
#include "screen/layouts.h"

#include <numeric>

namespace chiffrolo {

namespace {

struct TextAt {
  Point place;
  std::string_view text;
};

constexpr std::array header{
    TextAt{{40, 130}, "Opérations "},
    TextAt{{160, 130}, "effectuées "},
    TextAt{{260, 130}, "    réussies "},
    TextAt{{360, 130}, "  % de réussite"},
};

constexpr std::array kindNames{
    TextAt{{36, 160}, "additions"},
    TextAt{{36, 190}, "soustractions"},
    TextAt{{36, 220}, "multiplications"},
    TextAt{{36, 250}, "divisions"},
};

int sum(const std::array<SaturatingInt16, 5>& counters) {
  return std::accumulate(counters.begin() + 1, counters.end(), 0);
}

} // namespace

Fin2Screen::Fin2Screen(ScreenHost& host) : Screen(host, layoutOf(ScreenName::FIN2)) {}

void Fin2Screen::Form_Load() {
  shared.score = 0;
  Unload(ScreenName::record);
  if (shared.nbOperations == operationsOfChallenge) drawTime();
  drawHeader();
  drawKinds();
  drawTotal();
  drawGrid();
}

void Fin2Screen::flèche_Click() {
  shared.score = 0;
  Show(ScreenName::accueil);
  Unload(ScreenName::FIN2);
}

void Fin2Screen::Form_KeyDown(int code) {
  if (code == keyCode::right) flèche_Click();
}

void Fin2Screen::Form_KeyPress(char32_t typed) {
  shared.score = 0;
  if (typed == character::enter || typed == character::escape) flèche_Click();
}

void Fin2Screen::drawTime() {
  drawStopwatchBox(*this);
  printStopwatchTime(*this, shared.chrono, stopwatchDigits());
}

void Fin2Screen::drawHeader() {
  ForeColor = QBColor(1);
  FontName = "Times";
  FontSize = 14;
  FillStyle = Fill::transparent;
  DrawWidth = 1;
  for (const auto& [place, text] : header)
    printAt(place.x, place.y, text);
}

void Fin2Screen::drawKinds() {
  ForeColor = QBColor(3);
  for (const auto& [place, text] : kindNames)
    printAt(place.x, place.y, text);
  FontName = "Arial";
  FontSize = 10;
  for (std::size_t kind = 1; kind <= kindNames.size(); ++kind)
    printFigures(kindNames[kind - 1].place.y, shared.effectuees[kind], shared.reussies[kind]);
}

void Fin2Screen::drawTotal() {
  constexpr Points y = 280;
  ForeColor = QBColor(4);
  FontName = "Arial";
  FontSize = 12;
  printAt(40, y, "  Total");
  printFigures(y, sum(shared.effectuees), sum(shared.reussies));
}

void Fin2Screen::printFigures(Points y, int presented, int succeeded) {
  for (const auto& [centre, number] : {std::pair{185.0F, presented}, std::pair{295.0F, succeeded}})
    printCentred(centre, y, numberText(number), numberText(number) + " ");
  shared.texte.clear();
  if (presented > 0) shared.texte = numberText(100 * succeeded / presented) + " %";
  printCentred(405, y, shared.texte, shared.texte);
}

/// Prints `printed` where `text` would be centred: a number is centred without the blank after it.
void Fin2Screen::printCentred(Points centre, Points y, std::string_view text, std::string_view printed) {
  printAt(centre - TextWidth(text) / 2, y, printed);
}

void Fin2Screen::printAt(Points x, Points y, std::string_view text) {
  CurrentX = x;
  CurrentY = y;
  Print(text, Then::sameLine);
}

void Fin2Screen::drawGrid() {
  const Colour grey = QBColor(8);
  DrawWidth = 1;
  FillStyle = Fill::transparent;
  Line({20, 120}, {460, 300}, grey, Form::box);
  for (const Points y : {150.0F, 270.0F})
    Line({20, y}, {460, y}, grey);
  for (const Points x : {130.0F, 240.0F, 350.0F, 460.0F})
    Line({x, 120}, {x, 300}, grey);
}

} // namespace chiffrolo
