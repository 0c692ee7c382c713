// SPDX-License-Identifier: MIT
#include "tests/qt/front_end.h"

#include <QScreen>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <span>

namespace chiffrolo::qt {

namespace {

// ---- Clicks ------------------------------------------------------------------------------------------

/// Also if the screen returns before the release.
TEST_F(FrontEnd, clicksNothingIfTheScreenChangesWhileTheMouseIsPressed) {
  for (const QPoint place : {arrowPlace, QPoint{host().width() - 12, 12}}) // the second one is the close box
    for (Window* const last : {homeScreen_.get(), exercise_.get()}) {
      exercise_->activate();
      clickAt(place);
      QTest::mousePress(host().windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
      homeScreen_->activate();
      last->activate();
      QTest::mouseMove(host().windowHandle(), place + QPoint{1, 1});
      QTest::mouseRelease(host().windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    }
  EXPECT_EQ(program_.takeEvents(), "click 0, click 0, close, close");
}

/// A screen reader may click hidden buttons. Keys may still arrive after the last screen was destroyed.
TEST_F(FrontEnd, reportsNothingOfAHiddenOrDestroyedScreen) {
  clickHiddenButtons();
  exercise_->activate();
  clickHiddenButtons();
  exercise_.reset();
  pressKey(Qt::Key_7, "7");
  host().close();
  EXPECT_EQ(program_.takeEvents(), "");
}

// ---- Timers and pictures -----------------------------------------------------------------------------

TEST_F(FrontEnd, startsAllTimersOfOneEventAtTheSameInstant) {
  constexpr ControlIndex otherTimer = 0;
  exercise_->startTimer(timer, 1h);
  exercise_->startTimer(otherTimer, 1h);
  bool hasTicked = false;
  program_.react = [&] {
    exercise_->startTimer(otherTimer, 2ms);
    QTest::qSleep(2);
    exercise_->startTimer(timer, 2ms);
    program_.react = [&] { hasTicked = true; };
  };
  pressKey(Qt::Key_7, "7");
  EXPECT_TRUE(QTest::qWaitFor([&] { return hasTicked; }));
  EXPECT_TRUE(program_.takeEvents().starts_with("key 0/55, tick 3"));
}

/// Set after the first picture.
TEST_F(FrontEnd, hasTheIconOfTheProgram) {
  const QImage icon{":/chiffrolo.png"};
  EXPECT_TRUE(QTest::qWaitFor([&] { return host().windowIcon().pixmap(icon.size()).toImage() == icon; }));
}

TEST_F(FrontEnd, drawsTheNewCaptionOfALabel) {
  exercise_->activate();
  ASSERT_FALSE(areaOfColour(qRgb(255, 0, 0)).isEmpty());
  exercise_->setCaption(label, "");
  EXPECT_EQ(areaOfColour(qRgb(255, 0, 0)), QRect());
}

TEST_F(FrontEnd, drawsTextAtThePixelRatioOfTheScreen) {
  constexpr QRect area{1, 200, 300, 100};
  exercise_->activate();
  exercise_->drawText({20, 150}, "8g", face, blue);
  const QImage atRatio1 = screenshot(area);
  host().windowHandle()->setScreen(QGuiApplication::screens().at(1));
  const QImage atRatio2 = screenshot(area);
  ASSERT_EQ(atRatio2.size(), atRatio1.size() * 2);
  EXPECT_NE(atRatio2.scaled(atRatio1.size()).scaled(atRatio2.size()), atRatio2);
}

// ---- Zoom --------------------------------------------------------------------------------------------

TEST_F(FrontEnd, dropsAutoRepeatOfAZoomKeyAfterControlIsReleased) {
  exercise_->activate();
  pressKey(Qt::Key_Equal, "=");
  QTest::sendKeyEvent(QTest::Press, host().windowHandle(), Qt::Key_Equal, "=", Qt::ControlModifier);
  QKeyEvent repeat{QEvent::KeyPress, Qt::Key_Equal, Qt::NoModifier, "=", true};
  QCoreApplication::sendEvent(host().windowHandle(), &repeat);
  EXPECT_EQ(program_.takeEvents(), "key 0/61");
}

/// With 1278 x 997 pixels of room, the minimum content area of 896 x 564 is 1278 / 896 times as large. A held
/// key does not flicker.
TEST_F(FrontEnd, fillsTheDisplayWithF11) {
  exercise_->activate();
  pressKey(Qt::Key_F11);
  QKeyEvent repeat{QEvent::KeyPress, Qt::Key_F11, Qt::NoModifier, {}, true};
  QCoreApplication::sendEvent(host().windowHandle(), &repeat);
  EXPECT_EQ(areaOfColour(labelBackground), QRect(1, 26 + 86, 285, 57)) << "200 x 40 pixels at (0, 60)";
  host().resize(1794, 1155);
  EXPECT_EQ(areaOfColour(labelBackground).width(), 400);
}

class ZoomedFrontEnd : public FrontEnd {
protected:
  ZoomedFrontEnd() {
    exercise_->activate();
    for (int step = 0; step < 10; ++step)
      pressKey(Qt::Key_Plus, {}, Qt::ControlModifier);
  }
  /// Draws a square of 3 x (32 + 1) pixels. `corner` is a multiple of 3/4 point, so it is pixel-aligned.
  void drawBoxAt(Point corner) { exercise_->drawBox(corner, {corner.x + 24, corner.y + 24}, 1, blue, blue); }
  void turnWheel(QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event{{200, 200}, {200, 200}, {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false};
    QSpontaneKeyEvent::setSpontaneous(&event); // Qt passes only events of a real wheel to the parents
    qApp->notify(host().windowHandle(), &event);
  }
};

TEST_F(ZoomedFrontEnd, staysZoomedUntilTheZoomIsReset) {
  EXPECT_EQ(program_.takeEvents(), "") << "zoom keys are not reported";
  EXPECT_FLOAT_EQ(exercise_->width(), static_cast<float>(host().width() - 2) * 0.75F);
  homeScreen_->activate();
  exercise_->activate();
  EXPECT_EQ(areaOfColour(labelBackground), QRect(1, 26 + 180, 600, 120));
  pressKey(Qt::Key_0, {}, Qt::ControlModifier);
  EXPECT_EQ(areaOfColour(labelBackground), QRect(1, 26 + 60, 200, 40));
}

TEST_F(ZoomedFrontEnd, followsWhatIsDrawn) {
  drawBoxAt({99, 99});
  drawBoxAt({600, 381});
  EXPECT_EQ(areaOfColour(bluePixel).size(), QSize(99, 99)) << "not both fit: the top left one";
  EXPECT_LT(areaOfColour(bluePixel).left(), 100);
  drawBoxAt({600, 381});
  EXPECT_EQ(areaOfColour(bluePixel).size(), QSize(99, 99)) << "the other one";
  EXPECT_GT(areaOfColour(bluePixel).left(), 1000);
  exercise_->drawBox({99, 99}, {110, 110}, 1, white, white);
  EXPECT_GT(areaOfColour(bluePixel).left(), 1000) << "a part of the first one was erased, nothing was drawn";
  exercise_->drawText({10, 10}, "8", face, blue);
  EXPECT_LT(areaOfColour(bluePixel).left(), 150);
}

TEST_F(ZoomedFrontEnd, doesNotFollowATimerUnlessAnImageBecomesVisible) {
  int ticks = 0;
  program_.react = [&] {
    drawBoxAt({600, 381});
    ++ticks;
  };
  exercise_->startTimer(timer, 5ms);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }));
  EXPECT_EQ(areaOfColour(bluePixel), QRect());
  program_.react = [this] {
    drawBoxAt({600, 381});
    exercise_->setVisible(stop, Visibility::visible);
    program_.react = [] {};
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return !areaOfColour(bluePixel).isEmpty(); }));
}

