// SPDX-License-Identifier: MIT
#pragma once

#include "qt/qt_platform.h"
#include "tests/core/fake_program.h"
#include "tests/qt/images.h"

#include <QAbstractButton>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace chiffrolo::qt {

using namespace std::chrono_literals;
using enum ScreenName;

inline constexpr Font face{"Times New Roman", 18};
inline constexpr Colour white{255, 255, 255};

// The home screen has buttons, the exercise has none.
inline constexpr std::array homeScreenControls{
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
inline constexpr std::array exerciseControls{
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
inline constexpr QRgb bluePixel = qRgb(0, 0, 255);
inline constexpr QRgb labelBackground = qRgb(255, 255, 224);

inline constexpr ScreenLayout homeScreenLayout{accueil, "",    "Accueil",         Frame::frameless,
                                               face,    white, homeScreenControls};
inline constexpr ScreenLayout exerciseLayout{addition, "Exercice", "Additions",     Frame::toolWindow,
                                             face,     white,      exerciseControls};

inline constexpr QPoint arrowPlace{1 + 100 + 16, 26 + 16}; // in pixels of the host window

/// A home screen and an exercise in a host window on the offscreen platform. The home screen is active.
class FrontEnd : public testing::Test {
protected:
  FrontEnd() {
    homeScreen_->activate();
    switchTimer(Switch::off);
    QCoreApplication::processEvents(); // lets the window system maximize the window
  }

  void switchTimer(Switch state) {
    state == Switch::on ? exercise_->startTimer(timer, 5ms) : exercise_->stopTimer(timer);
  }
  QWidget& host() { return *QApplication::topLevelWidgets().constFirst(); }
  void pressKey(Qt::Key key, const QString& text = {}) {
    QTest::sendKeyEvent(QTest::Click, host().windowHandle(), key, text, Qt::NoModifier);
  }
  /// `scanCode` identifies the physical key.
  void sendKey(QEvent::Type type, Qt::Key key, quint32 scanCode, const QString& text,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool isRepeat = false) {
    QKeyEvent sent{type, key, modifiers, scanCode, 0, 0, text, isRepeat};
    QCoreApplication::sendEvent(host().windowHandle(), &sent);
  }
  /// In pixels of the host window.
  void clickAt(int x, int y, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(host().windowHandle(), button, Qt::NoModifier, {x, y});
  }
  QPoint closeBoxPlace() { return {host().width() - 12, 12}; }
  void clickCloseBox() { clickAt(closeBoxPlace().x(), closeBoxPlace().y()); }
  void clickHiddenButtons() {
    for (auto* const button : host().findChildren<QAbstractButton*>())
      if (!button->isVisible()) button->click();
  }
  void clickArrow() { clickAt(arrowPlace.x(), arrowPlace.y()); }
  QRgb pixel(int x, int y) { return host().grab().toImage().pixel(x, y); }
  /// Until a timer has ticked that starts now, so that earlier timers of 5 ms have ticked too.
  void waitForLaterTick() {
    test::FakeProgram program;
    bool hasTicked = false;
    program.react = [&] { hasTicked = true; };
    const auto window = platform_.createWindow(exerciseLayout, program);
    EXPECT_TRUE(QTest::qWaitFor([&] { return hasTicked; }));
  }
  void pressZoomKey(Qt::Key key) {
    QTest::sendKeyEvent(QTest::Click, host().windowHandle(), key, {}, Qt::ControlModifier);
  }
  void turnWheel(QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event{{200, 200}, {200, 200}, {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false};
    event.ignore();
    for (QWidget* widget = host().childAt(200, 200); !event.isAccepted() && widget != nullptr;
         widget = widget->parentWidget()) // Qt passes only events of a real wheel to the parents
      QCoreApplication::sendEvent(widget, &event);
  }
  /// The bounding rectangle of the pixels of that colour in the host window.
  QRect areaOfColour(QRgb colour) {
    return boundingRect(host().grab().toImage(), [&](QRgb pixel) { return pixel == colour; });
  }

  QtPlatform platform_;
  test::FakeProgram program_;
  std::unique_ptr<Window> homeScreen_ = platform_.createWindow(homeScreenLayout, program_);
  std::unique_ptr<Window> exercise_ = platform_.createWindow(exerciseLayout, program_);
};

} // namespace chiffrolo::qt
