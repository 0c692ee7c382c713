// SPDX-License-Identifier: MIT
#pragma once

#include "recording/player.h"

#include <string>
#include <vector>

namespace chiffrolo::test {

/// Plays scenarios and returns what is visible, what is announced and the transcript.
class ScenarioSession {
public:
  /// Plays `scenario`, one command per line.
  explicit ScenarioSession(std::string_view scenario = {});

  void play(std::string_view scenario);

  /// The visible texts of the active screen: "47 + 35 = ? | Score = 1".
  std::string visibleText();
  /// What a screen reader reads of the active screen: "47 plus 35 égale ? | Score égale 1".
  std::string spokenText();
  /// What a screen reader announces of the changes since the last call.
  std::string takeAnnouncement() { return program().takeAnnouncement(); }
  /// The transcript lines since the last call that begin with one of `prefixes`, joined by ", ".
  std::string takeEffects(const std::vector<std::string_view>& prefixes);
  /// The screens loaded, activated and unloaded, and the end of the program, since the last call of this
  /// function or `takeEffects`: "load addition, activate addition".
  std::string takeScreenChanges() { return takeEffects({"load", "activate", "unload", "end"}); }

  MODULE11& shared() { return player_.program().shared(); }
  Program& program() { return player_.program(); }

private:
  std::vector<std::string> transcript_;
  Player player_;
};

} // namespace chiffrolo::test
