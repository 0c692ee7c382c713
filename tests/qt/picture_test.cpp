// SPDX-License-Identifier: MIT
#include "qt/drawing_surface.h"
#include "tests/qt/images.h"

#include <QPainter>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>

namespace chiffrolo::qt {

namespace {

const QColor white{255, 255, 255};
const QColor red{255, 0, 0};
const QColor blue{0, 0, 255};

/// Dots of a surface, row by row.
class Surface : public testing::Test {
protected:
  Surface() { surface_.setGeometry(0, 0, 100, 100); }

  QRgb dot(int x, int y) { return surface_.grab().toImage().pixel(x, y); }
  /// The rectangle that holds all dots which differ from the background.
  QRect drawn() {
    return areaOf(surface_.grab().toImage(), [](QRgb dot) { return dot != white.rgb(); });
  }
  void write(QPointF topLeft, const char* text, QColor colour) {
    surface_.drawText(topLeft, QString::fromUtf8(text), face_, colour);
  }
  void erase() { surface_.drawBox({0, 0}, {99, 99}, 1, white, white); }
  void show() {
    surface_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&surface_));
  }
  /// What has been repainted by now.
  QImage shown() {
    QCoreApplication::processEvents();
    const QPixmap seen = surface_.screen()->grabWindow(surface_.winId());
    return seen.toImage().convertToFormat(QImage::Format_RGB32);
  }

  FontCache fonts_;
  const TextFace& face_ = fonts_.face({"Times", 28, Weight::bold});
  DrawingSurface surface_{white, nullptr};
};

TEST_F(Surface, drawsCrispLinesAndCentresThickOnes) {
  surface_.drawSegment({10.3, 20.6}, {29.3, 20.6}, 1, red);
  EXPECT_EQ(drawn(), QRect(10, 20, 20, 1));
  erase();
  surface_.drawSegment({20, 10}, {20, 50}, 2, red);
  EXPECT_EQ(drawn(), QRect(19, 9, 2, 42));
}

TEST_F(Surface, leavesTheInsideOfAnEmptyBox) {
  surface_.drawBox({0, 0}, {99, 99}, 1, blue, blue);
  surface_.drawBox({20, 20}, {40, 40}, 3, red, std::nullopt);
  EXPECT_EQ(dot(21, 21), red.rgb());
  EXPECT_EQ(dot(22, 22), blue.rgb());
}

TEST_F(Surface, erasesWhateverWasDrawnSinceItWasBlank) {
  surface_.drawEllipse({50, 50}, {20, 10}, 1, red, blue);
  surface_.drawSegment({10, 10}, {60, 80}, 2, red);
  erase();
  EXPECT_EQ(drawn(), QRect());
  surface_.clear(blue);
  erase();
  EXPECT_EQ(drawn(), QRect());
}

TEST_F(Surface, leavesNoOutlineOfATextThatIsErasedByItself) {
  surface_.drawSegment({20, 60}, {80, 60}, 1, blue);
  const QImage before = surface_.grab().toImage();
  write({30, 40}, "?", red);
  EXPECT_NE(surface_.grab().toImage(), before);
  write({70, 10}, "7", white);
  write({30, 40}, "?", white);
  surface_.drawSegment({20, 60}, {80, 60}, 1, blue);
  EXPECT_EQ(surface_.grab().toImage(), before);
}

TEST_F(Surface, keepsWhatWasDrawnOnAText) {
  write({30, 40}, "?", red);
  surface_.drawSegment({20, 60}, {80, 60}, 1, blue);
  write({30, 40}, "?", white);
  EXPECT_EQ(dot(32, 60), blue.rgb());
}

// ---- At every scale ----------------------------------------------------------------------------------

class SharpSurface : public Surface, public testing::WithParamInterface<qreal> {
protected:
  /// The surface on a screen with that many dots to a pixel.
  QImage onScreen(qreal ratio) {
    QImage image{(QSizeF{surface_.size()} * ratio).toSize(), QImage::Format_RGB32};
    image.setDevicePixelRatio(ratio);
    surface_.render(&image);
    image.setDevicePixelRatio(1);
    return image;
  }

  void expectWholeDots(const QImage& image, qreal ratio) {
    const auto inDots = [&](qreal pixels) { return static_cast<int>(std::floor(pixels * ratio)); };
    int strokes = 0;
    for (int x = inDots(20) - 5; x < inDots(30); ++x) {
      const QRgb dot = image.pixel(x, inDots(30));
      EXPECT_TRUE(dot == white.rgb() || dot == red.rgb() || dot == blue.rgb()) << x;
      strokes += dot == red.rgb();
    }
    EXPECT_EQ(strokes, qRound(3 * ratio));
  }
};

TEST_P(SharpSurface, drawsBoxesOnWholeDots) {
  surface_.drawBox({20.3, 20.6}, {70, 60.2}, 3, red, blue);
  for (const qreal ratio : {GetParam(), 1.0, GetParam()})
    expectWholeDots(onScreen(ratio), ratio);
  for (const qreal scale : {0.8, 1.25}) {
    surface_.setScale(scale);
    expectWholeDots(onScreen(GetParam()), GetParam() * scale);
  }
}

INSTANTIATE_TEST_SUITE_P(Ratios, SharpSurface, testing::Values(1.0, 1.5, 2.0));

// ---- What is forgotten -------------------------------------------------------------------------------

TEST_F(Surface, remembersNothingOfWhatWasErased) {
  surface_.drawBox({10, 10}, {80, 80}, 1, red, blue);
  write({20, 20}, "?", white);
  write({20, 20}, "?", blue);
  write({20, 20}, "  ", red);
  EXPECT_EQ(surface_.picture().size(), 1U);
  erase();
  EXPECT_EQ(surface_.picture().size(), 0U);
}

TEST_F(Surface, repaintsAllOfATextThatGoes) {
  show();
  const QImage blank = shown();
  for (const qreal scale : {1.0, 0.7, 1.6})
    for (Points size = 8; size < 32; size += 1.5F) {
      surface_.setScale(scale);
      const auto& face = fonts_.face({"Times", size, Weight::bold});
      const QPointF place{size / 3.0, size / 7.0};
      surface_.drawText(place, QStringLiteral("7?g"), face, red);
      EXPECT_NE(shown(), blank);
      surface_.drawText(place, QStringLiteral("7?g"), face, white);
      EXPECT_EQ(shown(), blank) << size << " points at " << scale;
    }
}

/// Boxes and lines without order, many of one colour: what can be seen must be all that was drawn.
TEST_F(Surface, forgetsAndRepaintsNoDotTooFew) {
  show();
  QImage everything = shown();
  std::mt19937 random{1};
  const auto upTo = [&](unsigned most) { return static_cast<int>(random() % (most + 1)); };
  const std::array colours{white, red, blue};
  for (int drawing = 0; drawing < 1000; ++drawing) {
    const QPoint from{upTo(99), upTo(99)};
    const QPoint to = upTo(2) == 0 ? QPoint{upTo(99), from.y()} : QPoint{upTo(99), upTo(99)};
    const QColor colour = colours.at(static_cast<std::size_t>(upTo(2)));
    surface_.drawBox(from, to, 1, colour, colour);
    const QRect box{QPoint{std::min(from.x(), to.x()), std::min(from.y(), to.y())},
                    QPoint{std::max(from.x(), to.x()), std::max(from.y(), to.y())}};
    QPainter{&everything}.fillRect(box, colour);
    ASSERT_EQ(shown(), everything) << drawing;
  }
}

} // namespace

} // namespace chiffrolo::qt
