// SPDX-License-Identifier: MIT
#include "shell/qt/zoom.h"

#include <gtest/gtest.h>

namespace chiffrolo::qt {

namespace {

using enum ZoomStep;
constexpr std::nullopt_t noStep = std::nullopt;
constexpr auto control = Qt::ControlModifier;

struct Row {
  const char* name;
  int key;
  Qt::KeyboardModifiers modifiers;
  quint32 scanCode;
  std::optional<ZoomStep> expected;
};

class ZoomKeys : public testing::TestWithParam<Row> {};

TEST_P(ZoomKeys, areKnown) {
  const auto& row = GetParam();
  EXPECT_EQ(zoomStep({QEvent::KeyPress, row.key, row.modifiers, row.scanCode, 0, 0}), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ZoomKeys,
    testing::Values(Row{"frenchEqual", Qt::Key_Equal, control, 21, larger},
                    Row{"frenchPlus", Qt::Key_Plus, control | Qt::ShiftModifier, 21, larger},
                    Row{"frenchMinus", Qt::Key_Minus, control, 15, smaller},
                    Row{"frenchZero", Qt::Key_Agrave, control, 19, normal},
                    Row{"frenchSix", Qt::Key_6, control | Qt::ShiftModifier, 15, noStep},
                    Row{"minus", Qt::Key_Minus, control, 20, smaller},
                    Row{"zero", Qt::Key_0, control, 0, normal},
                    Row{"keypadPlus", Qt::Key_Plus, control | Qt::KeypadModifier, 86, larger},
                    Row{"keypadMinus", Qt::Key_Minus, control | Qt::KeypadModifier, 82, smaller},
                    Row{"keypadZero", Qt::Key_0, control | Qt::KeypadModifier, 90, normal},
                    Row{"keypadZeroWithoutNumLock", Qt::Key_Insert, control | Qt::KeypadModifier, 90, normal},
                    Row{"insert", Qt::Key_Insert, control, 118, noStep},
                    Row{"withoutControl", Qt::Key_Equal, Qt::NoModifier, 21, noStep},
                    Row{"zeroWithoutControl", Qt::Key_Agrave, Qt::NoModifier, 19, noStep},
                    Row{"altGr", Qt::Key_0, control | Qt::AltModifier, 19, noStep},
                    Row{"digit", Qt::Key_7, control, 16, noStep}),
    [](const auto& tested) { return tested.param.name; });

TEST(Zoom, staysBetweenOneAndThree) {
  Zoom zoom;
  zoom.take(smaller);
  EXPECT_EQ(zoom.factor(), 1);
  qreal previous = 1;
  zoom.take(larger);
  for (; zoom.factor() > previous; zoom.take(larger))
    previous = zoom.factor();
  EXPECT_EQ(zoom.factor(), 3);
  zoom.take(smaller);
  EXPECT_LT(zoom.factor(), 3);
  zoom.take(normal);
  EXPECT_EQ(zoom.factor(), 1);
}

} // namespace

} // namespace chiffrolo::qt
