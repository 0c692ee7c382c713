// SPDX-License-Identifier: MIT
#pragma once

/// The functions that the page provides: what the program draws, shows, asks and starts. The page imports
/// nothing else into the module.
///
/// Positions and lengths are in points, from the top left corner of the content area. A colour is 0xRRGGBB; a
/// fill is a colour or -1 for none. A text is UTF-8, given by its address and its length in bytes; it belongs
/// to the program, and the page may read it during the call only. A face is such a text; `style` is 1 for
/// bold plus 2 for italic. No function may call the module.

#include "platform.h"

namespace chiffrolo::web::page {

/// The number that the page gave to the game.
using GameNumber = std::uint32_t;

#define CHIFFROLO_IMPORT(name) __attribute__((import_module("page"), import_name(name))) void
#define CHIFFROLO_IMPORT_OF(type, name) __attribute__((import_module("page"), import_name(name))) type

// ---- Windows: each screen has at most one --------------------------------------------------------------

CHIFFROLO_IMPORT("createWindow") createWindow(GameNumber game, ScreenName screen);
CHIFFROLO_IMPORT("destroyWindow") destroyWindow(GameNumber game, ScreenName screen);
CHIFFROLO_IMPORT("activate") activate(GameNumber game, ScreenName screen);
/// As `Window::width`.
CHIFFROLO_IMPORT_OF(Points, "contentWidth") contentWidth(GameNumber game, ScreenName screen);

CHIFFROLO_IMPORT_OF(Points, "textWidth")
textWidth(GameNumber game, const char* text, std::size_t length, const char* face, std::size_t faceLength,
          Points size, int style);
CHIFFROLO_IMPORT_OF(Points, "lineHeight")
lineHeight(GameNumber game, const char* face, std::size_t faceLength, Points size, int style);
CHIFFROLO_IMPORT_OF(Points, "averageCharacterWidth")
averageCharacterWidth(GameNumber game, const char* face, std::size_t faceLength, Points size, int style);

// ---- Drawing: `thickness` is in pixels of the layout, 96 per inch -----------------------------------------

CHIFFROLO_IMPORT("drawText")
drawText(GameNumber game, ScreenName screen, Points left, Points top, const char* text, std::size_t length,
         const char* face, std::size_t faceLength, Points size, int style, std::uint32_t colour);
CHIFFROLO_IMPORT("drawSegment")
drawSegment(GameNumber game, ScreenName screen, Points fromX, Points fromY, Points toX, Points toY,
            int thickness, std::uint32_t colour);
CHIFFROLO_IMPORT("drawBox")
drawBox(GameNumber game, ScreenName screen, Points x, Points y, Points oppositeX, Points oppositeY,
        int thickness, std::uint32_t outline, std::int32_t fill);
CHIFFROLO_IMPORT("drawEllipse")
drawEllipse(GameNumber game, ScreenName screen, Points centreX, Points centreY, Points radiusX,
            Points radiusY, int thickness, std::uint32_t outline, std::int32_t fill);
CHIFFROLO_IMPORT("clear") clear(GameNumber game, ScreenName screen, std::uint32_t background);

// ---- Controls, by their row in the layout -----------------------------------------------------------------

CHIFFROLO_IMPORT("setVisible")
setVisible(GameNumber game, ScreenName screen, ControlIndex control, Visibility visible);
CHIFFROLO_IMPORT("setCaption")
setCaption(GameNumber game, ScreenName screen, ControlIndex control, const char* text, std::size_t length);
/// The module keeps the timers itself (see `nextDue`). The page is told when one starts that was stopped, and
/// when one stops that was running; not of those that run by design when a window is created.
CHIFFROLO_IMPORT("timerStarted")
timerStarted(GameNumber game, ScreenName screen, ControlIndex timer, std::int32_t milliseconds);
CHIFFROLO_IMPORT("timerStopped") timerStopped(GameNumber game, ScreenName screen, ControlIndex timer);

// ---- The program ------------------------------------------------------------------------------------------

/// 64 random bits.
CHIFFROLO_IMPORT_OF(std::uint64_t, "randomSeed") randomSeed(GameNumber game);
CHIFFROLO_IMPORT("quit") quit(GameNumber game);

/// The answer to the query that runs: see module.cpp.
CHIFFROLO_IMPORT("answer") answer(GameNumber game, const char* text, std::size_t length);

#undef CHIFFROLO_IMPORT
#undef CHIFFROLO_IMPORT_OF

} // namespace chiffrolo::web::page
