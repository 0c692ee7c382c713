// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <QPixmap>

namespace chiffrolo::qt {

/// A picture of the program, sharp at any size. The file of the designed size is shown pixel by pixel; other
/// sizes are scaled from a large file, which is loaded when first needed.
class ScaledPicture {
public:
  explicit ScaledPicture(Picture picture);

  /// `size` is in device pixels.
  const QPixmap& ofSize(QSize size);
  /// `ratio` is device pixels per pixel of the designed size.
  const QPixmap& atScale(qreal ratio);

private:
  const char* large_;
  QPixmap designed_;
  QPixmap scaled_; // to the size that was last requested
};

} // namespace chiffrolo::qt
