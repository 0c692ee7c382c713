// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "timer_queue.h"
#include "web/page_functions.h"

namespace chiffrolo::web {

/// Passes what the program does to the page, and keeps the timers. Only `setTime` moves its clock.
class WebPlatform final : public Platform {
public:
  explicit WebPlatform(page::GameNumber game) : game_(game) {}

  std::unique_ptr<Window> createWindow(const ScreenLayout& layout, Events& events) noexcept override;
  /// Random bits, because many computers of a classroom may start the program in the same instant.
  std::uint64_t timeOfDay() const noexcept override { return page::randomSeed(game_); }
  void quit() noexcept override;

  page::GameNumber game() const { return game_; }

  void setTime(Instant now) { now_ = now; }
  /// Delivers the ticks that are due, in the order in which they are due.
  void deliverDueTicks();
  /// Nothing if no timer is running.
  std::optional<Instant> nextDue() const { return timers_.nextDue(); }

private:
  friend class WebWindow;

  page::GameNumber game_;
  Instant now_{};
  TimerQueue timers_;
};

} // namespace chiffrolo::web
