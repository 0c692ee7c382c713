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

/// Boxes and ellipses lie between two opposite corners.
struct Figure {
  enum class Form : std::uint8_t { segment, box, ellipse };

  Form form{};
  QPointF from;
  QPointF to;
  int thickness{1};
  bool operator==(const Figure&) const = default;
};

/// One drawing operation. Lengths are in pixels of the layout.
struct Drawing {
  std::variant<PrintedText, Figure> shape;
  QColor colour;
  std::optional<QColor> fill{}; ///< of a box or an ellipse

  /// The colour of a box that has one colour only.
  std::optional<QColor> flatColour() const;
  /// The area that it paints on, without its antialiased edges; empty for blanks.
  QRectF ink() const;
};

/// The retained picture of a surface: the drawing operations from which it is painted at any scale.
/// Operations that are hidden or replaced by a later one are removed, so that the list stays short.
class DisplayList {
public:
  explicit DisplayList(QColor background) : background_(background) {}

  struct Change {
    QRectF area;  ///< where the picture may have changed
    QRectF drawn; ///< where something visible was drawn; empty for an erasure
  };

  /// The same shape at the same place replaces the earlier one: painted over it, the antialiased edges of the
  /// earlier one would shine through, and a text that is erased in the background colour would leave an
  /// outline.
  Change add(const Drawing& drawing);
  void clear(QColor background);

  /// Paints the operations whose ink `isSeen`, in device pixels; `ratio` is device pixels per pixel of the
  /// layout.
  void paint(QPainter& painter, qreal ratio, const std::function<bool(const QRectF& ink)>& isSeen) const;

  QColor background() const { return background_; }
  std::size_t size() const { return entries_.size(); }

private:
  struct Entry {
    Drawing drawing;
    QRectF ink;
    std::optional<QColor> flat;

    bool isReplacedBy(const Entry& later) const;
    /// The colour of `area`, if the entry fills all of it with one colour.
    std::optional<QColor> colourOf(const QRectF& area) const;
  };

  QRectF areaChangedBy(const Entry& added) const;
  std::optional<QColor> groundOf(const QRectF& area) const;

  QColor background_;
  std::vector<Entry> entries_; // the last one is on top
};

} // namespace chiffrolo::qt
