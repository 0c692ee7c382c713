// SPDX-License-Identifier: MIT
#pragma once

#include "qt/qt_platform.h"
#include "tests/core/fake_program.h"

#include <QAbstractButton>
#include <QBitmap>
#include <QTest>

#include <gtest/gtest.h>

namespace chiffrolo::qt {

using namespace std::chrono_literals;
using enum ScreenName;

inline constexpr Font face{"Times New Roman", 18};
inline constexpr Colour white{255, 255, 255};

// The home screen has buttons, the exercise has none.
inline constexpr ControlLayout homeScreenControls[]{
    {ControlKind::button, "first", {0, 300, 3000, 600}, "", "", face},
    {ControlKind::button, "second", {9000, 7800, 3000, 600}, "Chiffrolo", "", face},
};

inline constexpr ControlIndex stop = 1;
inline constexpr ControlIndex label = 2;
inline constexpr ControlIndex timer = 3;
inline constexpr ControlLayout exerciseControls[]{
    {.kind = ControlKind::image,
     .name = "arrow",
     .place = {1500, 0, 480, 480},
     .accessibleName = "Continuer",
     .picture = Picture::arrow},
    {.kind = ControlKind::image,
     .name = "stop",
     .place = {3000, 0, 480, 480},
     .picture = Picture::stop,
     .visible = Visibility::hidden},
    {ControlKind::label, "label", {0, 900, 3000, 600}, "Chiffrolo", "", face, {255, 0, 0}, {255, 255, 224}},
    {.kind = ControlKind::timer, .name = "timer", .enabled = Switch::on, .interval = 5ms},
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
    EXPECT_TRUE(QTest::qWaitFor([this] { return !program_.takeEvents().empty(); })) << "a timer on by design";
    exercise_->stopTimer(timer);
  }

  QWidget& host() { return *QApplication::topLevelWidgets().constFirst(); }
  void pressKey(Qt::Key key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::sendKeyEvent(QTest::Click, host().windowHandle(), key, text, modifiers);
    QCoreApplication::processEvents();
  }
  /// In pixels of the host window.
  void clickAt(QPoint place) { QTest::mouseClick(host().windowHandle(), Qt::LeftButton, {}, place); }
  void clickHiddenButtons() {
    for (auto* const button : host().findChildren<QAbstractButton*>())
      if (!button->isVisible()) button->click();
  }
  /// The host window after what is queued.
  QImage screenshot(QRect area = {0, 0, -1, -1}) {
    QCoreApplication::processEvents();
    return host().grab(area).toImage();
  }
  QRgb pixel(int x, int y) { return screenshot().pixel(x, y); }
  /// The bounding rectangle of the pixels of that colour in the host window.
  QRect areaOfColour(QRgb colour) {
    const QPixmap shown = QPixmap::fromImage(screenshot());
    return QRegion{shown.createMaskFromColor(colour, Qt::MaskOutColor)}.boundingRect();
  }

  QtPlatform platform_;
  test::FakeProgram program_;
  std::unique_ptr<Window> homeScreen_ = platform_.createWindow(homeScreenLayout, program_);
  std::unique_ptr<Window> exercise_ = platform_.createWindow(exerciseLayout, program_);
};

} // namespace chiffrolo::qt
