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

/// A white surface of 100 x 100 pixels.
class Surface : public testing::Test {
protected:
  Surface() { surface_.setGeometry(0, 0, 100, 100); }

  QRgb pixel(int x, int y) { return surface_.grab().toImage().pixel(x, y); }
  /// The bounding rectangle of the pixels that are not white.
  QRect drawnArea() {
    return boundingRect(surface_.grab().toImage(), [](QRgb pixel) { return pixel != white.rgb(); });
  }
  void drawText(QPointF topLeft, const char* text, QColor colour) {
    surface_.drawText(topLeft, QString::fromUtf8(text), face_, colour);
  }
  void erase() { surface_.drawBox({0, 0}, {99, 99}, 1, white, white); }
  void show() {
    surface_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&surface_));
  }
  /// The surface as displayed after pending repaints.
  QImage screenshot() {
    QCoreApplication::processEvents();
    const QPixmap grabbed = surface_.screen()->grabWindow(surface_.winId());
    return grabbed.toImage().convertToFormat(QImage::Format_RGB32);
  }

  FontCache fonts_;
  const TextFace& face_ = fonts_.face({"Times", 28, Weight::bold});
  DrawingSurface surface_{white, nullptr};
};

TEST_F(Surface, drawsLinesPixelAlignedAndCentred) {
  surface_.drawSegment({10.3, 20.6}, {29.3, 20.6}, 1, red);
  EXPECT_EQ(drawnArea(), QRect(10, 20, 20, 1));
  erase();
  surface_.drawSegment({20, 10}, {20, 50}, 2, red);
  EXPECT_EQ(drawnArea(), QRect(19, 9, 2, 42));
}

TEST_F(Surface, doesNotPaintTheInsideOfABoxWithoutFill) {
  surface_.drawBox({0, 0}, {99, 99}, 1, blue, blue);
  surface_.drawBox({20, 20}, {40, 40}, 3, red, std::nullopt);
  EXPECT_EQ(pixel(21, 21), red.rgb());
  EXPECT_EQ(pixel(22, 22), blue.rgb());
}

TEST_F(Surface, whiteBoxErasesDrawingsAndBackground) {
  surface_.drawEllipse({50, 50}, {20, 10}, 1, red, blue);
  surface_.drawSegment({10, 10}, {60, 80}, 2, red);
  erase();
  EXPECT_EQ(drawnArea(), QRect());
  surface_.clear(blue);
  erase();
  EXPECT_EQ(drawnArea(), QRect());
}

TEST_F(Surface, textRedrawnInTheBackgroundColourLeavesNoOutline) {
  surface_.drawSegment({20, 60}, {80, 60}, 1, blue);
  const QImage before = surface_.grab().toImage();
  drawText({30, 40}, "?", red);
  EXPECT_NE(surface_.grab().toImage(), before);
  drawText({70, 10}, "7", white);
  drawText({30, 40}, "?", white);
  surface_.drawSegment({20, 60}, {80, 60}, 1, blue);
  EXPECT_EQ(surface_.grab().toImage(), before);
}

TEST_F(Surface, erasingATextKeepsLaterDrawings) {
  drawText({30, 40}, "?", red);
  surface_.drawSegment({20, 60}, {80, 60}, 1, blue);
  drawText({30, 40}, "?", white);
  EXPECT_EQ(pixel(32, 60), blue.rgb());
}

// ---- Pixel ratios and scales -------------------------------------------------------------------------

class SharpSurface : public Surface, public testing::WithParamInterface<qreal> {
protected:
  /// The surface as rendered at that pixel ratio, in device pixels.
  QImage renderedAt(qreal ratio) {
    QImage image{(QSizeF{surface_.size()} * ratio).toSize(), QImage::Format_RGB32};
    image.setDevicePixelRatio(ratio);
    surface_.render(&image);
    image.setDevicePixelRatio(1);
    return image;
  }

  void expectPixelAlignedStroke(const QImage& image, qreal ratio) {
    const auto toDevicePixels = [&](qreal pixels) { return static_cast<int>(std::floor(pixels * ratio)); };
    int strokePixels = 0;
    for (int x = toDevicePixels(20) - 5; x < toDevicePixels(30); ++x) {
      const QRgb pixel = image.pixel(x, toDevicePixels(30));
      EXPECT_TRUE(pixel == white.rgb() || pixel == red.rgb() || pixel == blue.rgb()) << x;
      strokePixels += pixel == red.rgb();
    }
    EXPECT_EQ(strokePixels, qRound(3 * ratio));
  }
};

TEST_P(SharpSurface, alignsBoxesToDevicePixels) {
  surface_.drawBox({20.3, 20.6}, {70, 60.2}, 3, red, blue);
  for (const qreal ratio : {GetParam(), 1.0, GetParam()})
    expectPixelAlignedStroke(renderedAt(ratio), ratio);
  for (const qreal scale : {0.8, 1.25}) {
    surface_.setScale(scale);
    expectPixelAlignedStroke(renderedAt(GetParam()), GetParam() * scale);
  }
}

INSTANTIATE_TEST_SUITE_P(Ratios, SharpSurface, testing::Values(1.0, 1.5, 2.0));

// ---- Erased drawings and repaints --------------------------------------------------------------------

TEST_F(Surface, removesErasedDrawingsFromTheDisplayList) {
  surface_.drawBox({10, 10}, {80, 80}, 1, red, blue);
  drawText({20, 20}, "?", white);
  drawText({20, 20}, "?", blue);
  drawText({20, 20}, "  ", red);
  EXPECT_EQ(surface_.picture().size(), 1U);
  erase();
  EXPECT_EQ(surface_.picture().size(), 0U);
}

TEST_F(Surface, repaintsTheWholeAreaOfAnErasedText) {
  show();
  const QImage blank = screenshot();
  for (const qreal scale : {1.0, 0.7, 1.6})
    for (Points size = 8; size < 32; size += 1.5F) {
      surface_.setScale(scale);
      const auto& face = fonts_.face({"Times", size, Weight::bold});
      const QPointF place{size / 3.0, size / 7.0};
      surface_.drawText(place, QStringLiteral("7?g"), face, red);
      EXPECT_NE(screenshot(), blank);
      surface_.drawText(place, QStringLiteral("7?g"), face, white);
      EXPECT_EQ(screenshot(), blank) << size << " points at " << scale;
    }
}

/// Compares random boxes and lines in three colours with an image on which all of them are painted.
TEST_F(Surface, repaintsEveryChangedPixel) {
  show();
  QImage expected = screenshot();
  std::mt19937 random{1};
  const auto randomUpTo = [&](unsigned maximum) { return static_cast<int>(random() % (maximum + 1)); };
  const std::array colours{white, red, blue};
  for (int drawing = 0; drawing < 1000; ++drawing) {
    const QPoint from{randomUpTo(99), randomUpTo(99)};
    const QPoint to =
        randomUpTo(2) == 0 ? QPoint{randomUpTo(99), from.y()} : QPoint{randomUpTo(99), randomUpTo(99)};
    const QColor colour = colours.at(static_cast<std::size_t>(randomUpTo(2)));
    surface_.drawBox(from, to, 1, colour, colour);
    const QRect box{QPoint{std::min(from.x(), to.x()), std::min(from.y(), to.y())},
                    QPoint{std::max(from.x(), to.x()), std::max(from.y(), to.y())}};
    QPainter{&expected}.fillRect(box, colour);
    ASSERT_EQ(screenshot(), expected) << drawing;
  }
}

} // namespace

} // namespace chiffrolo::qt
