// SPDX-License-Identifier: MIT
#include "shell/platform.h"
#include "shell/qt/keys.h"

#include <gtest/gtest.h>

namespace chiffrolo::qt {

namespace {

constexpr std::nullopt_t noCharacter = std::nullopt;
constexpr std::nullopt_t notPassed = std::nullopt;

struct Row {
  const char* name;
  int key;
  Qt::KeyboardModifiers modifiers;
  const char* text;
  std::optional<KeyStroke> expected;
};

class Keys : public testing::TestWithParam<Row> {};

TEST_P(Keys, areTranslated) {
  const auto& row = GetParam();
  const QKeyEvent press{QEvent::KeyPress, row.key, row.modifiers, QString::fromUtf8(row.text)};
  EXPECT_EQ(translateKey(press), row.expected);
}

const auto plain = Qt::NoModifier;

INSTANTIATE_TEST_SUITE_P(
    Table, Keys,
    testing::Values(
        Row{"digit", Qt::Key_7, plain, "7", KeyStroke{keyCode::other, U'7'}},
        Row{"keypadDigit", Qt::Key_7, Qt::KeypadModifier, "7", KeyStroke{keyCode::other, U'7'}},
        Row{"keypad5WithoutNumLock", Qt::Key_Clear, Qt::KeypadModifier, "", KeyStroke{keyCode::other, U'5'}},
        Row{"keypad6WithoutNumLock", Qt::Key_Right, Qt::KeypadModifier, "", KeyStroke{keyCode::other, U'6'}},
        Row{"capital", Qt::Key_A, Qt::ShiftModifier, "A", KeyStroke{keyCode::other, U'A'}},
        Row{"accent", Qt::Key_Eacute, plain, "é", KeyStroke{keyCode::other, U'é'}},
        Row{"euro", Qt::Key_E, Qt::GroupSwitchModifier, "€", KeyStroke{keyCode::other, U'€'}},
        Row{"space", Qt::Key_Space, plain, " ", KeyStroke{keyCode::other, U' '}},
        Row{"beyondTheFirst65536", Qt::Key_unknown, plain, "😀", KeyStroke{keyCode::other, noCharacter}},
        Row{"control", Qt::Key_A, Qt::ControlModifier, "\1", KeyStroke{keyCode::other, noCharacter}},
        Row{"alt", Qt::Key_7, Qt::AltModifier, "7", KeyStroke{keyCode::other, noCharacter}},
        Row{"meta", Qt::Key_7, Qt::MetaModifier, "7", KeyStroke{keyCode::other, noCharacter}},
        Row{"enter", Qt::Key_Return, plain, "\r", KeyStroke{keyCode::enter, char32_t{13}}},
        Row{"keypadEnter", Qt::Key_Enter, Qt::KeypadModifier, "\r", KeyStroke{keyCode::enter, char32_t{13}}},
        Row{"backspace", Qt::Key_Backspace, plain, "\b", KeyStroke{keyCode::other, char32_t{8}}},
        Row{"escape", Qt::Key_Escape, plain, "\33", KeyStroke{keyCode::other, char32_t{27}}},
        Row{"right", Qt::Key_Right, plain, "", KeyStroke{keyCode::right, noCharacter}},
        Row{"left", Qt::Key_Left, plain, "", KeyStroke{keyCode::other, noCharacter}},
        Row{"apostrophe", Qt::Key_Apostrophe, plain, "'", KeyStroke{keyCode::other, U'\''}},
        Row{"carriageReturnByControl", Qt::Key_M, Qt::ControlModifier, "\r",
            KeyStroke{keyCode::other, noCharacter}},
        Row{"tab", Qt::Key_Tab, plain, "\t", KeyStroke{keyCode::other, noCharacter}},
        Row{"delete", Qt::Key_Delete, plain, "\177", KeyStroke{keyCode::other, noCharacter}},
        Row{"functionKey", Qt::Key_F1, plain, "", KeyStroke{keyCode::other, noCharacter}},
        Row{"shiftAlone", Qt::Key_Shift, Qt::ShiftModifier, "", notPassed},
        Row{"altGrAlone", Qt::Key_AltGr, plain, "", notPassed},
        Row{"capsLock", Qt::Key_CapsLock, plain, "", notPassed}),
    [](const auto& tested) { return tested.param.name; });

// ---- The keys of a keyboard, by the codes that it sends
// -------------------------------------------------------

/// As seen on the platforms for X11 and Wayland with French, Belgian, Swiss, Canadian and bépo layouts.
struct NativeRow {
  const char* name;
  quint32 scanCode;
  int key;
  Qt::KeyboardModifiers modifiers;
  quint32 nativeModifiers;
  const char* text;
  std::optional<char32_t> expected;
};

class NativeKeys : public testing::TestWithParam<NativeRow> {};

TEST_P(NativeKeys, areTranslated) {
  const auto& row = GetParam();
  const auto text = QString::fromUtf8(row.text);
  const QKeyEvent press{QEvent::KeyPress, row.key, row.modifiers, row.scanCode, 0, row.nativeModifiers, text};
  EXPECT_EQ(translateKey(press, NativeCodes::ofX11), (KeyStroke{keyCode::other, row.expected}));
}

const auto shift = Qt::ShiftModifier;
const auto onKeypad = Qt::KeypadModifier;
const auto altGr = Qt::GroupSwitchModifier;
constexpr quint32 noNative = 0;
constexpr quint32 nativeShift = 1;
constexpr quint32 nativeLock = 2;
constexpr quint32 nativeAltGr = 0x80;

INSTANTIATE_TEST_SUITE_P(
    Table, NativeKeys,
    testing::Values(NativeRow{"firstOfTheRow", 10, Qt::Key_Ampersand, plain, noNative, "&", U'1'},
                    NativeRow{"secondOfTheRow", 11, Qt::Key_Eacute, plain, noNative, "é", U'2'},
                    NativeRow{"ninthOfTheRow", 18, Qt::Key_Ccedilla, plain, noNative, "ç", U'9'},
                    NativeRow{"lastOfTheRow", 19, Qt::Key_Agrave, plain, noNative, "à", U'0'},
                    NativeRow{"beforeTheRow", 9, Qt::Key_A, plain, noNative, "a", U'a'},
                    NativeRow{"behindTheRow", 20, Qt::Key_ParenRight, plain, noNative, ")", U')'},
                    NativeRow{"equalsBehindTheRow", 21, Qt::Key_Equal, plain, noNative, "=", U'='},
                    NativeRow{"equalsInTheRow", 10, Qt::Key_Equal, plain, noNative, "=", U'='},
                    NativeRow{"equalsAboveZero", 19, Qt::Key_Equal, shift, nativeShift, "=", U'='},
                    NativeRow{"deadKeyOfTheRow", 15, Qt::Key_Dead_Circumflex, plain, noNative, "", U'6'},
                    NativeRow{"capsLock", 11, Qt::Key_Eacute, plain, nativeLock, "É", U'2'},
                    NativeRow{"shifted", 14, Qt::Key_5, shift, nativeShift, "5", U'5'},
                    NativeRow{"shiftedSign", 10, Qt::Key_Exclam, shift, nativeShift, "!", U'!'},
                    NativeRow{"digitElsewhere", 14, Qt::Key_1, plain, noNative, "1", U'1'},
                    NativeRow{"otherDigitOfUnicode", 40, Qt::Key_unknown, plain, noNative, "٣", U'٣'},
                    NativeRow{"otherDigitInTheRow", 12, Qt::Key_unknown, plain, noNative, "٤", U'3'},
                    NativeRow{"control", 10, Qt::Key_Ampersand, Qt::ControlModifier, noNative, "&",
                              noCharacter},
                    NativeRow{"alt", 10, Qt::Key_Ampersand, Qt::AltModifier, noNative, "&", noCharacter},
                    NativeRow{"meta", 10, Qt::Key_Ampersand, Qt::MetaModifier, noNative, "&", noCharacter},
                    NativeRow{"altGrOnX11", 19, Qt::Key_At, altGr, nativeAltGr, "@", U'@'},
                    NativeRow{"altGrOnWayland", 19, Qt::Key_At, plain, nativeAltGr, "@", U'@'},
                    NativeRow{"altGrNextToADigit", 10, Qt::Key_1, altGr, nativeAltGr, "1", noCharacter},
                    NativeRow{"euroOnWayland", 26, Qt::Key_E, plain, nativeAltGr, "€", U'€'},
                    NativeRow{"keypadWithNumLock", 84, Qt::Key_5, onKeypad, noNative, "5", U'5'},
                    NativeRow{"keypad0", 90, Qt::Key_Insert, onKeypad, noNative, "", U'0'},
                    NativeRow{"keypad1", 87, Qt::Key_End, onKeypad, noNative, "", U'1'},
                    NativeRow{"keypad2", 88, Qt::Key_Down, onKeypad, noNative, "", U'2'},
                    NativeRow{"keypad3", 89, Qt::Key_PageDown, onKeypad, noNative, "", U'3'},
                    NativeRow{"keypad4", 83, Qt::Key_Left, onKeypad, noNative, "", U'4'},
                    NativeRow{"keypad5", 84, Qt::Key_Clear, onKeypad, noNative, "", U'5'},
                    NativeRow{"keypad6", 85, Qt::Key_Right, onKeypad, noNative, "", U'6'},
                    NativeRow{"keypad7", 79, Qt::Key_Home, onKeypad, noNative, "", U'7'},
                    NativeRow{"keypad8", 80, Qt::Key_Up, onKeypad, noNative, "", U'8'},
                    NativeRow{"keypad9", 81, Qt::Key_PageUp, onKeypad, noNative, "", U'9'},
                    NativeRow{"keypadWithShift", 87, Qt::Key_End, shift | onKeypad, nativeShift, "", U'1'},
                    NativeRow{"keypad6OnWayland", 85, Qt::Key_Right, plain, noNative, "", U'6'},
                    NativeRow{"keypad6WithControl", 85, Qt::Key_Right, Qt::ControlModifier | onKeypad,
                              noNative, "", noCharacter},
                    NativeRow{"keypadPlus", 86, Qt::Key_Plus, onKeypad, noNative, "+", U'+'},
                    NativeRow{"keypadSeparator", 91, Qt::Key_Delete, onKeypad, noNative, "", noCharacter},
                    NativeRow{"leftBesideTheKeypad", 113, Qt::Key_Left, plain, noNative, "", noCharacter}),
    [](const auto& tested) { return tested.param.name; });

TEST(KeysOfOtherPlatforms, haveNoDigitRow) {
  const QKeyEvent press{QEvent::KeyPress, Qt::Key_Ampersand, plain, 10, 0, noNative, QStringLiteral("&")};
  EXPECT_EQ(nativeCodes(), NativeCodes::notKnown) << "these tests have a platform of their own";
  EXPECT_EQ(translateKey(press), (KeyStroke{keyCode::other, U'&'}));
}

} // namespace

} // namespace chiffrolo::qt
