// SPDX-License-Identifier: MIT
#include "qt/close_box.h"

#include <QPainter>

namespace chiffrolo::qt {

CloseBox::CloseBox(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_Hover);
  setAccessibleName(QStringLiteral("Fermer"));
  setToolTip(QStringLiteral("Fermer"));
}

void CloseBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter{this};
  painter.fillRect(rect(), palette().color(QPalette::Window));
  // Shades of the theme's own need not go with the colour of its texts.
  const QColor shade = palette().color(QPalette::WindowText);
  painter.setOpacity(isDown() ? 0.3 : underMouse() ? 0.15 : 0);
  painter.fillRect(rect(), shade);
  painter.setOpacity(1);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen({palette().color(QPalette::WindowText), 1.5});
  const qreal arm = height() / 5.0;
  const QPointF centre = QRectF{rect()}.center();
  painter.drawLine(centre - QPointF{arm, arm}, centre + QPointF{arm, arm});
  painter.drawLine(centre - QPointF{arm, -arm}, centre + QPointF{arm, -arm});
}

} // namespace chiffrolo::qt
