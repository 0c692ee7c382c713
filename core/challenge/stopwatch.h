// SPDX-License-Identifier: MIT
#pragma once

#include "screen/surface.h"

namespace chiffrolo {

/// Draws the empty box of the stopwatch: four cells, light cyan edged with cyan.
void drawStopwatchBox(Surface& surface);

/// Prints the last four digits of `seconds`, 0 or more, into the cells.
void printStopwatchTime(Surface& surface, int seconds, Colour colour);

/// The colours of digits that are to be seen, and of the cells, in which digits vanish.
Colour stopwatchDigits();
Colour stopwatchCells();

} // namespace chiffrolo
