// SPDX-License-Identifier: MIT
#include "shell/qt/qt_platform.h"

#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <sstream>

namespace chiffrolo::qt {

namespace {

using namespace std::chrono_literals;
using enum ScreenName;

constexpr Font face{"Times New Roman", 18};
constexpr Colour white{255, 255, 255};

// A screen with buttons and one without, each control named by its index in the layout.
constexpr std::array homeControls{
    ControlLayout{.kind = ControlKind::button, .name = "first", .place = {0, 300, 3000, 600}, .font = face},
    ControlLayout{.kind = ControlKind::button, .name = "second", .place = {0, 900, 3000, 600}, .font = face},
    ControlLayout{.kind = ControlKind::button,
                  .name = "third",
                  .place = {9000, 7800, 3000, 600},
                  .caption = "Chiffrolo",
                  .font = face},
};

constexpr ControlIndex arrow = 0;
constexpr ControlIndex stop = 1;
constexpr ControlIndex label = 2;
constexpr ControlIndex timer = 3;
constexpr std::array drillControls{
    ControlLayout{
        .kind = ControlKind::image, .name = "arrow", .place = {1500, 0, 480, 480}, .picture = Picture::arrow},
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

constexpr Colour blue{0, 0, 255};
constexpr QRgb blueDot = qRgb(0, 0, 255);
constexpr QRgb labelBackground = qRgb(255, 255, 224);

constexpr ScreenLayout homeLayout{accueil, "", "Accueil", Frame::frameless, face, white, homeControls};
constexpr ScreenLayout drillLayout{addition, "Exercice", "Additions",  Frame::toolWindow,
                                   face,     white,      drillControls};

/// Notes what it is told, and does what a test wants it to do meanwhile.
class FakeProgram final : public Events {
public:
  KeyUse key(int code, std::optional<char32_t> character) noexcept override {
    note() << "key " << code << '/' << (character ? static_cast<int>(*character) : -1);
    react();
    return keyUse;
  }
  void click(ControlIndex control) noexcept override {
    note() << "click " << control;
    react();
  }
  void tick(ScreenName /*screen*/, ControlIndex timerIndex) noexcept override {
    note() << "tick " << timerIndex;
    react();
  }
  void front(ScreenName /*screen*/) noexcept override { note() << "front"; }
  void close() noexcept override {
    note() << "close";
    react();
  }

  std::vector<SpokenText> spokenTexts(ScreenName /*screen*/) const noexcept override { return {}; }
  std::string takeNews() noexcept override { return {}; }

  /// What it was told since it was last asked.
  std::string told() { return std::exchange(told_, {}).str(); }

  KeyUse keyUse{KeyUse::screenStayed};
  std::function<void()> react{[] {}};

private:
  std::ostream& note() { return told_ << (told_.view().empty() ? "" : ", "); }

  std::ostringstream told_;
};

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
  void zoomToThree() {
    for (int step = 0; step < 10; ++step)
      zoom(Qt::Key_Plus);
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
    QRect area;
    const QImage image = host().grab().toImage();
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixel(x, y) == colour) area |= QRect{x, y, 1, 1};
    return area;
  }

