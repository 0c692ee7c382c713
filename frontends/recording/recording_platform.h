// SPDX-License-Identifier: MIT
#pragma once

#include "timer_queue.h"

#include <cstdint>
#include <functional>
#include <string>

namespace chiffrolo {

class RecordingWindow;

/// A front end without a window: it prints what the program draws and shows. Every content area is 960 points
/// wide and 720 high. A character is (size + 1) / 2 points wide, a blank half of that, about the proportions
/// of real fonts; a line is 1.25 × size high. The clock advances only in `wait`.
class RecordingPlatform final : public Platform {
public:
  /// Receives one line of the transcript, without its line end.
  using Sink = std::function<void(std::string_view line)>;

  /// With an empty sink nothing is recorded, and no line is composed.
  /// Runs with the same `timeOfDay` and the same events are equal.
  explicit RecordingPlatform(Sink sink, std::uint64_t timeOfDay = 0);

  std::unique_ptr<Window> createWindow(const ScreenLayout& layout, Events& events) noexcept override;
  std::uint64_t timeOfDay() const noexcept override { return timeOfDay_; }
  void quit() noexcept override;

  bool hasQuit() const { return hasQuit_; }
  /// From now on nothing is recorded; for instance when an unfinished program is destroyed.
  void stopRecording() { sink_ = {}; }

  /// Advances the clock by `duration`, 0 or more. Timers that become due tick in their order.
  void wait(std::chrono::milliseconds duration);

private:
  friend class RecordingWindow;

  bool records() const { return static_cast<bool>(sink_); }

  Sink sink_;
  std::uint64_t timeOfDay_;
  bool hasQuit_{false};
  Instant now_{};
  TimerQueue timers_;
};

} // namespace chiffrolo
