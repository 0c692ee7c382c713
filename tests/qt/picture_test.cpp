// SPDX-License-Identifier: MIT
#include "shell/qt/dots.h"
#include "shell/qt/drawing_surface.h"
#include "shell/qt/retained_picture.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

namespace chiffrolo::qt {

namespace {

const QColor white{255, 255, 255};
const QColor red{255, 0, 0};
const QColor blue{0, 0, 255};

class Picture : public testing::Test {
protected:
  void SetUp() override {
    picture_.fit({100, 100}, 1);
    paint({90, 90, 10, 10}, red);
  }

  void paint(QRect area, QColor colour) { QPainter{&picture_.image()}.fillRect(area, colour); }
  QColor dot(int x, int y) { return picture_.image().pixelColor(x, y); }

  RetainedPicture picture_{white};
};

TEST_F(Picture, growsWithTheBackground) {
  picture_.fit({200, 150}, 1);
  EXPECT_EQ(picture_.image().size(), QSize(200, 150));
  EXPECT_EQ(dot(95, 95), red);
  EXPECT_EQ(dot(100, 95), white);
  EXPECT_EQ(dot(95, 149), white);
}

TEST_F(Picture, keepsWhatASmallerSurfaceCutsOff) {
  picture_.fit({50, 50}, 1);
  EXPECT_EQ(dot(10, 10), white);
  picture_.fit({100, 100}, 1);
  EXPECT_EQ(dot(95, 95), red);
}

TEST_F(Picture, isScaledToAnotherRatio) {
  picture_.fit({100, 100}, 2);
  EXPECT_EQ(picture_.image().size(), QSize(200, 200));
  EXPECT_EQ(dot(170, 170), white);
  EXPECT_EQ(dot(190, 190), red);
  paint({10, 10, 10, 10}, blue); // in pixels
  EXPECT_EQ(dot(20, 20), blue);
  EXPECT_EQ(dot(39, 39), blue);
  EXPECT_EQ(dot(40, 40), white);
}

TEST_F(Picture, isClearedWhereItIsCutOffToo) {
  picture_.fit({50, 50}, 1);
  picture_.clear(blue);
  picture_.fit({150, 100}, 1);
  EXPECT_EQ(dot(95, 95), blue);
  EXPECT_EQ(dot(149, 95), blue);
}

TEST(FillDots, tellsWhatHasChanged) {
  QImage image{100, 100, QImage::Format_RGB32};
  image.fill(white);
  EXPECT_TRUE(fillDots(image, {0, 0, 100, 100}, white.rgb()).isEmpty());
  EXPECT_EQ(fillDots(image, {30, 30, 10, 20}, red.rgb()), QRect(30, 30, 10, 20));
  EXPECT_EQ(fillDots(image, {20, 40, 100, 100}, white.rgb()), QRect(30, 40, 10, 10));
  EXPECT_EQ(image.pixelColor(39, 39), red);
  EXPECT_EQ(image.pixelColor(30, 40), white);
}

class PaintWatcher final : public QObject {
public:
  /// What was painted since it was last asked.
  QRect take() { return std::exchange(painted_, {}); }

private:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted_ |= static_cast<const QPaintEvent&>(*event).rect();
    return false;
  }

  QRect painted_;
};

/// Dots of a surface, row by row.
class Surface : public testing::Test {
protected:
  Surface() { surface_.setGeometry(0, 0, 100, 100); }

  QRgb dot(int x, int y) { return surface_.grab().toImage().pixel(x, y); }
  /// The rectangle that holds all dots which differ from the background.
  QRect drawn() {
    const QImage image = surface_.grab().toImage();
    QRect area;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixel(x, y) != white.rgb()) area |= QRect{x, y, 1, 1};
    return area;
  }

  DrawingSurface surface_{white, nullptr};
};

TEST_F(Surface, drawsCrispLines) {
  surface_.drawSegment({10.3, 20.6}, {29.3, 20.6}, 1, red);
  EXPECT_EQ(drawn(), QRect(10, 20, 20, 1));
  EXPECT_EQ(dot(10, 20), red.rgb());
}

TEST_F(Surface, centresThickLines) {
  surface_.drawSegment({20, 10}, {20, 50}, 2, red);
  EXPECT_EQ(drawn(), QRect(19, 9, 2, 42));
}

TEST_F(Surface, fillsBoxesFromAnyCorner) {
  surface_.drawBox({50, 10}, {20, 40}, 1, red, blue);
  EXPECT_EQ(drawn(), QRect(20, 10, 31, 31));
  for (const QPoint corner : {QPoint{20, 10}, {50, 10}, {20, 40}, {50, 40}})
    EXPECT_EQ(dot(corner.x(), corner.y()), red.rgb());
  EXPECT_EQ(dot(21, 11), blue.rgb());
  EXPECT_EQ(dot(49, 39), blue.rgb());
}

