// SPDX-License-Identifier: MIT
#include "qt/units.h"
#include "qt/view.h"
#include "screen/layouts.h"

#include <QBitmap>

#include <gtest/gtest.h>

namespace chiffrolo::qt {

namespace {

const View::Clicked nothing = [](ControlIndex) {};

/// A pixel of a layout is 15 twips. A line includes both of its ends.
QRect placeOf(const ControlLayout& row) {
  const auto& [left, top, width, height] = row.place;
  const int end = row.kind == ControlKind::line ? 1 : 0;
  return {left / 15, top / 15, width / 15 + end, height / 15 + end};
}

/// `drawn` is the area of a control that has the colours of its row: not of a button or an image.
void expectColours(const QPixmap& grabbed, const ControlLayout& row) {
  const QImage drawn = grabbed.toImage();
  const QRgb foreground = toQt(row.foreground).rgb();
  const QRgb background = toQt(row.background).rgb();
  const bool isLine = row.kind == ControlKind::line;
  const bool isFramed = isLine || row.kind == ControlKind::shape || row.border == Border::thin;
  const QRect area = drawn.rect();
  EXPECT_EQ(drawn.pixel(area.bottomLeft()), isFramed ? foreground : background);
  EXPECT_EQ(drawn.pixel(area.bottomRight() - QPoint{1, isLine ? 0 : 1}), isLine ? foreground : background);
  if (row.kind != ControlKind::label) return;
  const QPixmap inside = grabbed.copy(area.adjusted(2, 2, -2, -2));
  const QRegion text{inside.createMaskFromColor(foreground, Qt::MaskOutColor)};
  EXPECT_EQ(text.isEmpty(), row.caption.empty());
}

TEST(Layouts, areShownAsDesigned) {
  for (std::size_t screen = 0; screen < screenCount; ++screen) {
    const auto& layout = layoutOf(static_cast<ScreenName>(screen));
    View view{layout, nothing, nullptr};
    view.resize(1278, 997); // not scaled down
    for (ControlIndex index = 0; index < layout.controls.size(); ++index) {
      const auto& row = layout.controls[index];
      if (row.kind == ControlKind::timer) continue;
      SCOPED_TRACE(std::string(row.name) + " of " + std::string(layout.accessibleName));
      const QWidget& control = *view.control(index);
      EXPECT_EQ(control.geometry(), placeOf(row));
      EXPECT_EQ(control.toolTip().toStdString(), row.tooltip);
      if (row.kind != ControlKind::button && row.kind != ControlKind::image)
        expectColours(view.grab(placeOf(row)), row);
    }
  }
}

TEST(Captions, containAmpersands) {
  for (const auto kind : {ControlKind::button, ControlKind::label}) {
    ControlLayout row{kind, "", {0, 0, 600, 600}, "", "", {"Times", 18}, {}, {255, 255, 255}};
    ScreenLayout layout{};
    layout.controls = {&row, 1};
    const auto drawn = [&](std::string_view caption) {
      row.caption = caption;
      return View{layout, nothing, nullptr}.grab({0, 0, 40, 40}).toImage();
    };
    EXPECT_NE(drawn("&"), drawn("")) << static_cast<int>(kind);
  }
}

} // namespace

} // namespace chiffrolo::qt
