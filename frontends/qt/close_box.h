// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace chiffrolo::qt {

/// The cross in the corner of a tool window; never takes the focus from where the keys are meant to go.
class CloseBox final : public QAbstractButton {
public:
  explicit CloseBox(QWidget* parent);

private:
  void paintEvent(QPaintEvent* event) override;
};

} // namespace chiffrolo::qt
