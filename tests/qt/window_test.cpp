// SPDX-License-Identifier: MIT
#include "tests/qt/front_end.h"

#include <QScreen>

#include <algorithm>
#include <cmath>
#include <span>
#include <tuple>

namespace chiffrolo::qt {

namespace {

// ---- Keys, clicks and close requests -----------------------------------------------------------------

TEST_F(FrontEnd, reportsKeys) {
  exercise_->activate();
  pressKey(Qt::Key_7, "7");
  pressKey(Qt::Key_Right);
  pressKey(Qt::Key_Tab, "\t");
  pressKey(Qt::Key_Shift);
  EXPECT_EQ(program_.takeEvents(), "key 0/55, key 39/-1, key 0/-1");
}

TEST_F(FrontEnd, reportsClicksOnButtonsAndVisibleImagesOnly) {
  clickAt(10, 70);
  clickAt(10, 300);
  EXPECT_EQ(program_.takeEvents(), "click 1") << "a button, then the empty surface";
  exercise_->activate();
  clickAt(10, 100);
  clickAt(100 + 16, 26 + 16, Qt::RightButton);
  clickAt(216, 42);
  EXPECT_EQ(program_.takeEvents(), "") << "a label, the right mouse button, a hidden image";
  exercise_->setVisible(stop, Visibility::visible);
  clickAt(216, 42);
  clickArrow();
  exercise_->setVisible(arrow, Visibility::hidden);
  clickArrow();
  EXPECT_EQ(program_.takeEvents(), "click 1, click 0");
}

TEST_F(FrontEnd, reportsCloseRequests) {
  exercise_->activate();
  const auto* const focus = host().focusWidget();
  clickCloseBox();
  EXPECT_EQ(host().focusWidget(), focus);
  EXPECT_FALSE(host().close());
  EXPECT_EQ(program_.takeEvents(), "close, close");
}

TEST_F(FrontEnd, dropsAutoRepeatOfAKeyPressedOnAnotherScreen) {
  constexpr quint32 enterKey = 36;
  exercise_->activate();
  sendKey(QEvent::KeyPress, Qt::Key_Return, enterKey, "\r");
  sendKey(QEvent::KeyPress, Qt::Key_Return, enterKey, "\r", Qt::NoModifier, true);
  homeScreen_->activate();
  sendKey(QEvent::KeyPress, Qt::Key_Return, enterKey, "\r", Qt::NoModifier, true);
  sendKey(QEvent::KeyRelease, Qt::Key_Return, enterKey, "\r");
  EXPECT_EQ(program_.takeEvents(), "key 13/13, key 13/13");
}

/// Also if the screen returns before the release.
TEST_F(FrontEnd, clicksNothingIfTheScreenChangesWhileTheMouseIsPressed) {
  Window* const home = homeScreen_.get();
  Window* const exercise = exercise_.get();
  using Row = std::tuple<Window*, Window*, QPoint, const char*>;
  for (const auto& [screen, other, place, click] :
       {Row{exercise, home, arrowPlace, "click 0"}, Row{exercise, home, closeBoxPlace(), "close"},
        Row{home, exercise, QPoint{10, 30}, "click 0"}})
    for (Window* const last : {other, screen}) {
      screen->activate();
      clickAt(place.x(), place.y());
      EXPECT_EQ(program_.takeEvents(), click);
      QTest::mousePress(host().windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
      other->activate();
      last->activate();
      QTest::mouseMove(host().windowHandle(), place + QPoint{1, 1});
      QTest::mouseRelease(host().windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
      EXPECT_EQ(program_.takeEvents(), "") << click << ", returned: " << (last == screen);
    }
}

/// A screen reader may do that.
TEST_F(FrontEnd, reportsNoClickOfAHiddenScreen) {
  clickHiddenButtons();
  exercise_->activate();
  clickHiddenButtons();
  clickCloseBox();
  EXPECT_EQ(program_.takeEvents(), "close");
}

// ---- Focus -------------------------------------------------------------------------------------------

TEST_F(FrontEnd, movesTheFocusByTabAndRestoresIt) {
  pressKey(Qt::Key_Space, " ");
  EXPECT_EQ(program_.takeEvents(), "key 0/32, click 0");
  pressKey(Qt::Key_Tab, "\t");
  EXPECT_EQ(program_.takeEvents(), "");
  pressKey(Qt::Key_Space, " ");
  EXPECT_EQ(program_.takeEvents(), "key 0/32, click 1");
  exercise_->activate();
  homeScreen_->activate();
  pressKey(Qt::Key_Enter, "\r");
  pressKey(Qt::Key_Backtab, "\t");
  pressKey(Qt::Key_Return, "\r");
  EXPECT_EQ(program_.takeEvents(), "key 13/13, click 1, key 13/13, click 0");
}

TEST_F(FrontEnd, clicksNoButtonIfTheKeyChangedTheScreen) {
  program_.keyUse = Events::KeyUse::screenChanged;
  pressKey(Qt::Key_Space, " ");
  pressKey(Qt::Key_Return, "\r");
  EXPECT_EQ(program_.takeEvents(), "key 0/32, key 13/13");
}

TEST_F(FrontEnd, clicksNoButtonOnReleaseOfAKeyPressedOnAnotherScreen) {
  exercise_->activate();
  program_.react = [this] { homeScreen_->activate(); };
  pressKey(Qt::Key_Space, " ");
  EXPECT_EQ(program_.takeEvents(), "key 0/32");
}

// ---- Windows destroyed during their own events -------------------------------------------------------

/// The first event of the active exercise destroys its window and activates the home screen.
class DestroyedWindow : public FrontEnd {
protected:
  DestroyedWindow() {
    exercise_->activate();
    program_.react = [this] {
      exercise_.reset();
      homeScreen_->activate();
      program_.react = [] {};
    };
  }
  void expectOnlyReport(const std::string& event) {
    EXPECT_EQ(program_.takeEvents(), event);
    EXPECT_EQ(areaOfColour(labelBackground), QRect());
    clickArrow();
    waitForLaterTick();
    EXPECT_EQ(program_.takeEvents(), "click 0"); // the button at the position of the arrow
  }
};

TEST_F(DestroyedWindow, reportsNothingAfterTheKey) {
  pressKey(Qt::Key_7, "7");
  expectOnlyReport("key 0/55");
}

TEST_F(DestroyedWindow, reportsNothingAfterTheClick) {
  clickArrow();
  expectOnlyReport("click 0");
}

TEST_F(DestroyedWindow, reportsNothingAfterTheCloseRequest) {
  clickCloseBox();
  expectOnlyReport("close");
}

TEST_F(DestroyedWindow, reportsNothingAfterTheTick) {
  switchTimer(Switch::on);
  EXPECT_TRUE(QTest::qWaitFor([&] { return exercise_ == nullptr; }));
  expectOnlyReport("tick 3");
}

TEST_F(DestroyedWindow, reportsNothingBeforeAnotherIsActive) {
  exercise_.reset();
  EXPECT_EQ(areaOfColour(labelBackground), QRect());
  pressKey(Qt::Key_7, "7");
  homeScreen_->activate();
  clickHiddenButtons();
  clickArrow();
  EXPECT_EQ(program_.takeEvents(), "click 0") << "only the button at the position of the arrow";
}

TEST_F(FrontEnd, hasTheIconOfTheProgram) {
  ASSERT_TRUE(QTest::qWaitFor([&] { return !host().windowIcon().isNull(); }))
      << "set after the first picture";
  const QPixmap icon{":/chiffrolo.png"};
  EXPECT_EQ(host().windowIcon().pixmap(icon.size()).toImage(), icon.toImage());
}

// ---- Timers and size ---------------------------------------------------------------------------------

TEST_F(FrontEnd, reportsTicksOfHiddenScreens) {
  int ticks = 0;
  program_.react = [&] { ++ticks; };
  switchTimer(Switch::on);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }));
  EXPECT_EQ(program_.takeEvents().substr(0, 14), "tick 3, tick 3");
  switchTimer(Switch::off);
  waitForLaterTick();
  EXPECT_EQ(program_.takeEvents(), "");
  exercise_ = platform_.createWindow(exerciseLayout, program_);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 3; })) << "its timer is on by design";
}

