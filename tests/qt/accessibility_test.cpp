// SPDX-License-Identifier: MIT
#include "tests/qt/front_end.h"

#include <QAccessible>

namespace chiffrolo::qt {

namespace {

class AccessibilityTree : public FrontEnd {
protected:
  AccessibilityTree() {
    QAccessible::setActive(true);
    exercise_->activate();
  }
  ~AccessibilityTree() override { QAccessible::setActive(false); }

  QAccessibleInterface& surface() {
    return *QAccessible::queryAccessibleInterface(&host())->child(1)->child(0)->child(0);
  }
  QAccessibleInterface& notification() { return *surface().child(surface().childCount() - 1); }

  /// The names of the surface's children, without empty ones. Checks the index and parent of every child.
  std::string childNames() {
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

TEST_F(AccessibilityTree, containsTextsAndControls) {
  program_.texts = {{"47 plus 35 égale ?", {60, 80}, {200, 110}}, {"FAUX", {400, 90}, {440, 110}}};
  pressKey(Qt::Key_7, "7");
  EXPECT_EQ(childNames(), "47 plus 35 égale ? | FAUX | Continuer | Chiffrolo");
  auto* const first = surface().child(0);
  const QPoint corner = host().mapToGlobal(QPoint{});
  EXPECT_EQ(first->rect(), QRect(81, 132, 187, 41).translated(corner))
      << "72 points are 96 pixels; the frame is on the left, the title bar above";
  program_.texts = {{"47 plus 35 égale 8 ?", {}, {}}};
  pressKey(Qt::Key_8, "8");
  EXPECT_EQ(childNames(), "47 plus 35 égale 8 ? | Continuer | Chiffrolo");
  EXPECT_EQ(surface().child(0), first) << "a changed text keeps its element";
  EXPECT_EQ(surface().parent()->parent()->text(QAccessible::Name), "Additions");
  EXPECT_EQ(surface().parent()->parent()->role(), QAccessible::LayeredPane)
      << "Orca reads the texts in a pane, and then the announcement, which contains them too";
  EXPECT_EQ(surface().parent()->parent()->parent()->role(), QAccessible::Window);
}

TEST_F(AccessibilityTree, containsTheAnnouncementAsANotification) {
  QAccessible::setActive(false);
  program_.announcement = "Bravo";
  pressKey(Qt::Key_7, "7");
  EXPECT_EQ(program_.announcement, "Bravo") << "not taken while no screen reader is running";
  EXPECT_TRUE(notification().state().invisible) << "nothing is announced yet";
  EXPECT_EQ(notification().role(), QAccessible::Notification);
  QAccessible::setActive(true);
  pressKey(Qt::Key_7, "7");
  pressKey(Qt::Key_7, "7"); // announces nothing new: the notification stays
  EXPECT_EQ(notification().text(QAccessible::Name), "Bravo");
  EXPECT_FALSE(notification().state().invisible);
  program_.announcement = "trop tard";
  exercise_->startTimer(timer, 5ms);
  EXPECT_TRUE(QTest::qWaitFor([&] { return notification().text(QAccessible::Name) == "trop tard"; }));
}

} // namespace

} // namespace chiffrolo::qt
