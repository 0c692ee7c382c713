// SPDX-License-Identifier: MIT
#include "shell/qt/dots.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <span>
#include <vector>

namespace chiffrolo::qt {

namespace {

struct Run {
  int first;
  int past;
};

bool same(std::span<const QRgb> dots, std::span<const QRgb> row, std::size_t first, std::size_t count) {
  return std::memcmp(&dots[first], &row[first], count * sizeof(QRgb)) == 0;
}

/// Where `dots` differ from `row`, from the first to the last of them. Both are of the same size, not 0.
Run difference(std::span<const QRgb> dots, std::span<const QRgb> row) {
  // In nearly all rows none does, and in the others few at the left: blocks are compared much faster than
  // dots.
  constexpr std::size_t block = 64;
  if (same(dots, row, 0, row.size())) return {0, 0};
  std::size_t past = row.size();
  while (past > block && same(dots, row, past - block, block))
    past -= block;
  while (dots[past - 1] == row[past - 1])
    --past;
  const auto first = std::ranges::mismatch(row, dots).in1 - row.begin();
  return {static_cast<int>(first), static_cast<int>(past)};
}

} // namespace

DotGrid::DotGrid(qreal ratio, int thickness)
    : ratio_(ratio), thickness_(std::max(1, qRound(thickness * ratio))) {}

/// The first dot across a stroke that is centred on `pixel`.
int DotGrid::first(qreal pixel) const {
  return static_cast<int>(std::floor(pixel * ratio_ - (thickness_ - 1) / 2.0));
}

QRect DotGrid::outer(const QRectF& area) const {
  const QPoint topLeft{first(area.left()), first(area.top())};
  const QPoint past{first(area.right()) + thickness_, first(area.bottom()) + thickness_};
  return {topLeft, QSize{past.x() - topLeft.x(), past.y() - topLeft.y()}};
}

std::array<QRect, 4> DotGrid::sides(const QRect& outer) const {
  const QSize across{outer.width(), thickness_};
  const QSize down{thickness_, outer.height()};
  return {QRect{outer.topLeft(), across}, QRect{outer.topLeft(), down},
          QRect{QPoint{outer.left(), outer.bottom() + 1 - thickness_}, across},
          QRect{QPoint{outer.right() + 1 - thickness_, outer.top()}, down}};
}

bool DotGrid::isStraight(QPointF from, QPointF to) const {
  const QPointF across = (to - from) * ratio_;
  return std::min(std::abs(across.x()), std::abs(across.y())) < 0.5;
}

QRect fillDots(QImage& image, QRect area, QRgb colour) {
  const QRect visible = area & image.rect();
  if (visible.isEmpty()) return {};
  const std::vector<QRgb> row(static_cast<std::size_t>(visible.width()), colour);
  QRect changed;
  for (int y = visible.top(); y <= visible.bottom(); ++y) {
    auto* const dots = reinterpret_cast<QRgb*>(image.scanLine(y)) + visible.left();
    const auto [first, past] = difference({dots, row.size()}, row);
    if (first == past) continue;
    std::fill(dots + first, dots + past, colour);
    changed |= QRect{visible.left() + first, y, past - first, 1};
  }
  return changed;
}

} // namespace chiffrolo::qt
