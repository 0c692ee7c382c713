// SPDX-License-Identifier: MIT
#include "tests/qt/front_end.h"

#include <QAbstractButton>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <span>

namespace chiffrolo::qt {

namespace {

// ---- What the learner does ---------------------------------------------------------------------------

TEST_F(FrontEnd, tellsKeys) {
  drill_->activate();
  press(Qt::Key_7, "7");
  press(Qt::Key_Right);
  press(Qt::Key_Tab, "\t");
  press(Qt::Key_Shift);
  EXPECT_EQ(program_.takeEvents(), "key 0/55, key 39/-1, key 0/-1");
}

TEST_F(FrontEnd, tellsClicksOnButtonsAndVisibleImagesOnly) {
  clickAt(10, 70);
  clickAt(10, 300);
  EXPECT_EQ(program_.takeEvents(), "click 1") << "a button, and nothing";
  drill_->activate();
  clickAt(10, 100);
  clickAt(100 + 16, 26 + 16, Qt::RightButton);
  clickAt(216, 42);
  EXPECT_EQ(program_.takeEvents(), "") << "a label, another button of the mouse, a hidden image";
  drill_->setVisible(stop, Visibility::visible);
  clickAt(216, 42);
  clickArrow();
  drill_->setVisible(arrow, Visibility::hidden);
  clickArrow();
  EXPECT_EQ(program_.takeEvents(), "click 1, click 0");
}

TEST_F(FrontEnd, tellsWhenItIsClosed) {
  drill_->activate();
  const auto* const focus = host().focusWidget();
  clickCloseBox();
  EXPECT_EQ(host().focusWidget(), focus);
  EXPECT_FALSE(host().close());
  EXPECT_EQ(program_.takeEvents(), "close, close");
}

TEST_F(FrontEnd, dropsTheRepeatsOfAKeyFromAnotherScreen) {
  constexpr quint32 enterKey = 36;
  drill_->activate();
  sendKey(QEvent::KeyPress, Qt::Key_Return, enterKey, "\r");
  sendKey(QEvent::KeyPress, Qt::Key_Return, enterKey, "\r", Qt::NoModifier, true);
  home_->activate();
  sendKey(QEvent::KeyPress, Qt::Key_Return, enterKey, "\r", Qt::NoModifier, true);
  sendKey(QEvent::KeyRelease, Qt::Key_Return, enterKey, "\r");
  EXPECT_EQ(program_.takeEvents(), "key 13/13, key 13/13");
}

// ---- The focus of the buttons ------------------------------------------------------------------------

TEST_F(FrontEnd, movesTheFocusByTabAndGivesItBack) {
  press(Qt::Key_Space, " ");
  EXPECT_EQ(program_.takeEvents(), "key 0/32, click 0");
  press(Qt::Key_Tab, "\t");
  EXPECT_EQ(program_.takeEvents(), "");
  press(Qt::Key_Space, " ");
  EXPECT_EQ(program_.takeEvents(), "key 0/32, click 1");
  drill_->activate();
  home_->activate();
  passTime(); // or else the key would be taken for a repeat
  press(Qt::Key_Enter, "\r");
  press(Qt::Key_Backtab, "\t");
  press(Qt::Key_Return, "\r");
  EXPECT_EQ(program_.takeEvents(), "key 13/13, click 1, key 13/13, click 0");
}

TEST_F(FrontEnd, clicksNoButtonByAKeyThatIsUsedUp) {
  program_.keyUse = Events::KeyUse::screenChanged;
  press(Qt::Key_Space, " ");
  press(Qt::Key_Return, "\r");
  EXPECT_EQ(program_.takeEvents(), "key 0/32, key 13/13");
}

TEST_F(FrontEnd, clicksNoButtonByTheReleaseOfAKeyThatLedHome) {
  drill_->activate();
  program_.react = [this] { home_->activate(); };
  press(Qt::Key_Space, " ");
  EXPECT_EQ(program_.takeEvents(), "key 0/32");
}

// ---- A window that goes inside one of its own events -------------------------------------------------

/// What happens first to the active drill destroys it, and shows the home screen.
class DestroyedWindow : public FrontEnd {
protected:
  DestroyedWindow() {
    drill_->activate();
    program_.react = [this] {
      drill_.reset();
      home_->activate();
      program_.react = [] {};
    };
  }
  void expectToldOnly(const std::string& event) {
    EXPECT_EQ(program_.takeEvents(), event);
    EXPECT_EQ(seen(labelBackground), QRect());
    clickArrow();
    passTime();
    EXPECT_EQ(program_.takeEvents(), "click 0"); // the button that lies where the arrow was
  }
};

TEST_F(DestroyedWindow, byAKey) {
  press(Qt::Key_7, "7");
  expectToldOnly("key 0/55");
}

TEST_F(DestroyedWindow, byAClick) {
  clickArrow();
  expectToldOnly("click 0");
}

TEST_F(DestroyedWindow, byItsCloseBox) {
  clickCloseBox();
  expectToldOnly("close");
}

TEST_F(DestroyedWindow, byATick) {
  ticking(Switch::on);
  EXPECT_TRUE(QTest::qWaitFor([&] { return drill_ == nullptr; }));
  expectToldOnly("tick 3");
}

TEST_F(DestroyedWindow, beforeAnotherIsActive) {
  drill_.reset();
  EXPECT_EQ(seen(labelBackground), QRect());
  press(Qt::Key_7, "7");
  home_->activate();
  for (auto* const button : host().findChildren<QAbstractButton*>())
    if (!button->isVisible()) button->click();
  passTime();
  EXPECT_EQ(program_.takeEvents(), "");
}

// ---- Time and size -----------------------------------------------------------------------------------

TEST_F(FrontEnd, ticksWhetherOrNotInFront) {
  int ticks = 0;
  program_.react = [&] { ++ticks; };
  ticking(Switch::on);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }));
  EXPECT_EQ(program_.takeEvents().substr(0, 14), "tick 3, tick 3");
  ticking(Switch::off);
  passTime();
  EXPECT_EQ(program_.takeEvents(), "");
  drill_ = platform_.createWindow(drillLayout, program_);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 3; })) << "its timer is on by design";
}

