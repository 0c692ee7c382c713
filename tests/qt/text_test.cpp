// SPDX-License-Identifier: MIT
#include "qt/fonts.h"
#include "qt/units.h"
#include "screen/layouts.h"

#include <gtest/gtest.h>

#include <tuple>

namespace chiffrolo::qt {

namespace {

/// Name, font, text and width.
using Row = std::tuple<const char*, Font, const char*, Points>;

constexpr auto bold = Weight::bold;

/// From the font tables: a digit is 1/2 of the size wide in Times New Roman, and 0.55615 of it in Arial.
const Row rows[]{
    {"shortName", {"Times", 28, bold}, "7", 14},
    {"textWithBlanks", {"Times", 28, bold}, " 7 ", 28},
    {"fractionalSize", {"Times", 15.75F}, "42", 15.75F},
    {"sansSerifFace", {"Arial", 15.75F}, "1234", 35.038F},
    {"faceOfCaptions", {"MS Sans Serif", 8.25F, bold}, "1234", 18.353F},
};

TEST(Text, hasTheSizeOfItsFace) {
  FontCache fonts;
  for (const auto& [name, font, text, width] : rows)
    EXPECT_NEAR(toPoints(fonts.face(font).width(text)), width, width * 0.001F) << name;
  EXPECT_NEAR(toPoints(fonts.face({"Times", 28, bold}).lineHeight()), 28 * 1.107F, 0.1F);
}

TEST(Text, inAScriptFaceIsNotSlantedTwice) {
  EXPECT_FALSE(captionFont({"Brush Script MT", 36, Weight::regular, Slant::italic}).italic());
  EXPECT_TRUE(captionFont({"Times", 36, Weight::regular, Slant::italic}).italic());
}

// ---- Captions ----------------------------------------------------------------------------------------

TEST(Captions, fitInTheirDesignedSizeOnEveryScreen) {
  for (std::size_t screen = 0; screen < screenCount; ++screen)
    for (const auto& control : layoutOf(static_cast<ScreenName>(screen)).controls) {
      if (control.caption.empty()) continue;
      const QFont fitting = fittingFont(control.font, toQt(control.caption), toPixels(control.place).size());
      EXPECT_EQ(fitting.pixelSize(), captionFont(control.font).pixelSize()) << control.caption;
    }
}

TEST(Captions, haveASmallerFontIfTheyDoNotFit) {
  const Font font{"Times", 36};
  const QString caption = QStringLiteral("Au revoir");
  const QSize oneLine{100, 48}; // 36 points are 48 pixels; in that size the caption is 180 pixels wide
  const QFontMetrics fitting{fittingFont(font, caption, oneLine)};
  EXPECT_LE(fitting.horizontalAdvance(caption), oneLine.width());
  EXPECT_GT(fitting.horizontalAdvance(caption), oneLine.width() * 8 / 10) << "not smaller than necessary";
  EXPECT_GT(fittingFont(font, caption, {100, 96}).pixelSize(), fitting.ascent()) << "wrapped between words";
}

} // namespace

} // namespace chiffrolo::qt
