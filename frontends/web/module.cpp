// SPDX-License-Identifier: MIT

/// The functions that the module exports to the page. A game is one run of the program; games are independent
/// of each other. Instants are in milliseconds of the page's monotonic clock. No function may be called while
/// another one runs, not even by a function that the page provides.

#include "program.h"
#include "screen/layouts.h"
#include "screens.h"
#include "shared_variables.h"
#include "web/layout_json.h"
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

void answer(const Game& game, std::string_view text) {
  page::answer(game.platform.game(), text.data(), text.size());
}

} // namespace

// ---- A game ---------------------------------------------------------------------------------------------

/// Creates a game, which the page destroys by `destroyGame`. `number` is passed to the functions of the page.
CHIFFROLO_EXPORT("createGame") Game* createGame(page::GameNumber number) {
  return std::make_unique<Game>(number).release();
}

CHIFFROLO_EXPORT("destroyGame") void destroyGame(Game* game) { std::unique_ptr<Game>{game}.reset(); }

/// Shows the home screen. Once, before any event.
CHIFFROLO_EXPORT("start") void start(Game& game, double now) { at(game, now).program.start(); }

// ---- Events: as in platform.h, each at the instant `now` ------------------------------------------------

/// `character` is the code point that the key types, 0 for none.
CHIFFROLO_EXPORT("key") void key(Game& game, double now, int code, char32_t character) {
  const auto typed = character == 0 ? std::nullopt : std::optional(character);
  at(game, now).program.key(code, typed);
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

// "Answers" means: calls `answer` once.

/// Answers the layout of a screen, loaded or not, in JSON.
CHIFFROLO_EXPORT("queryLayout") void queryLayout(const Game& game, ScreenName screen) {
  answer(game, layoutJson(layoutOf(screen)));
}

/// Answers the words of `Events::spokenTexts`, in reading order, each on a line of its own.
CHIFFROLO_EXPORT("querySpokenTexts") void querySpokenTexts(const Game& game, ScreenName screen) {
  std::string lines;
  for (const auto& text : game.program.spokenTexts(screen))
    lines += (lines.empty() ? "" : "\n") + text.words;
  answer(game, lines);
}

/// Answers `Events::takeAnnouncement`.
CHIFFROLO_EXPORT("takeAnnouncement") void takeAnnouncement(Game& game) {
  answer(game, game.program.takeAnnouncement());
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

/// Answers the line that the command `state` of a scenario prints.
CHIFFROLO_EXPORT("queryState") void queryState(Game& game) { answer(game, stateLine(game.program)); }

} // namespace chiffrolo::web
