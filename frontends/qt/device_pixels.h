// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <array>

class QPainter;

namespace chiffrolo::qt {

/// Aligns strokes to device pixels, so that they are sharp and equally thick.
class DevicePixelGrid {
public:
  /// `ratio` is device pixels per pixel, `thickness` that of the strokes in pixels.
  DevicePixelGrid(qreal ratio, int thickness);

  /// The device pixels that a stroke around `area` (pixels) and its inside cover.
  QRect outer(const QRectF& area) const;
  /// The four sides of that stroke, in device pixels.
  std::array<QRect, 4> sides(const QRect& outer) const;

private:
  int first(qreal pixel) const;

  qreal ratio_;
  int thickness_; // in device pixels
};

/// The area of a widget on the device that it is painted on.
struct DevicePixels {
  QRect area;     ///< in device pixels, from its top left corner
  qreal ratio{1}; ///< device pixels per pixel of the widget
};

/// Sets up a painter that was just created for a widget of that size: from now on it paints in device pixels,
/// from the widget's top left corner.
DevicePixels paintInDevicePixels(QPainter& painter, QSize widget);

} // namespace chiffrolo::qt
