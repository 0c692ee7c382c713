// SPDX-License-Identifier: MIT
#pragma once

#include "shell/qt/flat_areas.h"
#include "shell/qt/fonts.h"
#include "shell/qt/printed_texts.h"
#include "shell/qt/retained_picture.h"

#include <QWidget>

#include <optional>

namespace chiffrolo::qt {

/// What a screen draws on, below its controls. Places are in pixels from its top left corner.
class DrawingSurface final : public QWidget {
public:
  DrawingSurface(QColor background, QWidget* parent);

  void drawText(QPointF topLeft, const QString& text, const TextFace& face, QColor colour);
  void drawSegment(QPointF from, QPointF to, int thickness, QColor colour);
  void drawBox(QPointF corner, QPointF opposite, int thickness, QColor outline, std::optional<QColor> fill);
  void drawEllipse(QPointF centre, QSizeF radii, int thickness, QColor outline, std::optional<QColor> fill);
  void clear(QColor background);

private:
  void paintEvent(QPaintEvent* event) override;

  /// The picture, in the size and with the ratio that the widget has now.
  RetainedPicture& picture();
  void fill(QRect dots, QColor colour);
  /// A shape was drawn within `area`.
  void cover(const QRectF& area);
  QRectF areaOf(QRect dots) const;
  QRect dotsOf(const QRectF& area) const;

  RetainedPicture picture_;
  PrintedTexts texts_;
  FlatAreas flat_;
};

} // namespace chiffrolo::qt
