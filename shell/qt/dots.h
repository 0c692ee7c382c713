// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRectF>

#include <array>

namespace chiffrolo::qt {

/// Puts strokes on whole dots, where they are neither blurred nor of uneven thickness.
class DotGrid {
public:
  /// `ratio` is in dots per pixel, `thickness` of the strokes in pixels.
  DotGrid(qreal ratio, int thickness);

  /// What a stroke around `area` (pixels) covers, its inside too.
  QRect outer(const QRectF& area) const;
  /// The four parts of that stroke.
  std::array<QRect, 4> sides(const QRect& outer) const;
  /// Whether a stroke between these ends (pixels) is level or upright.
  bool isStraight(QPointF from, QPointF to) const;

private:
  int first(qreal pixel) const;

  qreal ratio_;
  int thickness_; // in dots
};

/// Fills `area` of an opaque image. Returns the part of it in which dots have changed their colour.
QRect fillDots(QImage& image, QRect area, QRgb colour);

} // namespace chiffrolo::qt
