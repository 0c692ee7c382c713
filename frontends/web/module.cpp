// SPDX-License-Identifier: MIT

/// The functions that the module exports to the page. A game is one run of the program; games are independent
/// of each other. Instants are in milliseconds of the page's monotonic clock. No function may be called while
/// another one runs, not even by a function that the page provides.

#include "program.h"
#include "screen/layouts.h"
#include "screens.h"
#include "shared_variables.h"
#include "web/numbers.h"
#include "web/web_platform.h"

#include <limits>

#define CHIFFROLO_EXPORT(name) __attribute__((export_name(name)))

namespace chiffrolo::web {

struct Game {
  explicit Game(page::GameNumber number) : platform(number) {}

  WebPlatform platform;
  Program program{platform, allScreens};
};

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

Game& at(Game& game, double now) {
  game.platform.setTime(Instant{std::chrono::round<Clock::duration>(Milliseconds{now})});
  return game;
}

} // namespace

// ---- A game ---------------------------------------------------------------------------------------------

/// Creates a game, which the page destroys by `destroyGame`. `number` is passed to the functions of the page.
CHIFFROLO_EXPORT("createGame") Game* createGame(page::GameNumber number) {
  return std::make_unique<Game>(number).release();
}

CHIFFROLO_EXPORT("destroyGame") void destroyGame(Game* game) { const std::unique_ptr<Game> owned{game}; }

/// Shows the home screen. Once, before any event.
CHIFFROLO_EXPORT("start") void start(Game& game, double now) { at(game, now).program.start(); }

// ---- Events: as in platform.h, each at the instant `now` ------------------------------------------------

/// `character` is the code point that the key types, 0 for none. 1 if another screen has become the active
/// one.
CHIFFROLO_EXPORT("key") int key(Game& game, double now, int code, char32_t character) {
  const auto typed = character == 0 ? std::nullopt : std::optional(character);
  return static_cast<int>(at(game, now).program.key(code, typed) == Events::KeyUse::screenChanged);
}

CHIFFROLO_EXPORT("click") void click(Game& game, double now, ControlIndex control) {
  at(game, now).program.click(control);
}

CHIFFROLO_EXPORT("front") void front(Game& game, double now, ScreenName screen) {
  at(game, now).program.front(screen);
}

CHIFFROLO_EXPORT("close") void close(Game& game, double now) { at(game, now).program.close(); }

/// Delivers the ticks that are due, in the order in which they are due.
CHIFFROLO_EXPORT("deliverDueTicks") void deliverDueTicks(Game& game, double now) {
  at(game, now).platform.deliverDueTicks();
}

/// When the next tick is due; infinity if no timer is running.
CHIFFROLO_EXPORT("nextDue") double nextDue(const Game& game) {
  const auto due = game.platform.nextDue();
  return due ? Milliseconds{due->time_since_epoch()}.count() : std::numeric_limits<double>::infinity();
}

// ---- Queries --------------------------------------------------------------------------------------------

CHIFFROLO_EXPORT("minimumContentWidth") Twips minimumContentWidth() { return minimumContentArea.width; }
CHIFFROLO_EXPORT("minimumContentHeight") Twips minimumContentHeight() { return minimumContentArea.height; }

/// The layout of a screen, loaded or not: `layoutScreen` once, then `layoutControl` for each control.
CHIFFROLO_EXPORT("describeLayout") void describeLayout(const Game& game, ScreenName name) {
  const auto number = game.platform.game();
  const auto& screen = layoutOf(name);
  page::layoutScreen(number, screen.caption.data(), screen.caption.size(), screen.accessibleName.data(),
                     screen.accessibleName.size(), screen.frame, screen.font.face.data(),
                     screen.font.face.size(), screen.font.size, styleNumber(screen.font),
                     colourNumber(screen.background));
  for (const auto& row : screen.controls)
    page::layoutControl(number, row.kind, row.name.data(), row.name.size(), row.place.left, row.place.top,
                        row.place.width, row.place.height, row.caption.data(), row.caption.size(),
                        row.tooltip.data(), row.tooltip.size(), row.font.face.data(), row.font.face.size(),
                        row.font.size, styleNumber(row.font), colourNumber(row.foreground),
                        colourNumber(row.background), row.alignment, row.border, row.accessibleName.data(),
                        row.accessibleName.size(), row.picture, row.visible, row.enabled,
                        static_cast<std::int32_t>(row.interval.count()));
}

/// As `Events::spokenTexts`: calls `spokenText` for each.
CHIFFROLO_EXPORT("querySpokenTexts") void querySpokenTexts(const Game& game, ScreenName screen) {
  for (const auto& text : game.program.spokenTexts(screen))
    page::spokenText(game.platform.game(), text.words.data(), text.words.size(), text.topLeft.x,
                     text.topLeft.y, text.bottomRight.x, text.bottomRight.y);
}

/// As `Events::takeAnnouncement`: calls `announcement` if there is one.
CHIFFROLO_EXPORT("takeAnnouncement") void takeAnnouncement(Game& game) {
  const auto words = game.program.takeAnnouncement();
  if (!words.empty()) page::announcement(game.platform.game(), words.data(), words.size());
}

// ---- For the tools that play scenarios ------------------------------------------------------------------

/// Appends a number in [0, 1) to those that the program draws next.
CHIFFROLO_EXPORT("giveRandomNumber") void giveRandomNumber(Game& game, double number) {
  game.program.randomNumbers().give(number);
}

/// `variable` is a row of `assignableVariables`.
CHIFFROLO_EXPORT("setVariable") void setVariable(Game& game, std::size_t variable, int value) {
  game.program.shared().*assignableVariables.at(variable).variable = value;
}

/// `array` is a row of `counterArrays`, `kind` is 1 to 4.
CHIFFROLO_EXPORT("setCounter") void setCounter(Game& game, std::size_t array, std::size_t kind, int value) {
  (game.program.shared().*counterArrays.at(array).counters).at(kind) = value;
}

/// Calls `state` with the line that the command `state` of a scenario prints.
CHIFFROLO_EXPORT("queryState") void queryState(Game& game) {
  const auto line = stateLine(game.program);
  page::state(game.platform.game(), line.data(), line.size());
}

} // namespace chiffrolo::web
