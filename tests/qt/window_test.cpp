// SPDX-License-Identifier: MIT
#include "shell/qt/qt_platform.h"

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

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
  passTime();
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
  ticking(Switch::on);
  passTime();
  EXPECT_NE(program_.told().find("tick 3, tick 3"), std::string::npos);
  ticking(Switch::off);
  passTime();
  EXPECT_EQ(program_.told(), "");
}

TEST_F(FrontEnd, startsTimersThatAreOnByDesign) {
  drill_ = platform_.createWindow(drillLayout, program_);
  passTime();
  EXPECT_EQ(program_.told().substr(0, 6), "tick 3");
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
  drill_->drawBox({0, 300}, {20, 320}, 1, {0, 0, 255}, Colour{0, 0, 255});
  host().resize(500, 400);
  EXPECT_FLOAT_EQ(drill_->width(), (500 - 2) * 0.75F);
  host().resize(700, 600);
  drill_->activate();
  EXPECT_EQ(pixel(10, 26 + 410), qRgb(0, 0, 255));
}

TEST_F(FrontEnd, showsLabelsInTheirOwnColours) {
  drill_->activate();
  EXPECT_EQ(pixel(199, 26 + 98), labelBackground);
  const QImage before = host().grab().toImage();
  drill_->setCaption(label, "");
  EXPECT_NE(host().grab().toImage(), before);
  EXPECT_EQ(pixel(10, 26 + 70), labelBackground);
}

} // namespace

} // namespace chiffrolo::qt
