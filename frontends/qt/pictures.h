// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <QPixmap>

namespace chiffrolo::qt {

/// A picture of the program, as sharp at any size as its drawing: there is one for the size at which it is
/// designed, shown dot by dot, and a large one for all other sizes, loaded when one of them is asked for.
class ScaledPicture {
public:
  explicit ScaledPicture(Picture picture);

  /// In dots.
  const QPixmap& ofSize(QSize dots);
  /// With that many dots to each pixel of the picture as it is designed.
  const QPixmap& atScale(qreal ratio);

private:
  const char* large_;
  QPixmap designed_;
  QPixmap scaled_; // to the size that was asked for last
};

} // namespace chiffrolo::qt
