// SPDX-License-Identifier: MIT
#include "qt/display_list.h"

#include "qt/device_pixels.h"

#include <QPainter>

#include <algorithm>

namespace chiffrolo::qt {

namespace {

bool isBox(const Figure& figure) { return figure.form == Figure::Form::box; }

QRectF inkOf(const PrintedText& printed) {
  return printed.face->inkArea(printed.text).translated(printed.topLeft);
}

QRectF inkOf(const Figure& figure) {
  const qreal margin = figure.thickness / 2.0;
  return QRectF{figure.from, figure.to}.normalized().adjusted(-margin, -margin, margin, margin);
}

void paintBox(QPainter& painter, qreal ratio, const Figure& box, const Drawing& drawing) {
  const DevicePixelGrid grid{ratio, box.thickness};
  const QRect outer = grid.outer(QRectF{box.from, box.to}.normalized());
  if (drawing.fill) painter.fillRect(outer, *drawing.fill);
  if (drawing.flatColour()) return;
  for (const auto& side : grid.sides(outer))
    painter.fillRect(side, drawing.colour);
}

void paintRound(QPainter& painter, const Figure& figure, const Drawing& drawing) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen({drawing.colour, qreal(figure.thickness), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
  painter.setBrush(drawing.fill ? QBrush{*drawing.fill} : QBrush{Qt::NoBrush});
  if (figure.form == Figure::Form::segment)
    painter.drawLine(figure.from, figure.to);
  else
    painter.drawEllipse(QRectF{figure.from, figure.to}.normalized());
}

void paintDrawing(QPainter& painter, qreal ratio, const Drawing& drawing) {
  const auto* const figure = std::get_if<Figure>(&drawing.shape);
  if (figure != nullptr && isBox(*figure)) return paintBox(painter, ratio, *figure, drawing);
  painter.save();
  painter.scale(ratio, ratio);
  if (figure != nullptr) {
    paintRound(painter, *figure, drawing);
  } else {
    const auto& printed = std::get<PrintedText>(drawing.shape);
    painter.setPen(drawing.colour);
    printed.face->draw(painter, printed.topLeft, printed.text);
  }
  painter.restore();
}

} // namespace

std::optional<QColor> Drawing::flatColour() const {
  const auto* const figure = std::get_if<Figure>(&shape);
  return figure != nullptr && isBox(*figure) && colour == fill ? fill : std::nullopt;
}

QRectF Drawing::ink() const {
  return std::visit([](const auto& known) { return inkOf(known); }, shape);
}

bool DisplayList::Entry::isReplacedBy(const Entry& later) const {
  if (drawing.shape == later.drawing.shape && drawing.fill.has_value() == later.drawing.fill.has_value())
    return true;
  const auto* const figure = std::get_if<Figure>(&later.drawing.shape);
  return figure != nullptr && isBox(*figure) && later.drawing.fill && later.ink.contains(ink);
}

std::optional<QColor> DisplayList::Entry::colourOf(const QRectF& area) const {
  const auto* const figure = std::get_if<Figure>(&drawing.shape);
  if (figure == nullptr || !isBox(*figure)) return std::nullopt;
  const qreal outline = flat ? 0 : figure->thickness;
  const bool fillsAll = ink.adjusted(outline, outline, -outline, -outline).contains(area);
  return fillsAll ? drawing.fill : std::nullopt;
}

DisplayList::Change DisplayList::add(const Drawing& drawing) {
  const Entry added{drawing, drawing.ink(), drawing.flatColour()};
  if (added.ink.isEmpty()) return {};
  Change change{areaChangedBy(added), {}};
  std::erase_if(entries_, [&](const Entry& earlier) { return earlier.isReplacedBy(added); });
  const bool isOfOneColour = added.flat || std::holds_alternative<PrintedText>(drawing.shape);
  if (isOfOneColour && groundOf(added.ink) == drawing.colour) return change;
  if (added.flat != background_) change.drawn = added.ink;
  entries_.push_back(added);
  return change;
}

void DisplayList::clear(QColor background) {
  background_ = background;
  entries_.clear();
}

void DisplayList::paint(QPainter& painter, qreal ratio,
                        const std::function<bool(const QRectF& ink)>& isSeen) const {
  for (const auto& entry : entries_)
    if (isSeen(entry.ink)) paintDrawing(painter, ratio, entry.drawing);
}

/// A box in the background colour changes only what has another colour: most of an erased band is blank
/// already.
QRectF DisplayList::areaChangedBy(const Entry& added) const {
  if (added.flat != background_) return added.ink;
  QRectF area;
  for (const auto& entry : entries_)
    if (entry.flat != added.flat) area |= entry.ink & added.ink;
  return area;
}

/// Nothing if the area has several colours.
std::optional<QColor> DisplayList::groundOf(const QRectF& area) const {
  const auto topmost = std::find_if(entries_.rbegin(), entries_.rend(),
                                    [&](const Entry& entry) { return entry.ink.intersects(area); });
  return topmost == entries_.rend() ? background_ : topmost->colourOf(area);
}

} // namespace chiffrolo::qt
