// SPDX-License-Identifier: MIT
#include "qt/drawing_surface.h"

#include <QBitmap>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

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
  DrawingSurface surface_{white, nullptr};
};

TEST_F(Surface, drawsLinesPixelAlignedAndCentred) {
  surface_.drawSegment({10.3, 20.6}, {29.3, 20.6}, 1, red);
  const QRegion drawn{surface_.grab().createMaskFromColor(white, Qt::MaskInColor)};
  EXPECT_EQ(drawn.boundingRect(), QRect(10, 20, 20, 1));
}

TEST_F(Surface, drawsSharpBoxesAtAllPixelRatiosAndScales) {
  surface_.drawBox({20.3, 20.6}, {70, 60.2}, 3, red, blue);
  for (const qreal ratio : {1.0, 1.5, 2.0})
    for (const qreal scale : {1.0, 0.8, 1.25})
      expectPixelAlignedStroke(ratio, scale);
}

// ---- Erased drawings and repaints --------------------------------------------------------------------

TEST_F(Surface, removesErasedDrawingsFromTheDisplayList) {
  const auto& face = fonts_.face({"Times", 28, Weight::bold});
  surface_.drawBox({10, 10}, {80, 80}, 1, red, blue);
  surface_.drawText({20, 20}, "?", face, white);
  surface_.drawText({20, 20}, "?", face, blue);
  surface_.drawText({20, 20}, "  ", face, red);
  EXPECT_EQ(surface_.picture().size(), 1U);
  surface_.drawBox({0, 0}, {99, 99}, 1, white, white);
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

} // namespace

} // namespace chiffrolo::qt
