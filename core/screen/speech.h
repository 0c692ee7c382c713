// SPDX-License-Identifier: MIT
#pragma once

/// What a screen says to a learner who does not see it.

#include "platform.h"
#include "screen/visible_texts.h"

#include <optional>
#include <string>
#include <vector>

namespace chiffrolo {

/// A text in the words in which a child would read it out: "47 plus 35 égale ?", "juste : 6".
std::string spoken(const VisibleText& text);

/// All that stands on the active screen at one moment.
struct Contents {
  std::optional<ScreenName> screen;  ///< nothing when no screen is active, and then all else is empty
  std::string title;                 ///< what the screen is called
  std::vector<std::string> captions; ///< of its labels
  std::vector<VisibleText> texts;    ///< on its surface, in reading order
};

/// What is to be said once `before` has become `now`: all of a new screen; of the same screen what has
/// appeared, and of an answer that is being typed the answer alone. Empty when there is nothing to say: the
/// stopwatch goes on in silence.
std::string announcement(const Contents& before, const Contents& now);

} // namespace chiffrolo
