// SPDX-License-Identifier: MIT
#include "shell/qt/drawing_surface.h"

#include "shell/qt/dots.h"

#include <QPaintEvent>
#include <QPainter>

namespace chiffrolo::qt {

namespace {

QRectF around(const QRectF& shape, int thickness) {
  const qreal margin = thickness / 2.0 + 1;
  return shape.adjusted(-margin, -margin, margin, margin);
}

QPen roundPen(QColor colour, int thickness) {
  return {colour, qreal(thickness), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

} // namespace

DrawingSurface::DrawingSurface(QColor background, QWidget* parent) : QWidget(parent), picture_(background) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void DrawingSurface::drawText(QPointF topLeft, const QString& text, const TextFace& face, QColor colour) {
  auto& image = picture().image();
  const QRectF area = face.inkArea(text).translated(topLeft);
  texts_.prepare({text, &face, topLeft, picture_.ratio()}, dotsOf(area), image);
  flat_.disturb(dotsOf(area));
  QPainter painter{&image};
  painter.setPen(colour);
  face.draw(painter, topLeft, text);
  update(area.toAlignedRect());
}

void DrawingSurface::drawSegment(QPointF from, QPointF to, int thickness, QColor colour) {
  const DotGrid grid{picture().ratio(), thickness};
  const auto area = QRectF{from, to}.normalized();
  if (grid.isStraight(from, to)) {
    this->fill(grid.outer(area), colour);
    return;
  }
  QPainter painter{&picture().image()};
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(roundPen(colour, thickness));
  painter.drawLine(from, to);
  cover(around(area, thickness));
}

void DrawingSurface::drawBox(QPointF corner, QPointF opposite, int thickness, QColor outline,
                             std::optional<QColor> fill) {
  const DotGrid grid{picture().ratio(), thickness};
  const QRect outer = grid.outer(QRectF{corner, opposite}.normalized());
  if (fill) this->fill(outer, *fill);
  if (fill == outline) return;
  for (const auto& side : grid.sides(outer))
    this->fill(side, outline);
}

void DrawingSurface::drawEllipse(QPointF centre, QSizeF radii, int thickness, QColor outline,
                                 std::optional<QColor> fill) {
  QPainter painter{&picture().image()};
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(roundPen(outline, thickness));
  if (fill) painter.setBrush(*fill);
  painter.drawEllipse(centre, radii.width(), radii.height());
  const QPointF corner{radii.width(), radii.height()};
  cover(around({centre - corner, centre + corner}, thickness));
}

void DrawingSurface::clear(QColor background) {
  picture().clear(background);
  texts_.clear();
  flat_.clear();
  update();
}

void DrawingSurface::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter{this};
  picture().paint(painter);
}

RetainedPicture& DrawingSurface::picture() {
  if (picture_.ratio() != devicePixelRatioF()) flat_.clear();
  picture_.fit(size(), devicePixelRatioF());
  return picture_;
}

void DrawingSurface::fill(QRect dots, QColor colour) {
  auto& image = picture().image();
  const QRect visible = dots & image.rect();
  if (flat_.has(visible, colour.rgb())) return;
  const QRect changed = fillDots(image, visible, colour.rgb());
  flat_.fill(visible, colour.rgb());
  texts_.cover(dots);
  update(areaOf(changed).toAlignedRect());
}

void DrawingSurface::cover(const QRectF& area) {
  const QRect dots = dotsOf(area);
  texts_.cover(dots);
  flat_.disturb(dots);
  update(area.toAlignedRect());
}

QRectF DrawingSurface::areaOf(QRect dots) const {
  const qreal ratio = picture_.ratio();
  return {QPointF{dots.topLeft()} / ratio, QSizeF{dots.size()} / ratio};
}

QRect DrawingSurface::dotsOf(const QRectF& area) const {
  const qreal ratio = picture_.ratio();
  return QRectF{area.topLeft() * ratio, area.size() * ratio}.toAlignedRect();
}

} // namespace chiffrolo::qt
