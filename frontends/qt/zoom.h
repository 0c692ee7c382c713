// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>

#include <cstdint>
#include <optional>

namespace chiffrolo::qt {

enum class ZoomStep : std::uint8_t { larger, smaller, normal };

/// What a key press means to the zoom, on French and other keyboards; nothing for a key of the program's.
std::optional<ZoomStep> zoomStep(const QKeyEvent& press);

/// How much larger than normal everything is shown, for children who see poorly.
class Zoom {
public:
  /// No step leads beyond either end.
  void take(ZoomStep step);
  /// From 1 to 3.
  qreal factor() const;

private:
  std::size_t level_{};
};

} // namespace chiffrolo::qt
