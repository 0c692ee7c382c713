// SPDX-License-Identifier: MIT
#include "tests/qt/front_end.h"

#include <QAccessible>

namespace chiffrolo::qt {

namespace {

class ScreenReader : public FrontEnd {
protected:
  ScreenReader() {
    QAccessible::setActive(true);
    drill_->activate();
  }
  ~ScreenReader() override { QAccessible::setActive(false); }

  void pressKey() {
    press(Qt::Key_7, "7");
    QCoreApplication::processEvents();
  }

  QAccessibleInterface& surface() {
    return *QAccessible::queryAccessibleInterface(&host())->child(1)->child(0)->child(0);
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
};

TEST_F(ScreenReader, findsTextsAndControls) {
  program_.texts = {{"47 plus 35 égale ?", {60, 80}, {200, 110}}, {"FAUX", {400, 90}, {440, 110}}};
  pressKey();
  EXPECT_EQ(names(), "47 plus 35 égale ? | FAUX | Continuer | Chiffrolo");
  const QPoint corner = host().mapToGlobal(QPoint{});
  EXPECT_EQ(surface().child(0)->rect(), QRect(81, 132, 187, 41).translated(corner))
      << "96 pixels to 72 points, beside the frame and below the title";
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
  program_.announcement = "Bravo";
  pressKey();
  pressKey();
  EXPECT_EQ(notification().text(QAccessible::Name), "Bravo");
  EXPECT_FALSE(notification().state().invisible);
  program_.announcement = "trop tard";
  ticking(Switch::on);
  EXPECT_TRUE(QTest::qWaitFor([&] { return notification().text(QAccessible::Name) == "trop tard"; }));
}

TEST_F(ScreenReader, isNotServedUnlessItListens) {
  QAccessible::setActive(false);
  program_.announcement = "Bravo";
  pressKey();
  EXPECT_EQ(program_.announcement, "Bravo") << "not even asked for";
}

} // namespace

} // namespace chiffrolo::qt
