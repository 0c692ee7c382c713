// SPDX-License-Identifier: MIT
#include "qt/zoom.h"

#include <algorithm>
#include <array>

namespace chiffrolo::qt {

namespace {

constexpr std::array levels{1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0};

/// X11 and Wayland: the physical key of the zero, which types "à" on a French keyboard.
constexpr quint32 scanCodeOfZero = 19;

bool isZero(const QKeyEvent& press, NativeCodes codes) {
  const bool isOnKeypad = press.modifiers().testFlag(Qt::KeypadModifier);
  return press.key() == Qt::Key_0 ||
         (codes == NativeCodes::ofX11 && press.nativeScanCode() == scanCodeOfZero) ||
         (isOnKeypad && press.key() == Qt::Key_Insert); // without Num Lock
}

} // namespace

std::optional<ZoomStep> zoomStep(const QKeyEvent& press, NativeCodes codes) {
  constexpr auto others = Qt::AltModifier | Qt::MetaModifier;
  if (!press.modifiers().testFlag(Qt::ControlModifier) || (press.modifiers() & others)) return std::nullopt;
  if (isZero(press, codes)) return ZoomStep::normal;
  switch (press.key()) {
  case Qt::Key_Plus:
  case Qt::Key_Equal: return ZoomStep::larger; // "+" is on the key of "="
  case Qt::Key_Minus: return ZoomStep::smaller;
  default: return std::nullopt;
  }
}

void Zoom::take(ZoomStep step) {
  switch (step) {
  case ZoomStep::larger: level_ = std::min(level_ + 1, levels.size() - 1); break;
  case ZoomStep::smaller: level_ -= std::min<std::size_t>(level_, 1); break;
  case ZoomStep::normal: level_ = 0; break;
  }
}

qreal Zoom::factor() const { return levels.at(level_); }

} // namespace chiffrolo::qt