TEST_F(FrontEnd, startsAllTimersOfOneEventAtTheSameInstant) {
  const auto second = platform_.createWindow(exerciseLayout, program_);
  constexpr ControlIndex otherTimer = 0;
  second->stopTimer(timer);
  exercise_->startTimer(timer, 1h);
  second->startTimer(otherTimer, 1h);
  program_.react = [&] {
    second->startTimer(otherTimer, 2ms);
    QTest::qSleep(2);
    exercise_->startTimer(timer, 2ms);
    program_.react = [&] { second->stopTimer(otherTimer); };
  };
  pressKey(Qt::Key_7, "7");
  waitForLaterTick();
  EXPECT_EQ(program_.takeEvents().substr(0, 18), "key 0/55, tick 3, ");
}

TEST_F(FrontEnd, resizesHiddenPagesWithTheHost) {
  EXPECT_FLOAT_EQ(homeScreen_->width(), static_cast<float>(host().width()) * 0.75F);
  EXPECT_FLOAT_EQ(exercise_->width(), static_cast<float>(host().width() - 2) * 0.75F)
      << "before it is shown for the first time";
  exercise_->drawBox({0, 300}, {20, 320}, 1, blue, blue);
  host().resize(1000, 700);
  EXPECT_FLOAT_EQ(exercise_->width(), (1000 - 2) * 0.75F);
  host().resize(1100, 800);
  exercise_->activate();
  EXPECT_EQ(pixel(10, 26 + 410), bluePixel);
}

