// SPDX-License-Identifier: MIT
#pragma once

#include "screen/surface.h"

namespace chiffrolo {

/// Draws the box of the stopwatch, four empty cells.
void drawStopwatchBox(Surface& surface);

/// Prints the last four digits of `seconds`, 0 or more, into the cells.
void printStopwatchTime(Surface& surface, int seconds, Colour colour);

/// The colours of visible digits and of the cells. Digits in the colour of the cells are erased.
Colour stopwatchDigits();
Colour stopwatchCells();

} // namespace chiffrolo
