// SPDX-License-Identifier: MIT
#include "screen/controls.h"

#include "screen/screen.h"

#include <algorithm>
#include <cassert>

namespace chiffrolo {

Control::Control(Screen& screen, std::string_view name, std::function<void()> handler)
    : screen_(screen), handler_(std::move(handler)) {
  const auto& rows = screen.layout().controls;
  const auto row = std::ranges::find(rows, name, &ControlLayout::name);
  assert(row != rows.end());
  index_ = static_cast<ControlIndex>(row - rows.begin());
  screen.controls_[index_] = this;
}

const ControlLayout& Control::design() const { return screen_.layout().controls[index_]; }

Window& Control::window() const { return screen_.window(); }

void Control::react() const {
  if (reacts() && handler_) handler_();
}

void Image::setVisible(Visibility visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  window().setVisible(index(), visible);
}

void Label::setCaption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  window().setCaption(index(), caption);
}

void Timer::turnOn() {
  if (enabled_ == Switch::on) return;
  enabled_ = Switch::on;
  window().startTimer(index(), interval_);
}

void Timer::turnOff() {
  if (enabled_ == Switch::off) return;
  enabled_ = Switch::off;
  window().stopTimer(index());
}

void Timer::setInterval(std::chrono::milliseconds interval) {
  interval_ = interval;
  if (enabled_ == Switch::on) window().startTimer(index(), interval_);
}

} // namespace chiffrolo
