// SPDX-License-Identifier: MIT
#pragma once

#include "qt/qt_platform.h"
#include "tests/core/fake_program.h"
#include "tests/qt/images.h"

#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace chiffrolo::qt {

using namespace std::chrono_literals;
using enum ScreenName;

inline constexpr Font face{"Times New Roman", 18};
inline constexpr Colour white{255, 255, 255};

// A screen with buttons and one without, each control named by its index in the layout.
inline constexpr std::array homeControls{
    ControlLayout{.kind = ControlKind::button, .name = "first", .place = {0, 300, 3000, 600}, .font = face},
    ControlLayout{.kind = ControlKind::button, .name = "second", .place = {0, 900, 3000, 600}, .font = face},
    ControlLayout{.kind = ControlKind::button,
                  .name = "third",
                  .place = {9000, 7800, 3000, 600},
                  .caption = "Chiffrolo",
                  .font = face},
};

inline constexpr ControlIndex arrow = 0;
inline constexpr ControlIndex stop = 1;
inline constexpr ControlIndex label = 2;
inline constexpr ControlIndex timer = 3;
inline constexpr std::array drillControls{
    ControlLayout{.kind = ControlKind::image,
                  .name = "arrow",
                  .place = {1500, 0, 480, 480},
                  .accessibleName = "Continuer",
                  .picture = Picture::arrow},
    ControlLayout{.kind = ControlKind::image,
                  .name = "stop",
                  .place = {3000, 0, 480, 480},
                  .picture = Picture::stop,
                  .visible = Visibility::hidden},
    ControlLayout{.kind = ControlKind::label,
                  .name = "label",
                  .place = {0, 900, 3000, 600},
                  .caption = "Chiffrolo",
                  .font = face,
                  .foreground = {255, 0, 0},
                  .background = {255, 255, 224}},
    ControlLayout{.kind = ControlKind::timer, .name = "timer", .enabled = Switch::on, .interval = 5ms},
};

inline constexpr Colour blue{0, 0, 255};
inline constexpr QRgb blueDot = qRgb(0, 0, 255);
inline constexpr QRgb labelBackground = qRgb(255, 255, 224);

inline constexpr ScreenLayout homeLayout{accueil, "", "Accueil", Frame::frameless, face, white, homeControls};
inline constexpr ScreenLayout drillLayout{addition, "Exercice", "Additions",  Frame::toolWindow,
                                          face,     white,      drillControls};

/// Two screens in a real window that nobody sees; that with the buttons is active.
class FrontEnd : public testing::Test {
protected:
  FrontEnd() {
    home_->activate();
    ticking(Switch::off);
    QCoreApplication::processEvents(); // the answer of the window system, which maximizes the window
  }

  void ticking(Switch on) { on == Switch::on ? drill_->startTimer(timer, 5ms) : drill_->stopTimer(timer); }
  QWidget& host() { return *QApplication::topLevelWidgets().constFirst(); }
  void press(Qt::Key key, const QString& text = {}) {
    QTest::sendKeyEvent(QTest::Click, host().windowHandle(), key, text, Qt::NoModifier);
  }
  /// Of the key at that place of the keyboard.
  void sendKey(QEvent::Type type, Qt::Key key, quint32 scanCode, const QString& text,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool isRepeat = false) {
    QKeyEvent sent{type, key, modifiers, scanCode, 0, 0, text, isRepeat};
    QCoreApplication::sendEvent(host().windowHandle(), &sent);
  }
  /// Anywhere: what lies there gets the click.
  void clickAt(int x, int y, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(host().windowHandle(), button, Qt::NoModifier, {x, y});
  }
  void clickCloseBox() { clickAt(host().width() - 12, 12); }
  void clickArrow() { clickAt(100 + 1 + 16, 26 + 16); }
  QRgb pixel(int x, int y) { return host().grab().toImage().pixel(x, y); }
  void passTime() { QTest::qWait(40); }
  void zoom(Qt::Key key) {
    QTest::sendKeyEvent(QTest::Click, host().windowHandle(), key, {}, Qt::ControlModifier);
  }
  void turnWheel(QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event{{200, 200}, {200, 200}, {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false};
    event.ignore();
    for (QWidget* widget = host().childAt(200, 200); !event.isAccepted() && widget != nullptr;
         widget = widget->parentWidget()) // Qt does so only with those of a real wheel
      QCoreApplication::sendEvent(widget, &event);
  }
  /// Where that colour is seen.
  QRect seen(QRgb colour) {
    return areaOf(host().grab().toImage(), [&](QRgb dot) { return dot == colour; });
  }

  QtPlatform platform_;
  test::FakeProgram program_;
  std::unique_ptr<Window> home_ = platform_.createWindow(homeLayout, program_);
  std::unique_ptr<Window> drill_ = platform_.createWindow(drillLayout, program_);
};

} // namespace chiffrolo::qt
