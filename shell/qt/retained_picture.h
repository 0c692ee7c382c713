// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>

class QPainter;

namespace chiffrolo::qt {

/// What was drawn on a surface. It outlives each change of the surface's size: it grows, but never loses what
/// a smaller surface cuts off. Memory is taken, and filled, only when something is drawn on it.
class RetainedPicture {
public:
  explicit RetainedPicture(QColor background) : background_(background) {}

  /// At least as large as `size` (pixels) from now on, with `ratio` dots to a pixel.
  void fit(QSize size, qreal ratio);
  /// What the picture grows by later is of that colour, too.
  void clear(QColor background);
  /// To draw on: in dots, opaque, with the ratio as its device pixel ratio.
  QImage& image();
  qreal ratio() const { return ratio_; }

  /// Paints as much as the clip of `painter` lets through, at the top left corner of a widget with that
  /// ratio.
  void paint(QPainter& painter) const;

private:
  void scaleTo(qreal ratio);
  void growTo(QSize dots);

  QColor background_;
  QSize dots_; // the image may still be smaller: all else is background
  QImage image_;
  qreal ratio_{1};
};

} // namespace chiffrolo::qt