  QtPlatform platform_;
  FakeProgram program_;
  std::unique_ptr<Window> home_ = platform_.createWindow(homeLayout, program_);
  std::unique_ptr<Window> drill_ = platform_.createWindow(drillLayout, program_);
};

// ---- What the learner does ---------------------------------------------------------------------------

TEST_F(FrontEnd, tellsKeys) {
  drill_->activate();
  press(Qt::Key_7, "7");
  press(Qt::Key_Right);
  press(Qt::Key_Tab, "\t");
  press(Qt::Key_Shift);
  EXPECT_EQ(program_.told(), "key 0/55, key 39/-1, key 0/-1");
}

TEST_F(FrontEnd, tellsClicksOnButtonsAndImagesOnly) {
  clickAt(10, 70);
  clickAt(10, 300);
  drill_->activate();
  clickArrow();
  clickAt(10, 100);
  clickAt(100 + 16, 26 + 16, Qt::RightButton);
  EXPECT_EQ(program_.told(), "click 1, click 0");
}

TEST_F(FrontEnd, tellsClicksOnImagesWhileTheyAreVisible) {
  drill_->activate();
  clickAt(216, 42);
  EXPECT_EQ(program_.told(), "");
  drill_->setVisible(stop, Visibility::visible);
  clickAt(216, 42);
  EXPECT_EQ(program_.told(), "click 1");
  drill_->setVisible(arrow, Visibility::hidden);
  clickArrow();
  EXPECT_EQ(program_.told(), "");
}

TEST_F(FrontEnd, tellsWhenItIsClosed) {
  drill_->activate();
  const auto* const focus = host().focusWidget();
  clickCloseBox();
  EXPECT_EQ(program_.told(), "close");
  EXPECT_EQ(host().focusWidget(), focus);
  EXPECT_FALSE(host().close());
  EXPECT_EQ(program_.told(), "close");
}

TEST_F(FrontEnd, dropsTheRepeatsOfAKeyFromAnotherScreen) {
  const auto event = [this](QEvent::Type type, bool isRepeat) {
    QKeyEvent sent{type, Qt::Key_Return, Qt::NoModifier, 36, 0, 0, "\r", isRepeat};
    QCoreApplication::sendEvent(host().windowHandle(), &sent);
  };
  drill_->activate();
  event(QEvent::KeyPress, false);
  event(QEvent::KeyPress, true);
  home_->activate();
  event(QEvent::KeyPress, true);
  event(QEvent::KeyRelease, false);
  EXPECT_EQ(program_.told(), "key 13/13, key 13/13");
}

// ---- The focus of the buttons ------------------------------------------------------------------------

TEST_F(FrontEnd, movesTheFocusByTab) {
  press(Qt::Key_Space, " ");
  EXPECT_EQ(program_.told(), "key 0/32, click 0");
  press(Qt::Key_Tab, "\t");
  EXPECT_EQ(program_.told(), "");
  press(Qt::Key_Space, " ");
  EXPECT_EQ(program_.told(), "key 0/32, click 1");
  press(Qt::Key_Backtab, "\t");
  press(Qt::Key_Return, "\r");
  EXPECT_EQ(program_.told(), "key 13/13, click 0");
}

TEST_F(FrontEnd, givesTheFocusBackToItsButton) {
  press(Qt::Key_Tab, "\t");
  drill_->activate();
  press(Qt::Key_Space, " ");
  EXPECT_EQ(program_.told(), "key 0/32");
  home_->activate();
  press(Qt::Key_Enter, "\r");
  EXPECT_EQ(program_.told(), "key 13/13, click 1");
}

TEST_F(FrontEnd, clicksNoButtonByAKeyThatIsUsedUp) {
  program_.keyUse = Events::KeyUse::screenChanged;
  press(Qt::Key_Space, " ");
  press(Qt::Key_Return, "\r");
  EXPECT_EQ(program_.told(), "key 0/32, key 13/13");
}

TEST_F(FrontEnd, clicksNoButtonByTheReleaseOfAKeyThatLedHome) {
  drill_->activate();
  program_.react = [this] { home_->activate(); };
  press(Qt::Key_Space, " ");
  EXPECT_EQ(program_.told(), "key 0/32");
}

// ---- A window that goes inside one of its own events -------------------------------------------------

class DestroyedWindow : public FrontEnd {
protected:
  /// What happens next to the active drill destroys it, and shows the home screen.
  void destroyInNextEvent() {
    drill_->activate();
    program_.react = [this] {
      drill_.reset();
      home_->activate();
      program_.react = [] {};
    };
  }
  void expectNothingMore() {
    EXPECT_NE(pixel(10, 100), labelBackground);
    clickArrow();
    passTime();
    EXPECT_EQ(program_.told(), "click 0"); // the button that lies where the arrow was
  }
};

TEST_F(DestroyedWindow, byAKey) {
  destroyInNextEvent();
  press(Qt::Key_7, "7");
  EXPECT_EQ(program_.told(), "key 0/55");
  expectNothingMore();
}

TEST_F(DestroyedWindow, byAClick) {
  destroyInNextEvent();
  clickArrow();
  EXPECT_EQ(program_.told(), "click 0");
  expectNothingMore();
}

TEST_F(DestroyedWindow, byItsCloseBox) {
  destroyInNextEvent();
  clickCloseBox();
  EXPECT_EQ(program_.told(), "close");
  expectNothingMore();
}

TEST_F(DestroyedWindow, byATick) {
  destroyInNextEvent();
  ticking(Switch::on);
  EXPECT_TRUE(QTest::qWaitFor([&] { return drill_ == nullptr; }));
  EXPECT_EQ(program_.told(), "tick 3");
  expectNothingMore();
}

TEST_F(DestroyedWindow, beforeAnotherIsActive) {
  drill_->activate();
  drill_.reset();
  EXPECT_NE(pixel(10, 100), labelBackground);
  passTime();
  press(Qt::Key_7, "7");
  EXPECT_EQ(program_.told(), "");
}

TEST_F(DestroyedWindow, tellsNothingUntilItIsDeleted) {
  drill_->activate();
  drill_.reset();
  home_->activate();
  for (auto* const button : host().findChildren<QAbstractButton*>())
    if (!button->isVisible()) button->click();
  EXPECT_EQ(program_.told(), "");
}

// ---- Time and size -----------------------------------------------------------------------------------

TEST_F(FrontEnd, ticksWhetherOrNotInFront) {
  int ticks = 0;
  program_.react = [&] { ++ticks; };
  ticking(Switch::on);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }));
  EXPECT_EQ(program_.told().substr(0, 14), "tick 3, tick 3");
  ticking(Switch::off);
  passTime();
  EXPECT_EQ(program_.told(), "");
}