TEST_F(FrontEnd, drawsTheNewCaptionOfALabel) {
  exercise_->activate();
  const QImage before = host().grab().toImage();
  exercise_->setCaption(label, "");
  EXPECT_NE(host().grab().toImage(), before);
}

TEST_F(FrontEnd, drawsTextAtThePixelRatioOfTheScreen) {
  exercise_->activate();
  exercise_->drawText({20, 150}, "8g", face, blue);
  const auto grabbedOn = [this](int screen) {
    host().windowHandle()->setScreen(QGuiApplication::screens().at(screen));
    QCoreApplication::processEvents();
    return host().grab(QRect{1, 200, 300, 100}).toImage();
  };
  const QImage atRatio1 = grabbedOn(0);
  const QImage atRatio2 = grabbedOn(2);
  ASSERT_EQ(atRatio2.size(), atRatio1.size() * 2);
  EXPECT_NE(atRatio2.scaled(atRatio1.size()).scaled(atRatio2.size()), atRatio2);
  EXPECT_EQ(grabbedOn(0), atRatio1);
}

// ---- Fit and zoom ------------------------------------------------------------------------------------

/// The content area of the exercise is 909 x 485 pixels, the minimum is 896 x 564: a scale of 0.86.
class SmallFrontEnd : public FrontEnd {
protected:
  SmallFrontEnd() {
    host().resize(911, 512);
    exercise_->activate();
  }
};

TEST_F(SmallFrontEnd, scalesDrawingsAndControlsDown) {
  constexpr qreal scale = 485.0 / 564;
  EXPECT_NEAR(exercise_->width(), 909 / scale * 0.75, 0.01);
  exercise_->drawBox({0, 300}, {20, 320}, 1, blue, blue);
  const QRect box = areaOfColour(bluePixel);
  EXPECT_NEAR(box.top(), 26 + 400 * scale, 1);
  EXPECT_NEAR(box.right(), 1 + 26.7 * scale, 1);
  EXPECT_NEAR(areaOfColour(labelBackground).bottom(), 26 + 100 * scale, 1);
}

TEST_F(SmallFrontEnd, scalesTheClickableAreasDown) {
  clickAt(1 + 88, 26 + 2);
  clickAt(1 + 112, 26 + 25);
  EXPECT_EQ(program_.takeEvents(), "click 0, click 0");
  clickAt(1 + 84, 26 + 10);
  clickAt(1 + 115, 26 + 10);
  clickAt(1 + 100, 26 + 29);
  EXPECT_EQ(program_.takeEvents(), "") << "beside the arrow and below it";
}

