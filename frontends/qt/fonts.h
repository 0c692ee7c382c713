// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <QFont>
#include <QFontMetricsF>

#include <map>
#include <string>
#include <tuple>

class QPainter;

namespace chiffrolo::qt {

/// Finds the installed families, for all threads. Takes long the first time.
void findFaces();

/// The font of a caption, in whole pixels. Waits until the installed families are found.
QFont captionFont(const Font& font);
/// The same, or the largest smaller font in which `caption`, wrapped between words, fits into `room`
/// (pixels): a substitute for a missing face may be wider.
QFont fittingFont(const Font& font, const QString& caption, QSize room);

/// A font for drawing. All lengths are in pixels and have the face's exact proportions: because Qt rounds
/// font sizes to whole pixels and hinting rounds widths, text is drawn in a multiple of its size, without
/// hinting, and scaled down.
class TextFace {
public:
  explicit TextFace(const Font& font);

  qreal width(const QString& text) const;
  qreal lineHeight() const { return metrics_.height() * scale_; }
  qreal averageCharacterWidth() const { return metrics_.averageCharWidth() * scale_; }

  /// The area that `draw` paints on, relative to `topLeft`; empty for blanks.
  QRectF inkArea(const QString& text) const;
  /// Uses the pen of `painter`.
  void draw(QPainter& painter, QPointF topLeft, const QString& text) const;

private:
  static constexpr int multiple_ = 3; // whole pixels for all sizes that are multiples of 1/4 point
  static constexpr qreal scale_ = 1.0 / multiple_;

  struct Cell {
    qreal width{};
    QRectF ink; // relative to the top left corner of the cell
  };
  const Cell& cell(QChar character) const;

  QFont font_;
  QFontMetricsF metrics_;
  mutable std::map<QChar, Cell> cells_; // of the characters measured so far
};

/// The fonts that the screens draw with, each created once: creating one takes longer than a key press may.
class FontCache {
public:
  /// Valid as long as the cache.
  const TextFace& face(const Font& font);

private:
  using Key = std::tuple<std::string, Points, Weight, Slant>;

  std::map<Key, TextFace> faces_;
};

} // namespace chiffrolo::qt
