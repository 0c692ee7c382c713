// SPDX-License-Identifier: MIT
#pragma once

/// The screens in words, for screen readers.

#include "platform.h"
#include "screen/visible_texts.h"

#include <optional>
#include <string>
#include <vector>

namespace chiffrolo {

/// A text in the words in which a child reads it aloud: "47 plus 35 égale ?", "juste : 6".
std::string spoken(const VisibleText& text);

/// What the active screen shows at one moment.
struct Contents {
  std::optional<ScreenName> screen;  ///< nothing if no screen is active; the rest is empty then
  std::string title;                 ///< the accessible name of the screen
  std::vector<std::string> captions; ///< of its labels
  std::vector<VisibleText> texts;    ///< on its surface, in reading order
};

/// What is announced when `before` has become `now`: a new screen completely; on the same screen only what
/// has appeared; while an answer is typed, only the answer. May be empty. Ticks of the stopwatch are not
/// announced.
std::string announcement(const Contents& before, const Contents& now);

} // namespace chiffrolo
