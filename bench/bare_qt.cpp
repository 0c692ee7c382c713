// SPDX-License-Identifier: MIT

/// Baseline for Qt: a maximized window that shows only the last digit typed.

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QWidget>

namespace {

class BareWindow final : public QWidget {
public:
  BareWindow() : QWidget(nullptr, Qt::FramelessWindowHint) {
    setGeometry(screen()->availableGeometry());
    font_.setBold(true);
  }

private:
  static constexpr QRect digitArea{250, 130, 60, 60}; // in pixels

  void keyPressEvent(QKeyEvent* event) override {
    digit_ = event->key() == Qt::Key_Backspace ? QString() : event->text();
    update(digitArea);
  }

  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    painter.fillRect(event->rect(), Qt::white);
    if (digit_.isEmpty()) return;
    painter.setFont(font_);
    painter.drawText(digitArea, Qt::AlignCenter, digit_);
  }

  QString digit_;
  QFont font_{QStringLiteral("Liberation Serif"), 28};
};

} // namespace

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  BareWindow window;
  window.showMaximized();
  window.activateWindow();
  return QApplication::exec();
}
