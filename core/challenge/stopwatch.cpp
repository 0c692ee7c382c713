// SPDX-License-Identifier: MIT
#include "challenge/stopwatch.h"

namespace chiffrolo {

Colour stopwatchDigits() { return QBColor(12); }

Colour stopwatchCells() { return QBColor(11); }

void drawStopwatchBox(Surface& surface) {
  constexpr Points top = 25;
  constexpr Points bottom = 60;
  surface.FillColor = stopwatchCells();
  surface.FillStyle = Fill::solid;
  surface.DrawWidth = 3;
  surface.Line({195, top}, {279, bottom}, QBColor(3), Form::box);
  for (const Points wall : {216.0F, 237.0F, 258.0F})
    surface.Line({wall, top}, {wall, bottom}, QBColor(3));
}

void printStopwatchTime(Surface& surface, int seconds, Colour colour) {
  constexpr std::size_t cells = 4;
  const std::string digits = "0000" + std::to_string(seconds);
  surface.FontName = "Arial";
  surface.FontSize = 24;
  surface.ForeColor = colour;
  surface.textRole = TextRole::stopwatch;
  surface.CurrentX = 200;
  surface.CurrentY = 30;
  for (const char digit : digits.substr(digits.size() - cells)) {
    surface.Print({&digit, 1}, Then::sameLine);
    surface.Print(" ", Then::sameLine);
  }
  surface.textRole = TextRole::plain;
}

} // namespace chiffrolo
