// SPDX-License-Identifier: MIT
#include "qt/device_pixels.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace chiffrolo::qt {

DevicePixelGrid::DevicePixelGrid(qreal ratio, int thickness)
    : ratio_(ratio), thickness_(std::max(1, qRound(thickness * ratio))) {}

/// The first device pixel across a stroke that is centred on `pixel`.
int DevicePixelGrid::first(qreal pixel) const {
  return static_cast<int>(std::floor(pixel * ratio_ - (thickness_ - 1) / 2.0));
}

QRect DevicePixelGrid::outer(const QRectF& area) const {
  const QPoint topLeft{first(area.left()), first(area.top())};
  const QPoint past{first(area.right()) + thickness_, first(area.bottom()) + thickness_};
  return {topLeft, QSize{past.x() - topLeft.x(), past.y() - topLeft.y()}};
}

std::array<QRect, 4> DevicePixelGrid::sides(const QRect& outer) const {
  const QSize across{outer.width(), thickness_};
  const QSize down{thickness_, outer.height()};
  return {QRect{outer.topLeft(), across}, QRect{outer.topLeft(), down},
          QRect{QPoint{outer.left(), outer.bottom() + 1 - thickness_}, across},
          QRect{QPoint{outer.right() + 1 - thickness_, outer.top()}, down}};
}

DevicePixels paintInDevicePixels(QPainter& painter, QSize widget) {
  const QTransform toDevicePixels = painter.deviceTransform();
  const QRectF place = toDevicePixels.mapRect(QRectF{{}, QSizeF{widget}});
  const QPoint topLeft = place.topLeft().toPoint();
  const QPoint past = place.bottomRight().toPoint();
  painter.setWorldTransform(QTransform::fromTranslate(topLeft.x(), topLeft.y()) * toDevicePixels.inverted());
  return {{0, 0, past.x() - topLeft.x(), past.y() - topLeft.y()}, toDevicePixels.m11()};
}

} // namespace chiffrolo::qt
