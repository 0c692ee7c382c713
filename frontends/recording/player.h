// SPDX-License-Identifier: MIT
#pragma once

#include "recording/recording_platform.h"
#include "screens.h"

#include <span>
#include <stdexcept>

namespace chiffrolo {

/// What is wrong with a line of a scenario.
class ScenarioError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// Plays scenarios: runs the program on the recording platform and carries out commands as the learner would.
class Player {
public:
  /// Starts the program. `sink` receives the transcript line by line.
  explicit Player(RecordingPlatform::Sink sink);
  ~Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  /// Carries out one line of a scenario; blank lines and lines that begin with # do nothing. Throws
  /// `ScenarioError` if the line is malformed; nothing has happened then.
  void play(std::string_view line);

  bool hasEnded() const { return platform_.hasQuit(); }
  Program& program() { return program_; }

private:
  using Arguments = std::span<const std::string_view>;

  void rnd(Arguments numbers);
  void key(Arguments names);
  void click(Arguments controls);
  void front(Arguments screens);
  void close(Arguments none);
  void wait(Arguments durations);
  void set(Arguments nameAndValues);
  void state(Arguments none);
  void layout(Arguments screens);

  RecordingPlatform::Sink sink_;
  RecordingPlatform platform_;
  Program program_;
};

} // namespace chiffrolo
