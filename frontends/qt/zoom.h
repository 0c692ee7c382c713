// SPDX-License-Identifier: MIT
#pragma once

#include "qt/keys.h"

#include <cstdint>
#include <optional>

namespace chiffrolo::qt {

/// `fill` switches between filling the display and the zoom as it was before.
enum class ZoomStep : std::uint8_t { larger, smaller, normal, fill };

/// The zoom step of a key press; nothing if the key does not zoom.
std::optional<ZoomStep> zoomStep(const QKeyEvent& press, NativeCodes codes = nativeCodes());

/// The zoom that the learner has chosen. `fillFactor`, 1 or more, is the factor that fills the display now.
class Zoom {
public:
  Zoom() = default;
  /// From 1 to 3.
  explicit Zoom(qreal factor) : factor_(factor) {}
  /// Fills the display.
  static Zoom filling();

  /// Goes to the next level above or below the present factor. If there is none, the step has no effect.
  void take(ZoomStep step, qreal fillFactor);
  /// 1 or more; more than 3 only while it fills the display.
  qreal factor(qreal fillFactor) const { return fills_ ? fillFactor : factor_; }

  bool operator==(const Zoom&) const = default;

private:
  qreal factor_{1}; // while it does not fill the display
  bool fills_{};
};

} // namespace chiffrolo::qt
