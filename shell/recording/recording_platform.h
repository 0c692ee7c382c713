// SPDX-License-Identifier: MIT
#pragma once

#include "shell/platform.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace chiffrolo {

class RecordingWindow;

/// A platform without a screen: it tells every effect of the program in one line of text each. Every inner
/// area is 960 points wide and 720 high; every character is (size + 1) / 2 points wide and every line
/// 1.25 × size high. Its clock stands still until `wait`.
class RecordingPlatform final : public Platform {
public:
  /// Takes one line of the transcript, without its line end.
  using Sink = std::function<void(std::string_view line)>;

  /// An empty sink records nothing, and then no line is even composed.
  explicit RecordingPlatform(Sink sink);

  std::unique_ptr<Window> createWindow(const ScreenLayout& layout, Events& events) noexcept override;
  /// The same always: runs are repeatable.
  std::uint64_t timeOfDay() const noexcept override { return 0; }
  void quit() noexcept override;

  bool hasQuit() const { return hasQuit_; }
  /// What happens from now on, such as the end of an unfinished program, is not recorded.
  void stopRecording() { sink_ = {}; }

  /// The clock advances by `duration`, 0 or more; timers that are due on the way tick in their order.
  void wait(std::chrono::milliseconds duration);

private:
  friend class RecordingWindow;

  struct RunningTimer {
    const RecordingWindow* window;
    ControlIndex control;
    std::chrono::milliseconds due;
    std::chrono::milliseconds interval;
  };

  bool records() const { return static_cast<bool>(sink_); }
  RunningTimer* find(const RecordingWindow& window, ControlIndex control);

  Sink sink_;
  bool hasQuit_{false};
  std::chrono::milliseconds now_{};
  std::vector<RunningTimer> timers_; // in the order in which they were last turned on
};

} // namespace chiffrolo