TEST_F(FrontEnd, dropsAutoRepeatOfAZoomKeyAfterControlIsReleased) {
  constexpr quint32 equalsKey = 21;
  exercise_->activate();
  sendKey(QEvent::KeyPress, Qt::Key_Equal, equalsKey, "=");
  sendKey(QEvent::KeyRelease, Qt::Key_Equal, equalsKey, "=");
  EXPECT_EQ(program_.takeEvents(), "key 0/61");
  sendKey(QEvent::KeyPress, Qt::Key_Equal, equalsKey, "=", Qt::ControlModifier);
  sendKey(QEvent::KeyPress, Qt::Key_Equal, equalsKey, "=", Qt::ControlModifier, true);
  sendKey(QEvent::KeyPress, Qt::Key_Equal, equalsKey, "=", Qt::NoModifier, true);
  EXPECT_EQ(program_.takeEvents(), "");
}

class ZoomedFrontEnd : public FrontEnd {
protected:
  ZoomedFrontEnd() {
    exercise_->activate();
    for (int step = 0; step < 10; ++step)
      pressZoomKey(Qt::Key_Plus);
  }
  /// Draws a square of 3 x (32 + 1) pixels. `corner` is a multiple of 3/4 point, so it is pixel-aligned.
  void drawBoxAt(Point corner) { exercise_->drawBox(corner, {corner.x + 24, corner.y + 24}, 1, blue, blue); }
};

TEST_F(ZoomedFrontEnd, staysZoomedUntilTheZoomIsReset) {
  EXPECT_EQ(program_.takeEvents(), "") << "zoom keys are not reported";
  EXPECT_FLOAT_EQ(exercise_->width(), static_cast<float>(host().width() - 2) * 0.75F);
  clickAt(1 + 300 + 90, 26 + 90);
  EXPECT_EQ(program_.takeEvents(), "click 0");
  homeScreen_->activate();
  exercise_->activate();
  EXPECT_EQ(areaOfColour(labelBackground), QRect(1, 26 + 180, 600, 120));
  pressZoomKey(Qt::Key_0);
  EXPECT_EQ(areaOfColour(labelBackground), QRect(1, 26 + 60, 200, 40));
}

TEST_F(ZoomedFrontEnd, followsWhatIsDrawn) {
  drawBoxAt({600, 381});
  QCoreApplication::processEvents();
  EXPECT_EQ(areaOfColour(bluePixel).size(), QSize(99, 99));
  exercise_->drawBox({0, 0}, {20, 20}, 1, white, white);
  QCoreApplication::processEvents();
  EXPECT_EQ(areaOfColour(bluePixel).size(), QSize(99, 99)) << "nothing visible was drawn";
  exercise_->drawText({10, 10}, "8", face, blue);
  QCoreApplication::processEvents();
  EXPECT_LT(areaOfColour(bluePixel).right(), 150);
}

TEST_F(ZoomedFrontEnd, revealsTheTopLeftOfAnAreaThatDoesNotFit) {
  drawBoxAt({99, 99});
  drawBoxAt({600, 381});
  QCoreApplication::processEvents();
  EXPECT_EQ(areaOfColour(bluePixel).size(), QSize(99, 99));
  EXPECT_LT(areaOfColour(bluePixel).left(), 100);
}

TEST_F(ZoomedFrontEnd, doesNotFollowATimerUnlessAnImageBecomesVisible) {
  int ticks = 0;
  program_.react = [&] {
    drawBoxAt({600, 381});
    ++ticks;
  };
  switchTimer(Switch::on);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(areaOfColour(bluePixel), QRect());
  program_.react = [this] {
    drawBoxAt({600, 381});
    exercise_->setVisible(stop, Visibility::visible);
    program_.react = [] {};
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return !areaOfColour(bluePixel).isEmpty(); }));
}

