// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <array>

class QPainter;

namespace chiffrolo::qt {

/// Puts strokes on whole dots, where they are neither blurred nor of uneven thickness.
class DevicePixelGrid {
public:
  /// `ratio` is in dots per pixel, `thickness` of the strokes in pixels.
  DevicePixelGrid(qreal ratio, int thickness);

  /// What a stroke around `area` (pixels) covers, its inside too.
  QRect outer(const QRectF& area) const;
  /// The four parts of that stroke.
  std::array<QRect, 4> sides(const QRect& outer) const;

private:
  int first(qreal pixel) const;

  qreal ratio_;
  int thickness_; // in dots
};

/// A widget in dots of the device that it is painted on.
struct DevicePixels {
  QRect area;     ///< from its top left dot
  qreal ratio{1}; ///< dots to a pixel of the widget
};

/// From now on, `painter`, fresh in a widget of that size, paints in whole dots from the top left one of the
/// widget, wherever the widget lies and however many dots make a pixel.
DevicePixels paintInDevicePixels(QPainter& painter, QSize widget);

} // namespace chiffrolo::qt
