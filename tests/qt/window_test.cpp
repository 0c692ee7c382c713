// SPDX-License-Identifier: MIT
#include "tests/qt/front_end.h"

#include <QScreen>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <span>
#include <tuple>

namespace chiffrolo::qt {

namespace {

// ---- Keys and clicks ---------------------------------------------------------------------------------

/// The modifier alone is not a key, and the release of Space clicks no button of the next screen.
TEST_F(FrontEnd, reportsOnlyKeysFromAScreenWithoutButtons) {
  exercise_->activate();
  pressKey(Qt::Key_Shift);
  pressKey(Qt::Key_Tab, "\t");
  program_.react = [this] { homeScreen_->activate(); };
  pressKey(Qt::Key_Space, " ");
  EXPECT_EQ(program_.takeEvents(), "key 0/-1, key 0/32");
}

/// The guide recommends it: the home screen ignores a key that types no character.
TEST_F(FrontEnd, controlSpacePressesTheButtonAndTypesNothing) {
  pressKey(Qt::Key_Tab, "\t");
  pressKey(Qt::Key_Space, " ", Qt::ControlModifier);
  EXPECT_EQ(program_.takeEvents(), "key 0/-1, click 1");
}

TEST_F(FrontEnd, clicksNoButtonIfTheKeyChangedTheScreen) {
  program_.keyUse = Events::KeyUse::screenChanged;
  pressKey(Qt::Key_Space, " ");
  pressKey(Qt::Key_Enter, "\r");
  EXPECT_EQ(program_.takeEvents(), "key 0/32, key 13/13");
}

/// Also if the screen returns before the release.
TEST_F(FrontEnd, clicksNothingIfTheScreenChangesWhileTheMouseIsPressed) {
  using Row = std::tuple<Window*, Window*, QPoint, const char*>;
  for (const auto& [screen, other, place, click] :
       {Row{exercise_.get(), homeScreen_.get(), arrowPlace, "click 0"},
        Row{exercise_.get(), homeScreen_.get(), closeBoxPlace(), "close"},
        Row{homeScreen_.get(), exercise_.get(), QPoint{10, 30}, "click 0"}})
    for (Window* const last : {other, screen}) {
      screen->activate();
      clickAt(place);
      EXPECT_EQ(program_.takeEvents(), click);
      QTest::mousePress(host().windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
      other->activate();
      last->activate();
      QTest::mouseMove(host().windowHandle(), place + QPoint{1, 1});
      QTest::mouseRelease(host().windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
      EXPECT_EQ(program_.takeEvents(), "") << click << ", returned: " << (last == screen);
    }
}

/// A screen reader may click hidden buttons.
TEST_F(FrontEnd, reportsNothingOfAHiddenOrDestroyedScreen) {
  clickHiddenButtons();
  exercise_->activate();
  clickHiddenButtons();
  clickAt(closeBoxPlace());
  EXPECT_EQ(program_.takeEvents(), "close");
  exercise_.reset();
  EXPECT_EQ(areaOfColour(labelBackground), QRect());
  pressKey(Qt::Key_7, "7");
  host().close();
  homeScreen_->activate();
  clickHiddenButtons();
  clickAt(arrowPlace);
  EXPECT_EQ(program_.takeEvents(), "click 0") << "only the button at the position of the arrow";
}

// ---- Timers and pictures -----------------------------------------------------------------------------

TEST_F(FrontEnd, reportsNothingAfterATickDestroyedTheWindow) {
  exercise_->activate();
  program_.react = [this] {
    exercise_.reset();
    homeScreen_->activate();
  };
  switchTimer(Switch::on);
  EXPECT_TRUE(QTest::qWaitFor([&] { return exercise_ == nullptr; }));
  waitForLaterTick();
  EXPECT_EQ(program_.takeEvents(), "tick 3");
}

TEST_F(FrontEnd, startsAllTimersOfOneEventAtTheSameInstant) {
  constexpr ControlIndex otherTimer = 0;
  exercise_->startTimer(timer, 1h);
  exercise_->startTimer(otherTimer, 1h);
  program_.react = [&] {
    exercise_->startTimer(otherTimer, 2ms);
    QTest::qSleep(2);
    exercise_->startTimer(timer, 2ms);
    program_.react = [] {};
  };
  pressKey(Qt::Key_7, "7");
  waitForLaterTick();
  EXPECT_EQ(program_.takeEvents().substr(0, 18), "key 0/55, tick 3, ");
}

/// Set after the first picture.
TEST_F(FrontEnd, hasTheIconOfTheProgram) {
  const QImage icon{":/chiffrolo.png"};
  EXPECT_TRUE(QTest::qWaitFor([&] { return host().windowIcon().pixmap(icon.size()).toImage() == icon; }));
}

TEST_F(FrontEnd, drawsTheNewCaptionOfALabel) {
  exercise_->activate();
  exercise_->setCaption(label, "");
  EXPECT_EQ(areaOfColour(qRgb(255, 0, 0)), QRect());
}

TEST_F(FrontEnd, drawsTextAtThePixelRatioOfTheScreen) {
  exercise_->activate();
  exercise_->drawText({20, 150}, "8g", face, blue);
  const auto grabbedOn = [this](int screen) {
    host().windowHandle()->setScreen(QGuiApplication::screens().at(screen));
    return screenshot({1, 200, 300, 100});
  };
  const QImage atRatio1 = grabbedOn(0);
  const QImage atRatio2 = grabbedOn(2);
  ASSERT_EQ(atRatio2.size(), atRatio1.size() * 2);
  EXPECT_NE(atRatio2.scaled(atRatio1.size()).scaled(atRatio2.size()), atRatio2);
  EXPECT_EQ(grabbedOn(0), atRatio1);
}

// ---- Fit and zoom ------------------------------------------------------------------------------------

using SmallFrontEnd = FrontEnd;

/// The content area of the exercise is 909 x 485 pixels, the minimum is 896 x 564: a scale of 0.86.
TEST_F(SmallFrontEnd, scalesDrawingsAndControlsDown) {
  host().resize(911, 512);
  constexpr qreal scale = 485.0 / 564;
  EXPECT_NEAR(exercise_->width(), 909 / scale * 0.75, 0.01);
  exercise_->activate();
  exercise_->drawBox({0, 300}, {20, 320}, 1, blue, blue);
  const QRect box = areaOfColour(bluePixel);
  EXPECT_NEAR(box.top(), 26 + 400 * scale, 1);
  EXPECT_NEAR(box.right(), 1 + 26.7 * scale, 1);
  EXPECT_EQ(areaOfColour(labelBackground), QRect(1, 26 + 52, 172, 34)) << "200 x 40 pixels at (0, 60)";
}

TEST_F(FrontEnd, dropsAutoRepeatOfAZoomKeyAfterControlIsReleased) {
  exercise_->activate();
  pressKey(Qt::Key_Equal, "=");
  QTest::sendKeyEvent(QTest::Press, host().windowHandle(), Qt::Key_Equal, "=", Qt::ControlModifier);
  QKeyEvent repeat{QEvent::KeyPress, Qt::Key_Equal, Qt::NoModifier, "=", true};
  QCoreApplication::sendEvent(host().windowHandle(), &repeat);
  EXPECT_EQ(program_.takeEvents(), "key 0/61");
}

/// With 1278 x 997 pixels of room, the minimum content area of 896 x 564 is 1278 / 896 times as large.
TEST_F(FrontEnd, fillsTheDisplayWithF11) {
  exercise_->activate();
  exercise_->drawBox({648, 400}, {671.25F, 422.25F}, 1, blue, blue);
  const Points width = exercise_->width();
  pressKey(Qt::Key_F11);
  EXPECT_EQ(areaOfColour(labelBackground).width(), qRound(200 * 1278 / 896.0));
  EXPECT_EQ(areaOfColour(bluePixel).right(), 1 + 895 * 1278 / 896) << "its right side is at 895 pixels";
  EXPECT_EQ(exercise_->width(), width);
  host().resize(1794, 1155);
  EXPECT_EQ(areaOfColour(labelBackground).width(), 400);
  pressKey(Qt::Key_F11);
  EXPECT_EQ(areaOfColour(labelBackground).width(), 200);
  QTest::sendKeyEvent(QTest::Press, host().windowHandle(), Qt::Key_F11, {}, Qt::NoModifier);
  QKeyEvent repeat{QEvent::KeyPress, Qt::Key_F11, Qt::NoModifier, {}, true};
  QCoreApplication::sendEvent(host().windowHandle(), &repeat);
  EXPECT_EQ(areaOfColour(labelBackground).width(), 400) << "a held key does not flicker";
  EXPECT_EQ(program_.takeEvents(), "");
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
  clickAt({1 + 300 + 90, 26 + 90});
  EXPECT_EQ(program_.takeEvents(), "click 0");
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
  exercise_->drawBox({0, 0}, {20, 20}, 1, white, white);
  EXPECT_EQ(areaOfColour(bluePixel).size(), QSize(99, 99)) << "nothing visible was drawn";
  exercise_->drawText({10, 10}, "8", face, blue);
  EXPECT_LT(areaOfColour(bluePixel).left(), 150);
}

TEST_F(ZoomedFrontEnd, doesNotFollowATimerUnlessAnImageBecomesVisible) {
  int ticks = 0;
  program_.react = [&] {
    drawBoxAt({600, 381});
    ++ticks;
  };
  switchTimer(Switch::on);
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
  EXPECT_EQ(program_.takeEvents(), "click 2");
}

/// The zoomed minimum content area is 3 x 896 by 3 x 564 pixels, of which 1278 by 997 are visible.
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
  EXPECT_EQ(areaOfColour(labelBackground).left(), 1);
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
    EXPECT_EQ(pixel(200, 26 + 98), labelBackground);
    EXPECT_GT(contrast(screenshot({1, 26 + 61, 200, 38})), 3.5) << "red on light yellow";
    EXPECT_EQ(pixel(600, 500), qRgb(255, 255, 255));
  }
  QApplication::setPalette(original);
}

} // namespace

} // namespace chiffrolo::qt