TEST_F(Surface, leavesTheInsideOfAnEmptyBox) {
  surface_.drawBox({0, 0}, {99, 99}, 1, blue, blue);
  surface_.drawBox({20, 20}, {40, 40}, 3, red, std::nullopt);
  EXPECT_EQ(dot(21, 21), red.rgb());
  EXPECT_EQ(dot(22, 22), blue.rgb());
}

TEST_F(Surface, drawsEllipsesAroundTheirCentre) {
  surface_.drawEllipse({50, 50}, {20, 10}, 1, red, blue);
  EXPECT_TRUE(QRect(28, 38, 44, 24).contains(drawn()));
  EXPECT_TRUE(drawn().contains(QRect(30, 40, 40, 20)));
  EXPECT_EQ(dot(50, 50), blue.rgb());
}

TEST_F(Surface, drawsTextWithinItsLineBox) {
  FontCache fonts;
  const auto& face = fonts.face({"Times", 28, Weight::bold});
  surface_.drawText({30, 40}, QStringLiteral("8g"), face, red);
  const QSizeF box{face.width(QStringLiteral("8g")), face.lineHeight()};
  EXPECT_TRUE(QRectF({29, 39}, box + QSizeF{2, 2}).contains(drawn()));
  EXPECT_GT(drawn().height(), 28);
}

TEST_F(Surface, paintsOnlyWhatHasChanged) {
  PaintWatcher watcher;
  surface_.installEventFilter(&watcher);
  surface_.show();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !watcher.take().isNull(); }));
  const auto paintedBy = [&](QColor colour) {
    surface_.drawBox({20, 10}, {50, 40}, 1, colour, colour);
    QTest::qWait(20);
    return watcher.take();
  };
  EXPECT_EQ(paintedBy(red), QRect(20, 10, 31, 31));
  EXPECT_EQ(paintedBy(red), QRect());
  surface_.drawSegment({0, 20}, {99, 20}, 1, blue);
  surface_.clear(white);
  QTest::qWait(20);
  EXPECT_EQ(watcher.take(), surface_.rect());
}

TEST_F(Surface, erasesWhateverWasDrawnSinceItWasBlank) {
  const auto erase = [this] { surface_.drawBox({0, 0}, {99, 99}, 1, white, white); };
  erase();
  surface_.drawEllipse({50, 50}, {20, 10}, 1, red, blue);
  erase();
  EXPECT_EQ(drawn(), QRect());
  surface_.drawSegment({10, 10}, {60, 80}, 2, red);
  erase();
  EXPECT_EQ(drawn(), QRect());
  surface_.drawBox({20, 20}, {40, 40}, 1, red, blue);
  erase();
  EXPECT_EQ(drawn(), QRect());
  surface_.clear(blue);
  erase();
  EXPECT_EQ(drawn(), QRect());
}

TEST_F(Surface, leavesNoOutlineOfATextThatIsErasedByItself) {
  FontCache fonts;
  const auto& face = fonts.face({"Times", 28, Weight::bold});
  surface_.drawSegment({20, 60}, {80, 60}, 1, blue);
  const QImage before = surface_.grab().toImage();
  surface_.drawText({30, 40}, QStringLiteral("?"), face, red);
  EXPECT_NE(surface_.grab().toImage(), before);
  surface_.drawText({70, 10}, QStringLiteral("7"), face, white);
  surface_.drawText({30, 40}, QStringLiteral("?"), face, white);
  surface_.drawSegment({20, 60}, {80, 60}, 1, blue);
  EXPECT_EQ(surface_.grab().toImage(), before);
}

TEST_F(Surface, keepsWhatWasDrawnOnAText) {
  FontCache fonts;
  const auto& face = fonts.face({"Times", 28, Weight::bold});
  surface_.drawText({30, 40}, QStringLiteral("?"), face, red);
  surface_.drawSegment({20, 60}, {80, 60}, 1, blue);
  surface_.drawText({30, 40}, QStringLiteral("?"), face, white);
  EXPECT_EQ(dot(32, 60), blue.rgb());
}

TEST_F(Surface, cutsOffWhatLiesOutside) {
  surface_.drawBox({-50, -50}, {10, 10}, 4, red, blue);
  surface_.drawSegment({50, 50}, {500, 50}, 1, red);
  EXPECT_EQ(dot(0, 0), blue.rgb());
  EXPECT_EQ(dot(99, 50), red.rgb());
}

} // namespace

} // namespace chiffrolo::qt