TEST_F(FrontEnd, timersStartedInOneEventStartAtOnce) {
  const auto second = platform_.createWindow(drillLayout, program_);
  second->stopTimer(timer);
  drill_->startTimer(timer, 1h);
  second->startTimer(arrow, 1h);
  program_.react = [&] {
    second->startTimer(arrow, 2ms);
    QTest::qSleep(2);
    drill_->startTimer(timer, 2ms);
    program_.react = [&] { second->stopTimer(arrow); };
  };
  press(Qt::Key_7, "7");
  passTime();
  EXPECT_EQ(program_.takeEvents().substr(0, 18), "key 0/55, tick 3, ");
}

TEST_F(FrontEnd, hiddenPagesFollowTheHost) {
  EXPECT_FLOAT_EQ(home_->width(), static_cast<float>(host().width()) * 0.75F);
  EXPECT_FLOAT_EQ(drill_->width(), static_cast<float>(host().width() - 2) * 0.75F) << "before its first show";
  drill_->drawBox({0, 300}, {20, 320}, 1, blue, blue);
  host().resize(1000, 700);
  EXPECT_FLOAT_EQ(drill_->width(), (1000 - 2) * 0.75F);
  host().resize(1100, 800);
  drill_->activate();
  EXPECT_EQ(pixel(10, 26 + 410), blueDot);
}

TEST_F(FrontEnd, showsLabelsInTheirOwnColours) {
  drill_->activate();
  const QImage before = host().grab().toImage();
  drill_->setCaption(label, "");
  EXPECT_NE(host().grab().toImage(), before);
  EXPECT_EQ(seen(labelBackground), QRect(1, 26 + 60, 200, 40));
}

