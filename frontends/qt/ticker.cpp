// SPDX-License-Identifier: MIT
#include "qt/ticker.h"

#include <algorithm>

namespace chiffrolo::qt {

Ticker::Ticker() {
  alarm_.setTimerType(Qt::PreciseTimer);
  alarm_.setSingleShot(true);
  QObject::connect(&alarm_, &QTimer::timeout, &alarm_, [this] { deliverDue(); });
}

void Ticker::start(TimerId timer, std::chrono::milliseconds interval) {
  queue_.start(timer, interval, now());
  arm();
}

void Ticker::stop(TimerId timer) {
  queue_.stop(timer);
  arm();
}

void Ticker::stopAll(const TickReceiver& receiver) {
  queue_.stopAll(receiver);
  arm();
}

void Ticker::shutDown() {
  queue_.clear();
  arm();
}

/// Ticks that become due meanwhile wait for the next iteration of the event loop, so that keys are handled in
/// between.
void Ticker::deliverDue() {
  const Instant until = Clock::now();
  while (const auto due = queue_.takeDue(until)) {
    const HeldInstant instant{*this};
    due->receiver->tick(due->control);
  }
  arm();
}

void Ticker::arm() {
  using namespace std::chrono;
  const auto due = queue_.nextDue();
  if (due)
    alarm_.start(std::max(ceil<milliseconds>(*due - Clock::now()), 0ms));
  else
    alarm_.stop();
}

Ticker::HeldInstant::HeldInstant(Ticker& ticker) : ticker_(ticker), outer_(ticker.held_) {
  ticker_.held_ = ticker_.now();
}

Ticker::HeldInstant::~HeldInstant() { ticker_.held_ = outer_; }

} // namespace chiffrolo::qt
