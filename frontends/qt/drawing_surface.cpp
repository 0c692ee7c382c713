// SPDX-License-Identifier: MIT
#include "qt/drawing_surface.h"

#include "qt/device_pixels.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace chiffrolo::qt {

namespace {

bool isStraight(QPointF from, QPointF to) {
  const QPointF across = to - from;
  return std::min(std::abs(across.x()), std::abs(across.y())) < 0.5;
}

} // namespace

DrawingSurface::DrawingSurface(QColor background, QWidget* parent, std::function<void()> onDrawn)
    : QWidget(parent), picture_(background), onDrawn_(std::move(onDrawn)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void DrawingSurface::drawText(QPointF topLeft, const QString& text, const TextFace& face, QColor colour) {
  add({PrintedText{text, &face, topLeft}, colour});
}

void DrawingSurface::drawSegment(QPointF from, QPointF to, int thickness, QColor colour) {
  if (isStraight(from, to)) return drawBox(from, to, thickness, colour, colour);
  add({Figure{Figure::Form::segment, from, to, thickness}, colour});
}

void DrawingSurface::drawBox(QPointF corner, QPointF opposite, int thickness, QColor outline,
                             std::optional<QColor> fill) {
  add({Figure{Figure::Form::box, corner, opposite, thickness}, outline, fill});
}

void DrawingSurface::drawEllipse(QPointF centre, QSizeF radii, int thickness, QColor outline,
                                 std::optional<QColor> fill) {
  const QPointF corner{radii.width(), radii.height()};
  add({Figure{Figure::Form::ellipse, centre - corner, centre + corner, thickness}, outline, fill});
}

void DrawingSurface::clear(QColor background) {
  picture_.clear(background);
  drawn_ = {};
  update();
}

void DrawingSurface::setScale(qreal scale) {
  scale_ = scale;
  update();
}

void DrawingSurface::add(const Drawing& drawing) {
  const auto change = picture_.add(drawing);
  if (!change.area.isEmpty()) update(painted(change.area));
  if (change.drawn.isEmpty()) return;
  drawn_ |= change.drawn;
  onDrawn_();
}

void DrawingSurface::paintEvent(QPaintEvent* event) {
  QPainter painter{this};
  painter.fillRect(event->rect(), picture_.background());
  const qreal ratio = paintInDevicePixels(painter, size()).ratio * scale_;
  picture_.paint(painter, ratio, [&](const QRectF& ink) { return event->region().intersects(painted(ink)); });
}

QRect DrawingSurface::painted(const QRectF& ink) const {
  constexpr qreal softening =
      1; // how far antialiased edges reach at most, wherever they lie between device pixels
  return QRectF{ink.topLeft() * scale_, ink.size() * scale_}
      .adjusted(-softening, -softening, softening, softening)
      .toAlignedRect();
}

} // namespace chiffrolo::qt