TEST_F(FrontEnd, isDrawnAnewOnAScreenWithMoreDots) {
  drill_->activate();
  drill_->drawText({20, 150}, "8g", face, blue);
  const auto grabbedOn = [this](int screen) {
    host().windowHandle()->setScreen(QGuiApplication::screens().at(screen));
    QCoreApplication::processEvents();
    return host().grab(QRect{1, 200, 300, 100}).toImage();
  };
  const QImage coarse = grabbedOn(0);
  const QImage fine = grabbedOn(2);
  ASSERT_EQ(fine.size(), coarse.size() * 2);
  EXPECT_NE(fine.scaled(coarse.size()).scaled(fine.size()), fine);
  EXPECT_EQ(grabbedOn(0), coarse);
}

// ---- Fit and zoom ------------------------------------------------------------------------------------

/// The content area of the drill is 909 x 485 pixels then, and the least one 896 x 564: a scale of 0.86.
class SmallFrontEnd : public FrontEnd {
protected:
  SmallFrontEnd() {
    host().resize(911, 512);
    drill_->activate();
  }
};

TEST_F(SmallFrontEnd, showsEverythingSmaller) {
  constexpr qreal scale = 485.0 / 564;
  EXPECT_NEAR(drill_->width(), 909 / scale * 0.75, 0.01);
  drill_->drawBox({0, 300}, {20, 320}, 1, blue, blue);
  const QRect box = seen(blueDot);
  EXPECT_NEAR(box.top(), 26 + 400 * scale, 1);
  EXPECT_NEAR(box.right(), 1 + 26.7 * scale, 1);
  EXPECT_NEAR(seen(labelBackground).bottom(), 26 + 100 * scale, 1);
}

TEST_F(SmallFrontEnd, takesClicksWhereItShowsTheControls) {
  clickAt(1 + 88, 26 + 2);
  clickAt(1 + 112, 26 + 25);
  EXPECT_EQ(program_.takeEvents(), "click 0, click 0");
  clickAt(1 + 84, 26 + 10);
  clickAt(1 + 115, 26 + 10);
  clickAt(1 + 100, 26 + 29);
  EXPECT_EQ(program_.takeEvents(), "") << "beside the arrow and below it";
}

TEST_F(FrontEnd, dropsTheRepeatsOfAZoomKeyWithoutControl) {
  constexpr quint32 equalsKey = 21;
  drill_->activate();
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
    drill_->activate();
    for (int step = 0; step < 10; ++step)
      zoom(Qt::Key_Plus);
  }
  /// 32 x 32 pixels and one more, three times as large; `corner` is in multiples of 3/4 points, whole pixels.
  void drawBoxAt(Point corner) { drill_->drawBox(corner, {corner.x + 24, corner.y + 24}, 1, blue, blue); }
};

TEST_F(ZoomedFrontEnd, isLargerUntilItIsToldOtherwise) {
  EXPECT_EQ(program_.takeEvents(), "") << "nobody else sees the keys of the zoom";
  EXPECT_FLOAT_EQ(drill_->width(), static_cast<float>(host().width() - 2) * 0.75F);
  clickAt(1 + 300 + 90, 26 + 90);
  EXPECT_EQ(program_.takeEvents(), "click 0");
  home_->activate();
  drill_->activate();
  EXPECT_EQ(seen(labelBackground), QRect(1, 26 + 180, 600, 120));
  zoom(Qt::Key_0);
  EXPECT_EQ(seen(labelBackground), QRect(1, 26 + 60, 200, 40));
}

TEST_F(ZoomedFrontEnd, followsWhatIsDrawn) {
  drawBoxAt({600, 381});
  passTime();
  EXPECT_EQ(seen(blueDot).size(), QSize(99, 99));
  drill_->drawBox({0, 0}, {20, 20}, 1, white, white);
  passTime();
  EXPECT_EQ(seen(blueDot).size(), QSize(99, 99)) << "nothing to be seen was drawn";
  drill_->drawText({10, 10}, "8", face, blue);
  passTime();
  EXPECT_LT(seen(blueDot).right(), 150);
}

TEST_F(ZoomedFrontEnd, showsTheTopLeftOfWhatDoesNotFit) {
  drawBoxAt({99, 99});
  drawBoxAt({600, 381});
  passTime();
  EXPECT_EQ(seen(blueDot).size(), QSize(99, 99));
  EXPECT_LT(seen(blueDot).left(), 100);
}

