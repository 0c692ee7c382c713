// SPDX-License-Identifier: MIT
#include "qt/controls.h"

#include "qt/device_pixels.h"
#include "qt/drawing_surface.h"
#include "qt/fonts.h"
#include "qt/pictures.h"
#include "qt/units.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionButton>

namespace chiffrolo::qt {

namespace {

/// Fills the widget and draws an outline of one pixel of the layout.
void paintFrame(QPainter& painter, const DevicePixels& pixels, qreal scale, QColor outline, QColor fill) {
  const int thickness = std::max(1, qRound(pixels.ratio * scale));
  painter.fillRect(pixels.area, outline);
  painter.fillRect(pixels.area.adjusted(thickness, thickness, -thickness, -thickness), fill);
}

/// A picture that can be clicked.
class ImageControl final : public QAbstractButton {
public:
  ImageControl(const ControlLayout& row, DrawingSurface& surface)
      : QAbstractButton(&surface), picture_(row.picture) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    setHidden(row.visible == Visibility::hidden);
  }

private:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter{this};
    const auto pixels = paintInDevicePixels(painter, size());
    painter.drawPixmap(0, 0, picture_.ofSize(pixels.area.size()));
  }

  ScaledPicture picture_;
};

/// A shape, a line or a picture box: it is painted and does nothing.
class Decoration final : public QWidget {
public:
  Decoration(const ControlLayout& row, DrawingSurface& surface)
      : QWidget(&surface), row_(row), surface_(surface), picture_(row.picture) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }

private:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter{this};
    if (row_.kind == ControlKind::line && row_.place.width != 0 && row_.place.height != 0)
      return paintDiagonal(painter);
    const auto pixels = paintInDevicePixels(painter, size());
    switch (row_.kind) {
    case ControlKind::shape:
      return paintFrame(painter, pixels, surface_.scale(), toQt(row_.foreground), toQt(row_.background));
    case ControlKind::line: return painter.fillRect(pixels.area, toQt(row_.foreground));
    default:
      painter.fillRect(pixels.area, toQt(row_.background));
      painter.drawPixmap(0, 0, picture_.atScale(pixels.ratio * surface_.scale()));
    }
  }

  /// One pixel of the layout thick.
  void paintDiagonal(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen({toQt(row_.foreground), surface_.scale()});
    painter.drawLine(QRectF{rect()}.topLeft(), QRectF{rect()}.bottomRight());
  }

  const ControlLayout& row_;
  const DrawingSurface& surface_;
  ScaledPicture picture_;
};

/// Has the colours of the layout, not the theme's, and wraps its text at the same words at any scale.
class LabelControl final : public QLabel {
public:
  LabelControl(const ControlLayout& row, DrawingSurface& surface)
      : QLabel(&surface), row_(row), surface_(surface) {
    setTextFormat(Qt::PlainText);
    setText(toQt(row.caption));
  }

private:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter{this};
    paintGround(painter);
    painter.scale(surface_.scale(), surface_.scale());
    painter.setFont(fittingFont(row_.font, text(), inside().size()));
    painter.setPen(toQt(row_.foreground));
    const int across = row_.alignment == Alignment::centred ? Qt::AlignHCenter : Qt::AlignLeft;
    painter.drawText(inside(), across | Qt::AlignTop | Qt::TextWordWrap, text());
  }

  /// In pixels of the layout.
  QRect inside() const {
    const int border = row_.border == Border::thin ? 1 : 0;
    return QRect{{}, toPixels(row_.place).size()}.adjusted(border, border, -border, -border);
  }

  void paintGround(QPainter& painter) const {
    painter.save();
    const QColor background = toQt(row_.background);
    const QColor outline = row_.border == Border::thin ? toQt(row_.foreground) : background;
    paintFrame(painter, paintInDevicePixels(painter, size()), surface_.scale(), outline, background);
    painter.restore();
  }

  const ControlLayout& row_;
  const DrawingSurface& surface_;
};

/// Draws a ring when it has the focus, because some styles hardly show that.
class ButtonControl final : public QPushButton {
public:
  ButtonControl(const ControlLayout& row, DrawingSurface& surface)
      : QPushButton(&surface), row_(row), surface_(surface) {
    setText(toQt(row.caption).replace(u'&', QStringLiteral("&&"))); // an ampersand, not a shortcut
    setToolTip(toQt(row.tooltip));
    setAutoDefault(true); // Enter clicks it, not only the space bar
  }

private:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter{this};
    QStyleOptionButton option;
    initStyleOption(&option);
    style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
    painter.scale(surface_.scale(), surface_.scale());
    painter.setFont(fittingFont(row_.font, toQt(row_.caption), place().size() - ring));
    option.rect = place();
    style()->drawControl(QStyle::CE_PushButtonLabel, &option, &painter, this);
    if (hasFocus()) paintRing(painter);
  }

  /// In pixels of the layout.
  QRect place() const { return {{}, toPixels(row_.place).size()}; }

  void paintRing(QPainter& painter) const {
    constexpr qreal thickness = 2;
    constexpr qreal inset = 2.5;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen({palette().color(QPalette::Highlight), thickness});
    painter.drawRoundedRect(QRectF{place()}.adjusted(inset, inset, -inset, -inset), inset, inset);
  }

  static constexpr QSize ring{8, 8}; // what the ring takes from the width and the height

  const ControlLayout& row_;
  const DrawingSurface& surface_;
};

/// Qt 6.4, all platforms: a button that is hidden while the mouse is pressed on it still gets the moves and
/// the release of the mouse, and is clicked, even if another page is visible by then. So it gets a release at
/// once, which does not click it because it is not down.
class PressEnder final : public QObject {
public:
  using QObject::QObject;

private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Hide) return false;
    static_cast<QAbstractButton&>(*watched).setDown(false);
    QMouseEvent release{QEvent::MouseButtonRelease, {}, {}, Qt::LeftButton, Qt::NoButton, Qt::NoModifier};
    watched->event(&release);
    return false;
  }
};

QWidget* createWidget(const ControlLayout& row, DrawingSurface& surface) {
  switch (row.kind) {
  case ControlKind::label: return new LabelControl(row, surface);
  case ControlKind::button: return new ButtonControl(row, surface);
  case ControlKind::image: return new ImageControl(row, surface);
  case ControlKind::line:
  case ControlKind::shape:
  case ControlKind::pictureBox: return new Decoration(row, surface);
  case ControlKind::timer: break;
  }
  return nullptr;
}

} // namespace

QWidget* createControl(const ControlLayout& row, DrawingSurface& surface,
                       const std::function<void()>& clicked) {
  QWidget* const control = createWidget(row, surface);
  if (control == nullptr) return nullptr;
  control->setAccessibleName(toQt(row.accessibleName));
  placeControl(*control, row, surface.scale());
  if (auto* const button = qobject_cast<QAbstractButton*>(control)) {
    QObject::connect(button, &QAbstractButton::clicked, button, clicked);
    endPressWhenHidden(*button);
  }
  return control;
}

/// A line includes both of its end points.
void placeControl(QWidget& control, const ControlLayout& row, qreal scale) {
  const int thickness = row.kind == ControlKind::line ? std::max(1, qRound(scale)) : 0;
  control.setGeometry(toPixels(row.place, scale).adjusted(0, 0, thickness, thickness));
  control.update();
}

void endPressWhenHidden(QAbstractButton& button) { button.installEventFilter(new PressEnder(&button)); }

void setLabelCaption(QWidget& control, std::string_view caption) {
  if (auto* const label = qobject_cast<QLabel*>(&control)) label->setText(toQt(caption));
}

} // namespace chiffrolo::qt
