// SPDX-License-Identifier: MIT
#include "shell/screen.h"

#include <algorithm>
#include <cassert>

namespace chiffrolo {

namespace {

std::string trimmed(std::string_view text) {
  const auto first = std::min(text.find_first_not_of(' '), text.size());
  return std::string(text.substr(first, text.find_last_not_of(' ') + 1 - first));
}

} // namespace

Screen::Screen(Program& program, const ScreenLayout& layout)
    : Surface(program.platform().createWindow(layout, program), layout), shared(program.shared()),
      program_(program), layout_(layout), controls_(layout.controls.size(), nullptr) {}

void Screen::react(ControlIndex control) {
  if (control < controls_.size() && controls_[control] != nullptr) controls_[control]->react();
}

std::vector<std::string> Screen::labelCaptions() const {
  std::vector<std::string> captions;
  for (std::size_t row = 0; row < controls_.size(); ++row) {
    if (layout_.controls[row].kind != ControlKind::label) continue;
    const auto* const label = dynamic_cast<const Label*>(controls_[row]);
    captions.push_back(trimmed(label == nullptr ? layout_.controls[row].caption : label->caption()));
  }
  return captions;
}

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
