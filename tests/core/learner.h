// SPDX-License-Identifier: MIT
#pragma once

#include "recording/player.h"

#include <string>
#include <vector>

namespace chiffrolo::test {

/// Someone who sits before the program: acts by the lines of a scenario, and tells what is to be seen.
class Learner {
public:
  /// `scenario` is played at once, one command a line.
  explicit Learner(std::string_view scenario = {});

  void play(std::string_view scenario);

  /// What can be read on the active screen: "47 + 35 = ? | Score = 1".
  std::string reads();
  /// What a screen reader says of all that has happened since the last call.
  std::string hears() { return program().takeAnnouncement(); }
  /// The lines of the transcript since the last call that begin with one of `words`, joined by ", ".
  std::string effects(const std::vector<std::string_view>& words);
  /// The screens that were loaded, shown and unloaded since the last call: "load addition, activate
  /// addition".
  std::string moves() { return effects({"load", "activate", "unload", "end"}); }

  MODULE11& shared() { return player_.program().shared(); }
  Program& program() { return player_.program(); }

private:
  std::vector<std::string> transcript_;
  Player player_;
};

} // namespace chiffrolo::test
