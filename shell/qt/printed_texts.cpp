// SPDX-License-Identifier: MIT
#include "shell/qt/printed_texts.h"

#include <algorithm>

namespace chiffrolo::qt {

namespace {

/// More than are ever drawn between a text and the one that replaces it.
constexpr std::size_t mostEntries = 16;

/// Dot by dot, both opaque and of the same depth.
void putBack(const QImage& under, QPoint topLeft, QImage& image) {
  for (int y = 0; y < under.height(); ++y) {
    const auto* const from = reinterpret_cast<const QRgb*>(under.constScanLine(y));
    auto* const to = reinterpret_cast<QRgb*>(image.scanLine(topLeft.y() + y)) + topLeft.x();
    std::copy_n(from, under.width(), to);
  }
}

} // namespace

void PrintedTexts::prepare(const PrintedText& text, QRect dots, QImage& image) {
  const auto first = std::ranges::find(entries_, text, &Entry::text);
  if (first != entries_.end()) {
    putBack(first->under, first->dots.topLeft(), image);
    return;
  }
  cover(dots);
  const QRect visible = dots & image.rect();
  if (visible.isEmpty()) return;
  entries_.push_back({text, visible, image.copy(visible)});
  if (entries_.size() > mostEntries) entries_.pop_front();
}

void PrintedTexts::cover(QRect dots) {
  std::erase_if(entries_, [&](const Entry& entry) { return entry.dots.intersects(dots); });
}

} // namespace chiffrolo::qt
