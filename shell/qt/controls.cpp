// SPDX-License-Identifier: MIT
#include "shell/qt/controls.h"

#include "shell/qt/fonts.h"
#include "shell/qt/units.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>

namespace chiffrolo::qt {

namespace {

QPixmap load(Picture picture) {
  switch (picture) {
  case Picture::none: break;
  case Picture::arrow: return QPixmap(QStringLiteral(":/fleche.png"));
  case Picture::stop: return QPixmap(QStringLiteral(":/arret.png"));
  case Picture::farewell: return QPixmap(QStringLiteral(":/aurevoir.jpg"));
  }
  return {};
}

/// An icon that can be clicked, as large as its picture.
class ImageControl final : public QAbstractButton {
public:
  ImageControl(const ControlLayout& row, QWidget* parent)
      : QAbstractButton(parent), picture_(load(row.picture)) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    setHidden(row.visible == Visibility::hidden);
  }

private:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter{this};
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), picture_);
  }

  QPixmap picture_;
};

class PictureBox final : public QWidget {
public:
  PictureBox(const ControlLayout& row, QWidget* parent)
      : QWidget(parent), background_(toQt(row.background)), picture_(load(row.picture)) {}

private:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter{this};
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), background_);
    painter.drawPixmap(0, 0, picture_);
  }

  QColor background_;
  QPixmap picture_;
};

/// A filled rectangle with an outline of one pixel.
class ShapeControl final : public QWidget {
public:
  ShapeControl(const ControlLayout& row, QWidget* parent)
      : QWidget(parent), outline_(toQt(row.foreground)), fill_(toQt(row.background)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }

private:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter{this};
    painter.fillRect(rect(), outline_);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), fill_);
  }

  QColor outline_;
  QColor fill_;
};

/// From its top left corner to its bottom right one, one pixel thick.
class LineControl final : public QWidget {
public:
  LineControl(const ControlLayout& row, QWidget* parent) : QWidget(parent), colour_(toQt(row.foreground)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }

private:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter{this};
    const bool isDiagonal = width() > 1 && height() > 1;
    painter.setRenderHint(QPainter::Antialiasing, isDiagonal);
    painter.setPen(colour_);
    painter.drawLine(rect().topLeft(), rect().bottomRight());
  }

  QColor colour_;
};

/// Its colours are those of the layout, whatever the desktop prefers.
QPalette labelColours(const ControlLayout& row) {
  QPalette colours;
  colours.setColor(QPalette::Window, toQt(row.background));
  colours.setColor(QPalette::WindowText, toQt(row.foreground));
  return colours;
}

QWidget* createLabel(const ControlLayout& row, QWidget* parent) {
  auto* const label = new QLabel(parent);
  const auto across = row.alignment == Alignment::centred ? Qt::AlignHCenter : Qt::AlignLeft;
  label->setAlignment(across | Qt::AlignTop);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setIndent(0);
  label->setFrameStyle(row.border == Border::thin ? int{QFrame::Box} | int{QFrame::Plain}
                                                  : int{QFrame::NoFrame});
  label->setPalette(labelColours(row));
  label->setAutoFillBackground(true);
  label->setFont(captionFont(row.font));
  label->setText(toQt(row.caption));
  return label;
}

/// Some styles hardly show which button has the focus: this one has a ring in addition.
class RingedButton final : public QPushButton {
public:
  using QPushButton::QPushButton;

private:
  void paintEvent(QPaintEvent* event) override {
    QPushButton::paintEvent(event);
    if (!hasFocus()) return;
    constexpr qreal thickness = 2;
    constexpr qreal inset = 2.5;
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen({palette().color(QPalette::Highlight), thickness});
    painter.drawRoundedRect(QRectF{rect()}.adjusted(inset, inset, -inset, -inset), inset, inset);
  }
};

QWidget* createButton(const ControlLayout& row, QWidget* parent) {
  // An ampersand would turn the letter behind it into a shortcut.
  auto* const button = new RingedButton(toQt(row.caption).replace(u'&', QStringLiteral("&&")), parent);
  button->setFont(captionFont(row.font));
  button->setToolTip(toQt(row.tooltip));
  button->setAutoDefault(true); // Enter clicks it, not only the space bar
  return button;
}

QWidget* createWidget(const ControlLayout& row, QWidget* parent) {
  switch (row.kind) {
  case ControlKind::label: return createLabel(row, parent);
  case ControlKind::button: return createButton(row, parent);
  case ControlKind::image: return new ImageControl(row, parent);
  case ControlKind::line: return new LineControl(row, parent);
  case ControlKind::shape: return new ShapeControl(row, parent);
  case ControlKind::pictureBox: return new PictureBox(row, parent);
  case ControlKind::timer: break;
  }
  return nullptr;
}

/// A line covers the dots at both of its ends, be it as flat as it may.
QRect placeOf(const ControlLayout& row) {
  const QRect place = toPixels(row.place);
  return row.kind == ControlKind::line ? place.adjusted(0, 0, 1, 1) : place;
}

} // namespace

QWidget* createControl(const ControlLayout& row, QWidget* parent, const std::function<void()>& clicked) {
  QWidget* const control = createWidget(row, parent);
  if (control == nullptr) return nullptr;
  control->setGeometry(placeOf(row));
  control->setAccessibleName(toQt(row.accessibleName));
  if (auto* const button = qobject_cast<QAbstractButton*>(control))
    QObject::connect(button, &QAbstractButton::clicked, button, clicked);
  return control;
}

void setLabelCaption(QWidget& control, std::string_view caption) {
  if (auto* const label = qobject_cast<QLabel*>(&control)) label->setText(toQt(caption));
}

} // namespace chiffrolo::qt
