// SPDX-License-Identifier: MIT
#pragma once

/// Converts units and values of the boundary to those of Qt. Pixels are logical pixels, 96 per inch; the
/// pixel ratio of the screen does not change them.

#include "platform.h"

#include <QColor>
#include <QPointF>
#include <QRect>
#include <QString>

namespace chiffrolo::qt {

constexpr qreal pixelsPerPoint = 96.0 / 72.0;
constexpr qreal pixelsPerTwip = pixelsPerPoint / twipsPerPoint;

constexpr qreal toPixels(Points points) { return qreal{points} * pixelsPerPoint; }
constexpr Points toPoints(qreal pixels) { return static_cast<Points>(pixels / pixelsPerPoint); }

inline QPointF toPixels(Point point) { return {toPixels(point.x), toPixels(point.y)}; }

/// `scale` is pixels of the result per pixel of the layout. Both edges are rounded, so that areas that touch
/// in the layout also touch on the screen.
inline QRect toPixels(const TwipsRectangle& place, qreal scale = 1) {
  const auto edge = [scale](Twips twips) { return qRound(twips * pixelsPerTwip * scale); };
  const QPoint topLeft{edge(place.left), edge(place.top)};
  const QPoint past{edge(place.left + place.width), edge(place.top + place.height)};
  return {topLeft, QSize{past.x() - topLeft.x(), past.y() - topLeft.y()}};
}

inline QColor toQt(Colour colour) { return {colour.red, colour.green, colour.blue}; }

inline QString toQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace chiffrolo::qt
