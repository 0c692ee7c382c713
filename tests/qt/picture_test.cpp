// SPDX-License-Identifier: MIT
#include "qt/drawing_surface.h"

#include <QBitmap>
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
  Surface() {
    surface_.setGeometry(0, 0, 100, 100);
    surface_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&surface_));
  }

  void drawText(QPointF topLeft, const char* text, QColor colour) {
    surface_.drawText(topLeft, text, face_, colour);
  }
  void erase() { surface_.drawBox({0, 0}, {99, 99}, 1, white, white); }
  /// The surface as displayed after pending repaints.
  QImage screenshot() {
    QCoreApplication::processEvents();
    const QPixmap grabbed = surface_.screen()->grabWindow(surface_.winId());
    return grabbed.toImage().convertToFormat(QImage::Format_RGB32);
  }

  /// At that pixel ratio, a horizontal line of device pixels crosses the left stroke of the box.
  void expectPixelAlignedStroke(qreal ratio, qreal scale) {
    surface_.setScale(scale);
    QImage image{(QSizeF{surface_.size()} * ratio).toSize(), QImage::Format_RGB32};
    image.setDevicePixelRatio(ratio);
    surface_.render(&image);
    const auto toDevicePixels = [&](qreal pixels) { return static_cast<int>(pixels * ratio * scale); };
    int strokePixels = 0;
    for (int x = toDevicePixels(20) - 5; x < toDevicePixels(30); ++x) {
      const QRgb pixel = image.pixel(x, toDevicePixels(30));
      EXPECT_TRUE(pixel == white.rgb() || pixel == red.rgb() || pixel == blue.rgb()) << x;
      strokePixels += pixel == red.rgb();
    }
    EXPECT_EQ(strokePixels, qRound(3 * ratio * scale));
  }

  FontCache fonts_;
  const TextFace& face_ = fonts_.face({"Times", 28, Weight::bold});
  DrawingSurface surface_{white, nullptr};
};

TEST_F(Surface, drawsLinesPixelAlignedAndCentred) {
  const auto drawnArea = [this] {
    return QRegion{surface_.grab().createMaskFromColor(white, Qt::MaskInColor)}.boundingRect();
  };
  surface_.drawSegment({10.3, 20.6}, {29.3, 20.6}, 1, red);
  EXPECT_EQ(drawnArea(), QRect(10, 20, 20, 1));
  erase();
  surface_.drawSegment({20, 10}, {20, 50}, 2, red);
  EXPECT_EQ(drawnArea(), QRect(19, 9, 2, 42));
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

TEST_F(Surface, drawsSharpBoxesAtAllPixelRatiosAndScales) {
  surface_.drawBox({20.3, 20.6}, {70, 60.2}, 3, red, blue);
  for (const qreal ratio : {1.0, 1.5, 2.0, 1.0, 1.5, 1.0})
    for (const qreal scale : {1.0, 0.8, 1.25})
      expectPixelAlignedStroke(ratio, scale);
}

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
  QImage expected = screenshot();
  std::mt19937 random{1};
  const auto randomUpTo = [&](unsigned maximum) { return static_cast<int>(random() % (maximum + 1)); };
  const std::array colours{white, red, blue};
  for (int drawing = 0; drawing < 1000; ++drawing) {
    const QPoint from{randomUpTo(99), randomUpTo(99)};
    const QPoint to{randomUpTo(99), randomUpTo(2) == 0 ? from.y() : randomUpTo(99)};
    const QColor colour = colours.at(static_cast<std::size_t>(randomUpTo(2)));
    surface_.drawBox(from, to, 1, colour, colour);
    QPainter{&expected}.fillRect(QRect{from, from} | QRect{to, to}, colour);
    ASSERT_EQ(screenshot(), expected) << drawing;
  }
}

} // namespace

} // namespace chiffrolo::qt