TEST_F(FrontEnd, startsTimersThatAreOnByDesign) {
  bool ticked = false;
  program_.react = [&] { ticked = true; };
  drill_ = platform_.createWindow(drillLayout, program_);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticked; }));
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
  EXPECT_EQ(program_.told().substr(0, 18), "key 0/55, tick 3, ");
}

TEST_F(FrontEnd, showsTheActiveScreenOnly) {
  const QImage home = host().grab().toImage();
  drill_->activate();
  EXPECT_NE(host().grab().toImage(), home);
  home_->activate();
  EXPECT_EQ(host().grab().toImage(), home);
}

TEST_F(FrontEnd, quitsWithSuccess) {
  platform_.quit();
  EXPECT_FALSE(host().isVisible());
  EXPECT_EQ(QCoreApplication::exec(), 0);
}

TEST_F(FrontEnd, knowsTheWidthBeforeTheFirstShow) {
  EXPECT_FLOAT_EQ(home_->width(), static_cast<float>(host().width()) * 0.75F);
  EXPECT_FLOAT_EQ(drill_->width(), static_cast<float>(host().width() - 2) * 0.75F);
}

TEST_F(FrontEnd, hiddenPagesFollowTheHost) {
  drill_->drawBox({0, 300}, {20, 320}, 1, blue, blue);
  host().resize(1000, 700);
  EXPECT_FLOAT_EQ(drill_->width(), (1000 - 2) * 0.75F);
  host().resize(1100, 800);
  drill_->activate();
  EXPECT_EQ(pixel(10, 26 + 410), blueDot);
}

TEST_F(FrontEnd, showsLabelsInTheirOwnColours) {
  drill_->activate();
  EXPECT_EQ(pixel(199, 26 + 98), labelBackground);
  const QImage before = host().grab().toImage();
  drill_->setCaption(label, "");
  EXPECT_NE(host().grab().toImage(), before);
  EXPECT_EQ(pixel(10, 26 + 70), labelBackground);
}

TEST_F(FrontEnd, followsTheScreenThatNobodyMaximizesItOn) {
  drill_->activate();
  drill_->drawBox({0, 300}, {20, 320}, 1, blue, blue);
  host().resize(500, 400);
  emit host().screen()->availableGeometryChanged(host().screen()->availableGeometry());
  EXPECT_TRUE(QTest::qWaitFor([&] { return host().geometry() == host().screen()->availableGeometry(); }));
  EXPECT_EQ(seen(blueDot), QRect(1, 26 + 400, 27, 27));
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

/// The inner area of the drill is 909 x 485 pixels then, and the least one 896 x 564: a scale of 0.86.
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
  clickAt(1 + 84, 26 + 10);
  clickAt(1 + 115, 26 + 10);
  clickAt(1 + 100, 26 + 29);
  EXPECT_EQ(program_.told(), "click 0, click 0");
}

TEST_F(FrontEnd, zoomsByKeysThatNobodyElseSees) {
  drill_->activate();
  const Points width = drill_->width();
  const QRect normal = seen(labelBackground);
  zoomToThree();
  EXPECT_EQ(program_.told(), "");
  EXPECT_FLOAT_EQ(drill_->width(), width);
  EXPECT_EQ(seen(labelBackground), QRect(1, 26 + 180, 600, 120));
  clickAt(1 + 300 + 90, 26 + 90);
  EXPECT_EQ(program_.told(), "click 0");
  home_->activate();
  drill_->activate();
  EXPECT_EQ(seen(labelBackground).width(), 600);
  zoom(Qt::Key_0);
  EXPECT_EQ(seen(labelBackground), normal);
}

TEST_F(FrontEnd, dropsTheRepeatsOfAZoomKeyWithoutControl) {
  const auto event = [this](QEvent::Type type, Qt::KeyboardModifiers modifiers, bool isRepeat) {
    QKeyEvent sent{type, Qt::Key_Equal, modifiers, 21, 0, 0, "=", isRepeat};
    QCoreApplication::sendEvent(host().windowHandle(), &sent);
  };
  drill_->activate();
  event(QEvent::KeyPress, Qt::NoModifier, false);
  event(QEvent::KeyRelease, Qt::NoModifier, false);
  EXPECT_EQ(program_.told(), "key 0/61");
  event(QEvent::KeyPress, Qt::ControlModifier, false);
  event(QEvent::KeyPress, Qt::ControlModifier, true);
  event(QEvent::KeyPress, Qt::NoModifier, true);
  EXPECT_EQ(program_.told(), "");
}

