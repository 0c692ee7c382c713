// SPDX-License-Identifier: MIT
#include "qt/units.h"
#include "qt/view.h"
#include "screen/layouts.h"
#include "tests/qt/images.h"

#include <gtest/gtest.h>

namespace chiffrolo::qt {

namespace {

constexpr QSize roomForScale1{1278, 997};
const View::Clicked nothing = [](ControlIndex) {};

/// A pixel of a layout is 15 twips. A line includes both of its ends.
QRect placeOf(const ControlLayout& row) {
  const auto& [left, top, width, height] = row.place;
  const int end = row.kind == ControlKind::line ? 1 : 0;
  return {left / 15, top / 15, width / 15 + end, height / 15 + end};
}

/// `drawn` is the area of a control that has the colours of its row: not of a button or an image.
void expectColours(const QImage& drawn, const ControlLayout& row) {
  const QRgb foreground = toQt(row.foreground).rgb();
  const QRgb background = toQt(row.background).rgb();
  const bool isLine = row.kind == ControlKind::line;
  const bool isFramed = isLine || row.kind == ControlKind::shape || row.border == Border::thin;
  const QRect area = drawn.rect();
  EXPECT_EQ(drawn.pixel(area.bottomLeft()), isFramed ? foreground : background);
  EXPECT_EQ(drawn.pixel(area.bottomRight() - QPoint{1, isLine ? 0 : 1}), isLine ? foreground : background);
  if (row.kind != ControlKind::label) return;
  const auto isText = [foreground](QRgb pixel) { return pixel == foreground; };
  const QImage inside = drawn.copy(area.adjusted(2, 2, -2, -2));
  EXPECT_EQ(boundingRect(inside, isText).isEmpty(), row.caption.empty());
}

TEST(Layouts, areShownAsDesigned) {
  for (std::size_t screen = 0; screen < screenCount; ++screen) {
    const auto& layout = layoutOf(static_cast<ScreenName>(screen));
    View view{layout, nothing, nullptr};
    view.resize(roomForScale1);
    for (ControlIndex index = 0; index < layout.controls.size(); ++index) {
      const auto& row = layout.controls[index];
      if (row.kind == ControlKind::timer) continue;
      SCOPED_TRACE(std::string(row.name) + " of " + std::string(layout.accessibleName));
      const QWidget& control = *view.control(index);
      EXPECT_EQ(control.geometry(), placeOf(row));
      EXPECT_EQ(control.isHidden(), row.visible == Visibility::hidden);
      EXPECT_EQ(control.property("text").toString().toStdString(), row.caption);
      EXPECT_EQ(control.toolTip().toStdString(), row.tooltip);
      EXPECT_EQ(control.accessibleName().toStdString(), row.accessibleName);
      if (row.kind != ControlKind::button && row.kind != ControlKind::image)
        expectColours(view.grab(placeOf(row)).toImage(), row);
    }
  }
}

QImage drawnWithCaption(ControlKind kind, std::string_view caption) {
  ControlLayout row{};
  row.kind = kind;
  row.place = {0, 0, 600, 600};
  row.caption = caption;
  row.font = {"Times", 18};
  row.background = {255, 255, 255};
  ScreenLayout layout{};
  layout.controls = {&row, 1};
  View view{layout, nothing, nullptr};
  view.resize(roomForScale1);
  return view.grab({0, 0, 40, 40}).toImage();
}

TEST(Captions, containAmpersands) {
  for (const auto kind : {ControlKind::button, ControlKind::label})
    EXPECT_NE(drawnWithCaption(kind, "&"), drawnWithCaption(kind, "")) << static_cast<int>(kind);
}

} // namespace

} // namespace chiffrolo::qt