TEST_F(ZoomedFrontEnd, revealsAnImageThatBecomesVisible) {
  turnWheel({0, -12000});
  exercise_->setVisible(stop, Visibility::visible);
  QCoreApplication::processEvents();
  clickAt(1 + 600 + 50, 26 + 50);
  EXPECT_EQ(program_.takeEvents(), "click 1");
}

TEST_F(ZoomedFrontEnd, revealsTheButtonThatGetsTheFocus) {
  homeScreen_->activate();
  pressKey(Qt::Key_Backtab, "\t");
  clickAt(1280 - 300, 1024 - 100);
  EXPECT_EQ(program_.takeEvents(), "click 2");
}

/// The zoomed minimum content area is 3 x 896 by 3 x 564 pixels, of which 1278 by 997 are visible.
TEST_F(ZoomedFrontEnd, isPannedByTheWheelWithinTheMinimumContentArea) {
  exercise_->drawBox({0, 0}, {671.25F, 422.25F}, 1, blue, std::nullopt);
  exercise_->activate();
  QCoreApplication::processEvents();
  turnWheel({0, -120});
  EXPECT_EQ(areaOfColour(labelBackground).top(), 26 + 180 - 60);
  turnWheel({0, -120}, Qt::ShiftModifier);
  EXPECT_EQ(areaOfColour(labelBackground).right(), 600 - 60);
  turnWheel({-120000, -120000});
  EXPECT_EQ(pixel(1276, 26 + 900), bluePixel);
  EXPECT_EQ(pixel(1000, 26 + 994), bluePixel);
  homeScreen_->activate();
  exercise_->activate();
  EXPECT_EQ(pixel(1, 26), bluePixel);
}

// ---- Themes ------------------------------------------------------------------------------------------

qreal luminance(QRgb pixel) {
  const auto linear = [](int channel) { return std::pow(channel / 255.0, 2.2); };
  return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) + 0.0722 * linear(qBlue(pixel));
}

/// The contrast ratio of the lightest to the darkest pixel, from 1 to 21.
qreal contrast(const QImage& image) {
  const QImage copy = image.convertToFormat(QImage::Format_RGB32);
  const std::span pixels{reinterpret_cast<const QRgb*>(copy.constBits()),
                         static_cast<std::size_t>(copy.width() * copy.height())};
  const auto [darkest, lightest] = std::ranges::minmax(pixels, {}, luminance);
  return (luminance(lightest) + 0.05) / (luminance(darkest) + 0.05);
}

/// The colours of buttons and windows.
using Palette = std::pair<QColor, QColor>;

/// Sets the palette of the application for one test.
class Theme : public testing::WithParamInterface<Palette> {
protected:
  Theme() { QApplication::setPalette({GetParam().first, GetParam().second}); }
  ~Theme() override { QApplication::setPalette(originalPalette_); }

private:
  QPalette originalPalette_ = QApplication::palette();
};

class ThemedFrontEnd : public Theme, public FrontEnd {
protected:
  qreal contrastIn(QRect area) { return contrast(host().grab(area).toImage()); }
};

TEST_P(ThemedFrontEnd, isReadable) {
  constexpr qreal readable = 4.5;
  EXPECT_GT(contrastIn({610, 530, 180, 20}), readable) << "button";
  EXPECT_NEAR(luminance(pixel(610, 540)), luminance(GetParam().first.rgb()), 0.1)
      << "the button colour of the theme";
  exercise_->activate();
  EXPECT_GT(contrastIn({5, 3, 100, 20}), readable) << "title";
  EXPECT_GT(contrastIn({host().width() - 20, 5, 16, 16}), readable) << "close box";
  EXPECT_EQ(pixel(200, 26 + 98), labelBackground);
  EXPECT_GT(contrastIn({1, 26 + 61, 200, 38}), 3.5) << "red on light yellow";
  EXPECT_EQ(pixel(600, 500), qRgb(255, 255, 255));
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemedFrontEnd,
                         testing::Values(Palette{{40, 40, 40}, {30, 30, 30}}, Palette{{0, 0, 0}, {0, 0, 0}}));

} // namespace

} // namespace chiffrolo::qt
