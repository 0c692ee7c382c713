// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QRgb>

#include <vector>

namespace chiffrolo::qt {

/// The areas of a picture that are known to be of one colour. Each key press erases what is blank already,
/// and to know that is faster than to look at every dot.
class FlatAreas {
public:
  bool has(QRect dots, QRgb colour) const;
  /// `dots` were filled with `colour`.
  void fill(QRect dots, QRgb colour);
  /// Something else was drawn within `dots`.
  void disturb(QRect dots);
  void clear() { areas_.clear(); }

private:
  struct Area {
    QRect dots;
    QRgb colour;
  };

  std::vector<Area> areas_;
};

} // namespace chiffrolo::qt