class ZoomedFrontEnd : public FrontEnd {
protected:
  ZoomedFrontEnd() {
    drill_->activate();
    zoomToThree();
  }
  /// 32 x 32 pixels and one more, three times as large; `corner` is in multiples of 3/4 points, whole pixels.
  void drawBoxAt(Point corner) { drill_->drawBox(corner, {corner.x + 24, corner.y + 24}, 1, blue, blue); }
};

TEST_F(ZoomedFrontEnd, followsWhatIsDrawn) {
  drawBoxAt({600, 381});
  passTime();
  EXPECT_EQ(seen(blueDot).size(), QSize(99, 99));
  drill_->drawBox({0, 0}, {20, 20}, 1, white, white);
  passTime();
  EXPECT_EQ(seen(blueDot).size(), QSize(99, 99));
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
  clickAt(1 + 600 + 50, 26 + 50);
  EXPECT_EQ(program_.told(), "");
  drill_->setVisible(stop, Visibility::visible);
  passTime();
  clickAt(1 + 600 + 50, 26 + 50);
  EXPECT_EQ(program_.told(), "click 1");
}

TEST_F(ZoomedFrontEnd, showsTheButtonThatGetsTheFocus) {
  home_->activate();
  press(Qt::Key_Backtab, "\t");
  clickAt(1280 - 300, 1024 - 100);
  EXPECT_EQ(program_.told(), "click 2");
}

/// The least inner area has 3 x 896 by 3 x 564 pixels, of which 1278 by 997 are shown.
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

class Theme : public testing::Test {
protected:
  ~Theme() override { QApplication::setPalette(usual_); }

  static void darken() {
    QPalette dark{QColor{40, 40, 40}, QColor{30, 30, 30}};
    QApplication::setPalette(dark);
  }
  static qreal luminance(QRgb dot) {
    const auto linear = [](int part) { return std::pow(part / 255.0, 2.2); };
    return 0.2126 * linear(qRed(dot)) + 0.7152 * linear(qGreen(dot)) + 0.0722 * linear(qBlue(dot));
  }
  /// From 1 to 21, between the lightest and the darkest dot.
  static qreal contrast(const QImage& image) {
    qreal lightest = 0;
    qreal darkest = 1;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) {
        lightest = std::max(lightest, luminance(image.pixel(x, y)));
        darkest = std::min(darkest, luminance(image.pixel(x, y)));
      }
    return (lightest + 0.05) / (darkest + 0.05);
  }

private:
  QPalette usual_ = QApplication::palette();
};

class ThemedFrontEnd : public Theme, public testing::WithParamInterface<bool> {
protected:
  ThemedFrontEnd() {
    if (GetParam()) darken();
  }
};

TEST_P(ThemedFrontEnd, canBeRead) {
  QtPlatform platform;
  FakeProgram program;
  const auto home = platform.createWindow(homeLayout, program);
  const auto drill = platform.createWindow(drillLayout, program);
  auto& host = *QApplication::topLevelWidgets().constFirst();
  constexpr qreal readable = 4.5;
  home->activate();
  const QImage button = host.grab(QRect{610, 530, 180, 20}).toImage();
  EXPECT_GT(contrast(button), readable);
  EXPECT_EQ(luminance(button.pixel(0, 10)) < 0.2, GetParam()) << "the theme is the one that was asked for";
  drill->activate();
  EXPECT_GT(contrast(host.grab(QRect{5, 3, 100, 20}).toImage()), readable) << "title";
  EXPECT_GT(contrast(host.grab(QRect{host.width() - 20, 5, 16, 16}).toImage()), readable) << "close box";
  const QImage words = host.grab(QRect{1, 26 + 61, 200, 38}).toImage();
  EXPECT_EQ(words.pixel(199, 37), labelBackground);
  EXPECT_GT(contrast(words), 3.5) << "red on light yellow";
  EXPECT_EQ(host.grab().toImage().pixel(600, 500), qRgb(255, 255, 255));
  QToolTip::showText({300, 300}, QStringLiteral("Fermer"), &host);
  for (auto* const widget : QApplication::topLevelWidgets()) {
    if (widget == &host) continue;
    EXPECT_GT(contrast(widget->grab().toImage()), readable) << "tooltip";
  }
  QToolTip::hideText();
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemedFrontEnd, testing::Values(false, true),
                         [](const auto& tested) { return tested.param ? "dark" : "light"; });

} // namespace

} // namespace chiffrolo::qt
