// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRect>

namespace chiffrolo::qt {

/// The bounding rectangle of the pixels that `matches` accepts.
template <typename Predicate> QRect boundingRect(const QImage& image, Predicate matches) {
  QRect area;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (matches(image.pixel(x, y))) area |= QRect{x, y, 1, 1};
  return area;
}

} // namespace chiffrolo::qt
