// SPDX-License-Identifier: MIT
#include "recording/recording_platform.h"
#include "screen/layouts.h"
#include "screen/surface.h"
#include "tests/core/fake_program.h"

#include <gtest/gtest.h>

namespace chiffrolo::test {

namespace {

/// Fixture: a surface with a font of 9 points. A character is 5 points wide and a line 11.25 points high.
class SurfaceTexts : public testing::Test {
protected:
  SurfaceTexts() {
    surface.FontSize = 9;
    surface.ForeColor = QBColor(1);
  }

  void print(Points x, Points y, std::string_view text, int colour = 1) {
    surface.ForeColor = QBColor(colour);
    surface.CurrentX = x;
    surface.CurrentY = y;
    surface.Print(text, Then::sameLine);
  }

  std::string visibleText() const {
    std::string texts;
    for (const auto& visible : surface.visibleTexts())
      texts += (texts.empty() ? "" : " | ") + visible.text();
    return texts;
  }

  RecordingPlatform platform{{}};
  FakeProgram events;
  Surface surface{platform.createWindow(layoutOf(ScreenName::addition), events),
                  layoutOf(ScreenName::addition)};
};

TEST_F(SurfaceTexts, printContinuesInTheNextZoneOrOnTheNextLine) {
  print(100, 100, "12");
  surface.Print("3", Then::nextZone); // at 110; a zone is 14 characters, 70 points
  surface.Print("4", Then::newLine);
  surface.Print("5", Then::sameLine);
  const auto texts = surface.visibleTexts();
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_EQ(texts[1].place.left, 140);
  EXPECT_EQ(texts[2].place.left, 0);
  EXPECT_EQ(texts[2].place.top, 111.25F);
}

TEST_F(SurfaceTexts, outlinesEraseOnlyWhenFilled) {
  print(100, 100, "12");
  print(142.5F, 66, "3");
  print(142.5F, 130, "4");
  surface.Line({90, 90}, {200, 200}, QBColor(3), Form::box);
  surface.Circle({105, 105}, 40, QBColor(8), 0.7F);
  EXPECT_EQ(visibleText(), "3 | 12 | 4");
  surface.FillStyle = Fill::solid;
  surface.Circle({145, 105}, 40, QBColor(8), 0.7F); // (105, 77) to (185, 133): covers the centre of the 2
  EXPECT_EQ(visibleText(), "3 | 1 | 4");
  surface.Line({200, 200}, {90, 90}, QBColor(3), Form::box); // corners in any order
  EXPECT_EQ(visibleText(), "3");
}

TEST_F(SurfaceTexts, clsErasesTextsAndBoxes) {
  surface.Line({0, 0}, {300, 300}, QBColor(15), Form::filledBox);
  surface.BackColor = QBColor(4);
  print(100, 100, "42");
  surface.Cls();
  EXPECT_EQ(surface.CurrentX, 0);
  EXPECT_EQ(surface.CurrentY, 0);
  EXPECT_EQ(visibleText(), "");
  print(100, 100, "42", 15); // visible: the white box was erased too
  EXPECT_EQ(visibleText(), "42");
}

TEST_F(SurfaceTexts, textsAreListedFromTopToBottomAndLeftToRight) {
  print(100, 130, "c");
  print(140, 100, "b"); // far from the others, so a separate text
  print(100, 100, "a d");
  surface.FontSize = 5;
  print(118, 104, "x"); // smaller and lower than its neighbours
  EXPECT_EQ(visibleText(), "a d x | b | c");
  const auto texts = surface.visibleTexts();
  EXPECT_EQ(texts[0].place.left, 100);
  EXPECT_EQ(texts[0].place.top, 100);
  EXPECT_EQ(texts[0].place.right(), 121);
  EXPECT_EQ(texts[0].place.height, 11.25F);
}

TEST_F(SurfaceTexts, backgroundChangeSplitsAText) {
  surface.Line({120, 90}, {200, 130}, QBColor(11), Form::filledBox);
  print(112, 100, "42 FAUX");
  EXPECT_EQ(visibleText(), "42 | FAUX");
}

} // namespace

} // namespace chiffrolo::test