TEST_F(ZoomedFrontEnd, isNotCarriedAwayByAClock) {
  int ticks = 0;
  program_.react = [&] {
    drawBoxAt({600, 381});
    ++ticks;
  };
  ticking(Switch::on);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }));
  passTime();
  EXPECT_EQ(seen(blueDot), QRect());
  program_.react = [this] {
    drawBoxAt({600, 381});
    drill_->setVisible(stop, Visibility::visible);
    program_.react = [] {};
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return !seen(blueDot).isEmpty(); }));
}

TEST_F(ZoomedFrontEnd, showsAnImageThatBecomesVisible) {
  turnWheel({0, -12000});
  drill_->setVisible(stop, Visibility::visible);
  passTime();
  clickAt(1 + 600 + 50, 26 + 50);
  EXPECT_EQ(program_.takeEvents(), "click 1");
}

TEST_F(ZoomedFrontEnd, showsTheButtonThatGetsTheFocus) {
  home_->activate();
  press(Qt::Key_Backtab, "\t");
  clickAt(1280 - 300, 1024 - 100);
  EXPECT_EQ(program_.takeEvents(), "click 2");
}

/// The minimum content area has 3 x 896 by 3 x 564 pixels, of which 1278 by 997 are shown.
TEST_F(ZoomedFrontEnd, isPannedByTheWheelAsFarAsThereIsSomethingToSee) {
  drill_->drawBox({0, 0}, {671.25F, 422.25F}, 1, blue, std::nullopt);
  drill_->activate();
  passTime();
  turnWheel({0, -120});
  EXPECT_EQ(seen(labelBackground).top(), 26 + 180 - 60);
  turnWheel({0, -120}, Qt::ShiftModifier);
  EXPECT_EQ(seen(labelBackground).right(), 600 - 60);
  turnWheel({-120000, -120000});
  EXPECT_EQ(pixel(1276, 26 + 900), blueDot);
  EXPECT_EQ(pixel(1000, 26 + 994), blueDot);
  home_->activate();
  drill_->activate();
  EXPECT_EQ(pixel(1, 26), blueDot);
}

// ---- Themes ------------------------------------------------------------------------------------------

qreal luminance(QRgb dot) {
  const auto linear = [](int part) { return std::pow(part / 255.0, 2.2); };
  return 0.2126 * linear(qRed(dot)) + 0.7152 * linear(qGreen(dot)) + 0.0722 * linear(qBlue(dot));
}

/// From 1 to 21, between the lightest and the darkest dot.
qreal contrast(const QImage& image) {
  const QImage copy = image.convertToFormat(QImage::Format_RGB32);
  const std::span dots{reinterpret_cast<const QRgb*>(copy.constBits()),
                       static_cast<std::size_t>(copy.width() * copy.height())};
  const auto [darkest, lightest] = std::ranges::minmax(dots, {}, luminance);
  return (luminance(lightest) + 0.05) / (luminance(darkest) + 0.05);
}

/// The colours of buttons and of windows.
using Palette = std::pair<QColor, QColor>;

/// The palette of the theme, while there is one.
class Theme : public testing::WithParamInterface<Palette> {
protected:
  Theme() { QApplication::setPalette({GetParam().first, GetParam().second}); }
  ~Theme() override { QApplication::setPalette(usual_); }

private:
  QPalette usual_ = QApplication::palette();
};

class ThemedFrontEnd : public Theme, public FrontEnd {
protected:
  qreal contrastIn(QRect area) { return contrast(host().grab(area).toImage()); }
};

TEST_P(ThemedFrontEnd, canBeRead) {
  constexpr qreal readable = 4.5;
  EXPECT_GT(contrastIn({610, 530, 180, 20}), readable) << "button";
  EXPECT_NEAR(luminance(pixel(610, 540)), luminance(GetParam().first.rgb()), 0.1) << "as the theme wants it";
  drill_->activate();
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
