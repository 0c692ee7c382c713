// SPDX-License-Identifier: MIT
#pragma once

#include "qt/display_list.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace chiffrolo::qt {

/// The drawing surface of a screen, below its controls. Positions are in pixels of the layout.
class DrawingSurface final : public QWidget {
public:
  /// `onDrawn` is called when something visible was drawn.
  DrawingSurface(
      QColor background, QWidget* parent, std::function<void()> onDrawn = [] {});

  void drawText(QPointF topLeft, const QString& text, const TextFace& face, QColor colour);
  void drawSegment(QPointF from, QPointF to, int thickness, QColor colour);
  void drawBox(QPointF corner, QPointF opposite, int thickness, QColor outline, std::optional<QColor> fill);
  void drawEllipse(QPointF centre, QSizeF radii, int thickness, QColor outline, std::optional<QColor> fill);
  void clear(QColor background);

  /// Pixels of the widget per pixel of the layout. 1 until it is set.
  void setScale(qreal scale);
  qreal scale() const { return scale_; }

  /// The area in which something visible was drawn since the last call, in pixels of the layout.
  QRectF takeDrawn() { return std::exchange(drawn_, {}); }
  const DisplayList& picture() const { return picture_; }

private:
  void paintEvent(QPaintEvent* event) override;

  void add(const Drawing& drawing);
  /// The area that must be repainted for `ink`, in pixels of the widget.
  QRect painted(const QRectF& ink) const;

  DisplayList picture_;
  qreal scale_{1};
  QRectF drawn_;
  std::function<void()> onDrawn_;
};

} // namespace chiffrolo::qt