TEST_F(ZoomedFrontEnd, revealsTheButtonThatGetsTheFocus) {
  homeScreen_->activate();
  pressKey(Qt::Key_Backtab, "\t");
  clickAt({1280 - 300, 1024 - 100});
  EXPECT_EQ(program_.takeEvents(), "click 1");
}

/// The zoomed minimum content area is 3 x 896 by 3 x 564 pixels, of which 1278 by 997 are visible. A step of
/// the wheel pans by 60 pixels.
TEST_F(ZoomedFrontEnd, isPannedByTheWheelWithinTheMinimumContentArea) {
  exercise_->drawBox({0, 0}, {671.25F, 422.25F}, 1, blue, std::nullopt);
  QCoreApplication::processEvents();
  turnWheel({0, -120});
  EXPECT_EQ(areaOfColour(labelBackground).top(), 26 + 180 - 60);
  turnWheel({0, -120}, Qt::ShiftModifier);
  EXPECT_EQ(areaOfColour(labelBackground).right(), 600 - 60);
  turnWheel({-120000, -120000});
  EXPECT_EQ(pixel(1276, 26 + 900), bluePixel);
  EXPECT_EQ(pixel(1000, 26 + 994), bluePixel);
  exercise_->setVisible(stop, Visibility::visible);
  QCoreApplication::processEvents();
  clickAt({1 + 24 + 48, 26 + 48});
  EXPECT_EQ(program_.takeEvents(), "click 1") << "revealed, 8 x 3 pixels from the left";
  homeScreen_->activate();
  exercise_->activate();
  EXPECT_EQ(areaOfColour(labelBackground).width(), 600) << "at the top left corner again";
}

// ---- Themes ------------------------------------------------------------------------------------------

qreal luminance(QRgb pixel) {
  const auto linear = [](int channel) { return std::pow(channel / 255.0, 2.2); };
  return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) + 0.0722 * linear(qBlue(pixel));
}

/// The contrast ratio of the lightest to the darkest pixel, from 1 to 21.
qreal contrast(const QImage& image) {
  const std::span pixels{reinterpret_cast<const QRgb*>(image.constBits()),
                         static_cast<std::size_t>(image.width() * image.height())};
  const auto [darkest, lightest] = std::ranges::minmax(pixels, {}, luminance);
  return (luminance(lightest) + 0.05) / (luminance(darkest) + 0.05);
}

/// Each theme has the colours of buttons and windows.
TEST_F(FrontEnd, isReadableInDarkThemes) {
  constexpr qreal readable = 4.5;
  const QPalette original = QApplication::palette();
  for (const auto& [button, window] : {std::pair{40, 30}, std::pair{0, 0}}) {
    SCOPED_TRACE(button);
    QApplication::setPalette({QColor{button, button, button}, QColor{window, window, window}});
    homeScreen_->activate();
    EXPECT_GT(contrast(screenshot({610, 530, 180, 20})), readable) << "button";
    EXPECT_NEAR(luminance(pixel(610, 540)), luminance(qRgb(button, button, button)), 0.1) << "button";
    exercise_->activate();
    EXPECT_GT(contrast(screenshot({5, 3, 100, 20})), readable) << "title";
    EXPECT_GT(contrast(screenshot({host().width() - 20, 5, 16, 16})), readable) << "close box";
    EXPECT_EQ(pixel(600, 500), qRgb(255, 255, 255));
  }
  QApplication::setPalette(original);
}

} // namespace

} // namespace chiffrolo::qt
