// SPDX-License-Identifier: MIT
#include "screen/screen.h"

#include <algorithm>

namespace chiffrolo {

namespace {

std::string trimmed(std::string_view text) {
  const auto first = std::min(text.find_first_not_of(' '), text.size());
  return std::string(text.substr(first, text.find_last_not_of(' ') + 1 - first));
}

} // namespace

Screen::Screen(ScreenHost& host, const ScreenLayout& layout)
    : Surface(host.createWindow(layout), layout), shared(host.shared()), host_(host), layout_(layout),
      controls_(layout.controls.size(), nullptr) {}

void Screen::click(ControlIndex control) {
  if (!isTimer(control)) react(control);
}

void Screen::tick(ControlIndex control) {
  if (isTimer(control)) react(control);
}

bool Screen::isTimer(ControlIndex control) const {
  return control < controls_.size() && layout_.controls[control].kind == ControlKind::timer;
}

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

} // namespace chiffrolo
