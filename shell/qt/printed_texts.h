// SPDX-License-Identifier: MIT
#pragma once

#include "shell/qt/fonts.h"

#include <QImage>

#include <deque>

namespace chiffrolo::qt {

struct PrintedText {
  QString text;
  const TextFace* face{};
  QPointF topLeft;
  qreal ratio{1};
  bool operator==(const PrintedText&) const = default;
};

/// What lay under the texts that were drawn last. The same text at the same place, in another colour, takes
/// the place of the first: merely drawn on top, it would let the softened edges of the first shine through,
/// and erasing a text that way would leave its outline.
class PrintedTexts {
public:
  /// `text` is about to be drawn within `dots` of `image`.
  void prepare(const PrintedText& text, QRect dots, QImage& image);
  /// Something else was drawn within `dots`.
  void cover(QRect dots);
  void clear() { entries_.clear(); }

private:
  struct Entry {
    PrintedText text;
    QRect dots;
    QImage under;
  };

  std::deque<Entry> entries_; // none overlaps another
};

} // namespace chiffrolo::qt
