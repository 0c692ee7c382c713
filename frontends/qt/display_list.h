// SPDX-License-Identifier: MIT
#pragma once

#include "qt/fonts.h"

#include <QColor>

#include <functional>
#include <optional>
#include <variant>
#include <vector>

class QPainter;

namespace chiffrolo::qt {

struct PrintedText {
  QString text;
  const TextFace* face{};
  QPointF topLeft;
  bool operator==(const PrintedText&) const = default;
};

/// A box and an ellipse lie between two corners of any order.
struct Figure {
  enum class Form : std::uint8_t { segment, box, ellipse };
  enum class Inside : std::uint8_t { empty, filled };

  Form form{};
  QPointF from;
  QPointF to;
  int thickness{1};
  Inside inside{};
  bool operator==(const Figure&) const = default;
};

/// One thing drawn. Lengths are in pixels of the layout.
struct Drawing {
  std::variant<PrintedText, Figure> shape;
  QColor colour;
  QColor fill{}; ///< of a filled figure

  /// The colour of a box that is of one colour only.
  std::optional<QColor> flatColour() const;
  /// What it paints on, its softened edges left out; empty for blanks.
  QRectF ink() const;
};

/// All that can be seen on a surface, as what was drawn there: it is painted anew at any scale. What
/// something later hides or replaces is forgotten, so that the list stays short however long it is drawn on.
class DisplayList {
public:
  explicit DisplayList(QColor background) : background_(background) {}

  struct Change {
    QRectF area;  ///< all that may look different from before
    QRectF drawn; ///< what was drawn to be seen; empty for an erasure
  };

  /// The same shape at the same place replaces the earlier one: merely drawn on top, it would let the
  /// softened edges of the first shine through, and erasing a text in the colour of its ground would leave
  /// its outline.
  Change add(const Drawing& drawing);
  void clear(QColor background);

  /// Paints in dots, of which there are `ratio` to a pixel, everything whose ink `isSeen`.
  void paint(QPainter& painter, qreal ratio, const std::function<bool(const QRectF& ink)>& isSeen) const;

  QColor background() const { return background_; }
  std::size_t size() const { return entries_.size(); }

private:
  struct Entry {
    Drawing drawing;
    QRectF ink;
    std::optional<QColor> flat;

    bool isReplacedBy(const Entry& later) const;
    /// The colour of `area`, if the entry fills all of it with one.
    std::optional<QColor> colourOf(const QRectF& area) const;
  };

  QRectF areaChangedBy(const Entry& added) const;
  std::optional<QColor> groundOf(const QRectF& area) const;

  QColor background_;
  std::vector<Entry> entries_; // the topmost is the last
};

} // namespace chiffrolo::qt
