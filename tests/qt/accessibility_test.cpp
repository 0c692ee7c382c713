// SPDX-License-Identifier: MIT
#include "shell/qt/qt_platform.h"

#include <QAccessible>
#include <QTest>

#include <gtest/gtest.h>

namespace chiffrolo::qt {

namespace {

constexpr Font face{"Times New Roman", 18};
constexpr std::array controls{
    ControlLayout{.kind = ControlKind::image,
                  .name = "flèche",
                  .place = {1500, 0, 480, 480},
                  .accessibleName = "Continuer",
                  .picture = Picture::arrow},
    ControlLayout{.kind = ControlKind::label,
                  .name = "titre",
                  .place = {0, 900, 3000, 600},
                  .caption = "Chiffrolo",
                  .font = face},
    ControlLayout{.kind = ControlKind::timer, .name = "Minuterie"},
};
constexpr ScreenLayout layout{ScreenName::addition, "",      "Additions", Frame::frameless, face,
                              {255, 255, 255},      controls};

/// Has something to read and something to say.
class TalkingProgram final : public Events {
public:
  KeyUse key(int, std::optional<char32_t>) noexcept override { return KeyUse::screenStayed; }
  void click(ControlIndex) noexcept override {}
  void tick(ScreenName, ControlIndex) noexcept override {}
  void front(ScreenName) noexcept override {}
  void close() noexcept override {}
  std::vector<SpokenText> spokenTexts(ScreenName) const noexcept override { return texts; }
  std::string takeNews() noexcept override { return std::exchange(news, {}); }

  std::vector<SpokenText> texts;
  std::string news;
};

class ScreenReader : public testing::Test {
protected:
  ScreenReader() {
    QAccessible::setActive(true);
    window_->activate();
  }
  ~ScreenReader() override { QAccessible::setActive(false); }

  void pressKey() {
    auto* const host = QApplication::topLevelWidgets().constFirst();
    QTest::sendKeyEvent(QTest::Click, host->windowHandle(), Qt::Key_7, "7", Qt::NoModifier);
    QCoreApplication::processEvents();
  }

  QAccessibleInterface& surface() {
    auto* const host = QAccessible::queryAccessibleInterface(QApplication::topLevelWidgets().constFirst());
    return *host->child(0)->child(0)->child(0);
  }

  QAccessibleInterface& notification() { return *surface().child(surface().childCount() - 1); }

  /// The names of what lies on the surface, of what has one.
  std::string names() {
    std::string all;
    for (int index = 0; index < surface().childCount(); ++index) {
      const auto name = surface().child(index)->text(QAccessible::Name).toStdString();
      if (!name.empty()) all += (all.empty() ? "" : " | ") + name;
      EXPECT_EQ(surface().indexOfChild(surface().child(index)), index) << name;
      EXPECT_EQ(surface().child(index)->parent(), &surface()) << name;
    }
    return all;
  }

  QtPlatform platform_;
  TalkingProgram program_;
  std::unique_ptr<Window> window_ = platform_.createWindow(layout, program_);
};

TEST_F(ScreenReader, findsTextsAndControls) {
  program_.texts = {{"47 plus 35 égale ?", {60, 80}, {200, 110}}, {"FAUX", {400, 90}, {440, 110}}};
  pressKey();
  EXPECT_EQ(names(), "47 plus 35 égale ? | FAUX | Continuer | Chiffrolo");
  const QPoint corner = QApplication::topLevelWidgets().constFirst()->mapToGlobal(QPoint{});
  EXPECT_EQ(surface().child(0)->rect(), QRect(80, 106, 187, 41).translated(corner))
      << "96 pixels to 72 points";
  EXPECT_EQ(surface().parent()->parent()->text(QAccessible::Name), "Additions");
  EXPECT_EQ(surface().parent()->parent()->parent()->role(), QAccessible::Window);
  EXPECT_EQ(notification().role(), QAccessible::Notification);
}

TEST_F(ScreenReader, seesTextsComeChangeAndGo) {
  program_.texts = {{"47 plus 35 égale ?", {}, {}}};
  pressKey();
  const auto* const line = surface().child(0);
  program_.texts = {{"47 plus 35 égale 8 ?", {}, {}}, {"FAUX", {}, {}}};
  pressKey();
  EXPECT_EQ(names(), "47 plus 35 égale 8 ? | FAUX | Continuer | Chiffrolo");
  EXPECT_EQ(surface().child(0), line) << "the same element under another name";
  program_.texts.clear();
  pressKey();
  EXPECT_EQ(names(), "Continuer | Chiffrolo");
}

TEST_F(ScreenReader, isToldTheNewsByANotification) {
  EXPECT_TRUE(notification().state().invisible) << "nothing to say yet";
  program_.news = "Bravo";
  pressKey();
  pressKey();
  EXPECT_EQ(notification().text(QAccessible::Name), "Bravo");
  EXPECT_FALSE(notification().state().invisible);
}

TEST_F(ScreenReader, isToldOfWhatTimeBrings) {
  program_.news = "trop tard";
  window_->startTimer(2, std::chrono::milliseconds{1});
  EXPECT_TRUE(QTest::qWaitFor([&] { return notification().text(QAccessible::Name) == "trop tard"; }));
}

TEST_F(ScreenReader, isNotServedUnlessItListens) {
  QAccessible::setActive(false);
  program_.news = "Bravo";
  pressKey();
  EXPECT_EQ(program_.news, "Bravo") << "not even asked for";
}

} // namespace

} // namespace chiffrolo::qt
