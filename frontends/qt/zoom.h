// SPDX-License-Identifier: MIT
#pragma once

#include "qt/keys.h"

#include <cstdint>
#include <optional>

namespace chiffrolo::qt {

enum class ZoomStep : std::uint8_t { larger, smaller, normal };

/// The zoom step of a key press; nothing if the key does not zoom.
std::optional<ZoomStep> zoomStep(const QKeyEvent& press, NativeCodes codes = nativeCodes());

/// The zoom factor that the learner has chosen.
class Zoom {
public:
  /// A step beyond either end of the range has no effect.
  void take(ZoomStep step);
  /// From 1 to 3.
  qreal factor() const;

private:
  std::size_t level_{};
};

} // namespace chiffrolo::qt
