// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRect>

namespace chiffrolo::qt {

/// The rectangle that holds all dots that are meant.
template <typename Predicate> QRect areaOf(const QImage& image, Predicate isMeant) {
  QRect area;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (isMeant(image.pixel(x, y))) area |= QRect{x, y, 1, 1};
  return area;
}

} // namespace chiffrolo::qt
