// SPDX-License-Identifier: MIT
#include "qt/zoom.h"

#include <algorithm>
#include <array>
#include <iterator>

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

std::optional<qreal> levelAbove(qreal factor) {
  const auto* const found = std::ranges::upper_bound(levels, factor);
  return found == levels.end() ? std::nullopt : std::optional(*found);
}

std::optional<qreal> levelBelow(qreal factor) {
  const auto* const found = std::ranges::lower_bound(levels, factor);
  return found == levels.begin() ? std::nullopt : std::optional(*std::prev(found));
}

/// Nothing if the step does not lead to a level.
std::optional<qreal> levelAfter(ZoomStep step, qreal factor) {
  switch (step) {
  case ZoomStep::larger: return levelAbove(factor);
  case ZoomStep::smaller: return levelBelow(factor);
  case ZoomStep::normal: return levels.front();
  case ZoomStep::fill: break;
  }
  return std::nullopt;
}

} // namespace

std::optional<ZoomStep> zoomStep(const QKeyEvent& press, NativeCodes codes) {
  const auto command = press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (press.key() == Qt::Key_F11 && !command) return ZoomStep::fill;
  if (command != Qt::ControlModifier) return std::nullopt;
  if (isZero(press, codes)) return ZoomStep::normal;
  switch (press.key()) {
  case Qt::Key_Plus:
  case Qt::Key_Equal: return ZoomStep::larger; // "+" is on the key of "="
  case Qt::Key_Minus: return ZoomStep::smaller;
  default: return std::nullopt;
  }
}

Zoom Zoom::filling() {
  Zoom zoom;
  zoom.fills_ = true;
  return zoom;
}

void Zoom::take(ZoomStep step, qreal fillFactor) {
  if (step == ZoomStep::fill) fills_ = !fills_;
  if (const auto level = levelAfter(step, factor(fillFactor))) *this = Zoom{*level};
}

} // namespace chiffrolo::qt
