// SPDX-License-Identifier: MIT
#include "platform.h"
#include "qt/key_repeat.h"
#include "qt/keys.h"
#include "qt/zoom.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>

namespace chiffrolo::qt {

namespace {

constexpr auto plain = Qt::NoModifier;
constexpr auto shift = Qt::ShiftModifier;
constexpr auto control = Qt::ControlModifier;
constexpr auto onKeypad = Qt::KeypadModifier;
constexpr auto altGr = Qt::GroupSwitchModifier;
constexpr quint32 nativeShift = 1;
constexpr quint32 nativeAltGr = 0x80;

/// A key without a code of its own.
constexpr KeyStroke types(char32_t character) { return {keyCode::other, character}; }
constexpr KeyStroke typesNothing{keyCode::other, std::nullopt};

struct KeyRow {
  const char* name;
  int key;
  Qt::KeyboardModifiers modifiers;
  const char* text;
  std::optional<KeyStroke> expected;
  quint32 scanCode{};
  quint32 nativeModifiers{};
};

// The rows with scan codes contain what Qt reports on X11 and Wayland with French, Belgian, Swiss, Canadian
// and bépo layouts.
const KeyRow keyRows[]{
    {"digitWithAlt", Qt::Key_7, Qt::AltModifier, "7", typesNothing},
    {"digitWithMeta", Qt::Key_7, Qt::MetaModifier, "7", typesNothing},
    {"keypadEnter", Qt::Key_Enter, onKeypad, "\r", KeyStroke{keyCode::enter, U'\r'}},
    {"controlM", Qt::Key_M, control, "\r", typesNothing},
    {"shiftAlone", Qt::Key_Shift, shift, "", std::nullopt},
    {"firstKeyOfDigitRow", Qt::Key_Ampersand, plain, "&", types(U'1'), 10},
    {"lastKeyOfDigitRow", Qt::Key_Agrave, plain, "à", types(U'0'), 19},
    {"keyAfterDigitRow", Qt::Key_ParenRight, plain, ")", types(U')'), 20},
    {"equalsSignInDigitRow", Qt::Key_Equal, plain, "=", types(U'='), 10},
    {"deadKeyInDigitRow", Qt::Key_Dead_Circumflex, plain, "", types(U'6'), 15},
    {"signInDigitRowWithShift", Qt::Key_Exclam, shift, "!", types(U'!'), 10, nativeShift},
    {"digitOnKeyOfAnotherDigit", Qt::Key_1, plain, "1", types(U'1'), 14},
    {"arabicIndicDigitInDigitRow", Qt::Key_unknown, plain, "٤", types(U'3'), 12},
    {"digitRowWithControl", Qt::Key_Ampersand, control, "&", typesNothing, 10},
    {"altGr", Qt::Key_At, plain, "@", types(U'@'), 19, nativeAltGr},
    {"digitWithAltGr", Qt::Key_1, altGr, "1", typesNothing, 10, nativeAltGr},
    {"keypad1WithShift", Qt::Key_End, shift | onKeypad, "", types(U'1'), 87, nativeShift},
    {"keypad6OnWayland", Qt::Key_Right, plain, "", types(U'6'), 85},
    {"keypad6WithControl", Qt::Key_Right, control | onKeypad, "", typesNothing, 85},
};

TEST(Keys, areTranslatedToKeyStrokes) {
  for (const auto& row : keyRows) {
    const QKeyEvent press{QEvent::KeyPress,    row.key, row.modifiers, row.scanCode, 0,
                          row.nativeModifiers, row.text};
    EXPECT_EQ(translateKey(press, NativeCodes::ofX11), row.expected) << row.name;
  }
}

/// On the offscreen platform: the first key of a French digit row, and the keypad from the top left key to
/// the bottom right one.
TEST(KeysOnOtherPlatforms, areTranslatedWithoutScanCodes) {
  EXPECT_EQ(translateKey({QEvent::KeyPress, Qt::Key_Ampersand, plain, 10, 0, 0, "&"}), types(U'&'));
  constexpr std::array keys{Qt::Key_Home,  Qt::Key_Up,  Qt::Key_PageUp, Qt::Key_Left,     Qt::Key_Clear,
                            Qt::Key_Right, Qt::Key_End, Qt::Key_Down,   Qt::Key_PageDown, Qt::Key_Insert};
  std::u32string typed;
  for (const int key : keys)
    typed += translateKey({QEvent::KeyPress, key, onKeypad})->character.value_or(U'-');
  EXPECT_EQ(typed, U"7894561230");
}

// ---- Zoom keys ---------------------------------------------------------------------------------------

using enum ZoomStep;

/// Name, key, modifiers, scan code and expected step.
using ZoomRow = std::tuple<const char*, int, Qt::KeyboardModifiers, quint32, std::optional<ZoomStep>>;

const ZoomRow zoomRows[]{
    {"frenchPlus", Qt::Key_Plus, control | shift, 21, larger},
    {"frenchMinus", Qt::Key_Minus, control, 15, smaller},
    {"frenchZero", Qt::Key_Agrave, control, 19, normal},
    {"zero", Qt::Key_0, control, 0, normal},
    {"keypadZeroWithoutNumLock", Qt::Key_Insert, control | onKeypad, 90, normal},
    {"insert", Qt::Key_Insert, control, 118, std::nullopt},
    {"f11", Qt::Key_F11, shift, 95, fill},
    {"f11WithControl", Qt::Key_F11, control, 95, std::nullopt},
    {"zeroWithControlAndAlt", Qt::Key_0, control | Qt::AltModifier, 19, std::nullopt},
};

TEST(ZoomKeys, areTranslatedToZoomSteps) {
  for (const auto& [name, key, modifiers, scanCode, expected] : zoomRows)
    EXPECT_EQ(zoomStep({QEvent::KeyPress, key, modifiers, scanCode, 0, 0}, NativeCodes::ofX11), expected)
        << name;
}

/// The factor after the steps, on a display that is filled at this factor.
qreal factorAfter(std::initializer_list<ZoomStep> steps, qreal fillFactor) {
  Zoom zoom{1.5};
  for (const auto step : steps)
    zoom.take(step, fillFactor);
  return zoom.factor(fillFactor);
}

TEST(Zoom, goesThroughLevelsFromOneToThree) {
  EXPECT_EQ(factorAfter({larger, smaller, smaller}, 4), 1.25);
  EXPECT_EQ(factorAfter({smaller, smaller, smaller, smaller, smaller}, 4), 1);
  EXPECT_EQ(factorAfter({larger, larger, larger, larger, larger}, 4), 3);
}

TEST(Zoom, fillsTheDisplayUntilTheNextStep) {
  EXPECT_EQ(factorAfter({fill}, 4.2), 4.2);
  EXPECT_EQ(factorAfter({fill, fill}, 4.2), 1.5);
  EXPECT_EQ(factorAfter({fill, larger}, 2.2), 2.5);
  EXPECT_EQ(factorAfter({fill, larger}, 4.2), 4.2) << "there is no larger level";
  EXPECT_EQ(factorAfter({fill, smaller}, 4.2), 3);
  EXPECT_EQ(factorAfter({fill, normal}, 4.2), 1);
}

// ---- Auto-repeat -------------------------------------------------------------------------------------

using enum KeyRepeatFilter::Origin;
using enum KeyRepeatFilter::Verdict;
using enum ScreenName;

constexpr KeyRepeatFilter::ScanCode enterKey = 36;

/// Name, time and origin of a release, time of the unmarked press that follows on another screen, and what is
/// expected of it.
using ReleaseRow = std::tuple<const char*, KeyRepeatFilter::Milliseconds, KeyRepeatFilter::Origin,
                              KeyRepeatFilter::Milliseconds, KeyRepeatFilter::Verdict>;

const ReleaseRow releaseRows[]{
    {"at the same time", 1300, hand, 1300, dropped},
    {"one millisecond later", 1300, hand, 1301, dropped},
    {"two milliseconds later", 1300, hand, 1302, counts},
    {"without timestamps, as Qt reports keys while a screen reader is running", 0, hand, 0, counts},
    {"after a marked release", 1300, autoRepeat, 1300, counts},
};

TEST(KeyRepeat, unmarkedRepeatIsDetectedByItsTimestamp) {
  for (const auto& [name, released, origin, pressed, expected] : releaseRows) {
    SCOPED_TRACE(name);
    KeyRepeatFilter filter;
    filter.press(enterKey, 1000, hand, addition);
    filter.release(enterKey, released, origin);
    EXPECT_EQ(filter.press(enterKey, pressed, hand, FIN), expected);
    EXPECT_EQ(filter.press(enterKey, 1330, autoRepeat, FIN), expected);
  }
}

} // namespace

} // namespace chiffrolo::qt
