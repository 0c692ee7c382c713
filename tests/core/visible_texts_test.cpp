// SPDX-License-Identifier: MIT
#include "recording/recording_platform.h"
#include "screen/layouts.h"
#include "screen/surface.h"
#include "tests/core/fake_program.h"

#include <gtest/gtest.h>

namespace chiffrolo::test {

namespace {

/// A surface in a font of 9 points, in which a character is 5 points wide and a line 11.25 high.
class OnASurface : public testing::Test {
protected:
  OnASurface() {
    surface.FontSize = 9;
    surface.ForeColor = QBColor(1);
  }

  void print(Points x, Points y, std::string_view text, int colour = 1) {
    surface.ForeColor = QBColor(colour);
    surface.CurrentX = x;
    surface.CurrentY = y;
    surface.Print(text, Then::sameLine);
  }
  void erase(Point corner, Point opposite) { surface.Line(corner, opposite, QBColor(15), Form::filledBox); }

  std::string reads() const {
    std::string all;
    for (const auto& visible : surface.visibleTexts())
      all += (all.empty() ? "" : " | ") + visible.text();
    return all;
  }

  RecordingPlatform platform{{}};
  FakeProgram events;
  Surface surface{platform.createWindow(layoutOf(ScreenName::addition), events),
                  layoutOf(ScreenName::addition)};
};

TEST_F(OnASurface, aBoxTakesTheCharactersWhoseMiddleItCovers) {
  print(100, 100, "1234");
  erase({112, 90}, {500, 120}); // the middle of the 3 is at 112.5
  EXPECT_EQ(reads(), "12");
  erase({108, 120}, {102, 90}); // corners in any order; the middles of 1 and 2 are at 102.5 and 107.5
  EXPECT_EQ(reads(), "");
}

TEST_F(OnASurface, outlinesCoverOnlyWhenFilled) {
  print(100, 100, "12");
  surface.Line({90, 90}, {200, 200}, QBColor(3), Form::box);
  surface.Circle({105, 105}, 40, QBColor(8), 0.7F);
  EXPECT_EQ(reads(), "12");
  surface.FillStyle = Fill::solid;
  surface.Circle({145, 105}, 40, QBColor(8), 0.7F); // its left end is at 105: the middle of the 2 is within
  EXPECT_EQ(reads(), "1");
  surface.Line({90, 90}, {200, 200}, QBColor(3), Form::box);
  EXPECT_EQ(reads(), "");
}

TEST_F(OnASurface, whiteOnRedIsSeenAndWhiteOnWhiteWipes) {
  surface.FillStyle = Fill::solid;
  surface.FillColor = QBColor(4);
  surface.Circle({320, 252}, 40, QBColor(8), 0.7F);
  print(310, 246, "Bravo", 15);
  print(100, 100, "1?2?");
  print(105, 100, "?", 15); // the same character, at the same place
  print(100, 100, "7", 15); // another one
  print(115, 130, "?", 15); // the same one elsewhere
  EXPECT_EQ(reads(), "1 2? | Bravo");
  print(105, 100, "6");
  EXPECT_EQ(reads(), "162? | Bravo");
}

TEST_F(OnASurface, printedTwiceIsSeenOnce) {
  print(100, 100, "42");
  print(100, 100, "42", 12);
  EXPECT_EQ(reads(), "42");
}

TEST_F(OnASurface, clearTakesEverything) {
  surface.Line({0, 0}, {300, 300}, QBColor(15), Form::filledBox);
  surface.BackColor = QBColor(4);
  print(100, 100, "42");
  surface.Cls();
  EXPECT_EQ(reads(), "");
  print(100, 100, "42", 15); // the white box is gone too
  EXPECT_EQ(reads(), "42");
}

TEST_F(OnASurface, linesAreReadFromTheTopAndTextsFromTheLeft) {
  print(100, 130, "c");
  print(140, 100, "b"); // too far away: a text of its own
  print(100, 100, "a d");
  surface.FontSize = 5;
  print(118, 104, "x"); // small and low between tall ones
  EXPECT_EQ(reads(), "a d x | b | c");
  const auto texts = surface.visibleTexts();
  EXPECT_EQ(texts[0].place.left, 100);
  EXPECT_EQ(texts[0].place.top, 100);
  EXPECT_EQ(texts[0].place.right(), 121);
  EXPECT_EQ(texts[0].place.height, 11.25F);
}

TEST_F(OnASurface, anotherGroundMakesAnotherText) {
  surface.Line({120, 90}, {200, 130}, QBColor(11), Form::filledBox);
  print(112, 100, "42 FAUX");
  EXPECT_EQ(reads(), "42 | FAUX");
}

} // namespace

} // namespace chiffrolo::test
