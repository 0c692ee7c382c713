// SPDX-License-Identifier: MIT
#pragma once

#include "shell/program.h"
#include "shell/recording/recording_platform.h"

#include <span>
#include <stdexcept>

namespace chiffrolo {

/// What is wrong with a line of a scenario.
class ScenarioError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// Plays scenarios: the program on the recording platform, told by commands what the learner does.
class Player {
public:
  /// Starts the program. `sink` takes the transcript line by line.
  explicit Player(RecordingPlatform::Sink sink);
  ~Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  /// Carries out one line of a scenario; a blank one and one that begins with # do nothing. Throws
  /// `ScenarioError`, before anything has happened, if the line is malformed.
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

  RecordingPlatform::Sink sink_;
  RecordingPlatform platform_;
  Program program_;
};

} // namespace chiffrolo
