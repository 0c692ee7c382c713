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

} // namespace

} // namespace chiffrolo::qt
