// SPDX-License-Identifier: MIT
#include "qt/keys.h"

#include "platform.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>

namespace chiffrolo::qt {

namespace {

bool isModifier(int key) {
  switch (key) {
  case Qt::Key_Shift:
  case Qt::Key_Control:
  case Qt::Key_Meta:
  case Qt::Key_Alt:
  case Qt::Key_AltGr:
  case Qt::Key_CapsLock:
  case Qt::Key_NumLock:
  case Qt::Key_ScrollLock:
  case Qt::Key_Super_L:
  case Qt::Key_Super_R:
  case Qt::Key_Hyper_L:
  case Qt::Key_Hyper_R:
  case Qt::Key_Mode_switch: return true;
  default: return false;
  }
}

// ---- What Qt 6.4 leaves to the native codes ---------------------------------------------------------------

constexpr quint32 fifthModifier = 0x80; // of X11: AltGr

/// Wayland: only the native modifiers tell.
bool isWithAltGr(const QKeyEvent& press, NativeCodes codes) {
  const bool isNative = codes == NativeCodes::ofX11 && (press.nativeModifiers() & fifthModifier) != 0;
  return isNative || press.modifiers().testFlag(Qt::GroupSwitchModifier);
}

bool isWithCommand(const QKeyEvent& press) {
  return (press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
}

/// Keys that lie side by side have scan codes in a row; both ends belong to it.
struct ScanCodes {
  quint32 first;
  quint32 last;

  bool contain(const QKeyEvent& press, NativeCodes codes) const {
    return codes == NativeCodes::ofX11 && press.nativeScanCode() >= first && press.nativeScanCode() <= last;
  }
};

constexpr ScanCodes digitRow{10, 19}; // 1 to 9, then 0, on every layout
constexpr ScanCodes keypad{79, 91};   // from 7 to the decimal separator

/// Wayland: only the scan code tells.
bool isOnKeypad(const QKeyEvent& press, NativeCodes codes) {
  return keypad.contain(press, codes) || press.modifiers().testFlag(Qt::KeypadModifier);
}

// ---- Digits -----------------------------------------------------------------------------------------------

/// Not QChar::isDigit: Unicode has other digits.
bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

/// What a key of the keypad means: its digit, in the order in which they count, without Num Lock.
constexpr std::array keypadKeys{Qt::Key_Insert, Qt::Key_End,   Qt::Key_Down,  Qt::Key_PageDown,
                                Qt::Key_Left,   Qt::Key_Clear, Qt::Key_Right, Qt::Key_Home,
                                Qt::Key_Up,     Qt::Key_PageUp};

std::optional<char32_t> digitOfKeypad(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return U'0' + static_cast<char32_t>(key - Qt::Key_0);
  const auto* const found = std::ranges::find(keypadKeys, key);
  if (found == keypadKeys.end()) return std::nullopt;
  return U'0' + static_cast<char32_t>(found - keypadKeys.begin());
}

char32_t digitOfRow(quint32 scanCode) { return U'0' + (scanCode - digitRow.first + 1) % 10; }

/// The first rule that fits decides.
std::optional<char32_t> typedDigit(const QKeyEvent& press, NativeCodes codes) {
  const QString text = press.text();
  if (isWithCommand(press) || isWithAltGr(press, codes)) return std::nullopt;
  if (text.size() == 1 && isDigit(text.front())) return text.front().unicode();
  if (isOnKeypad(press, codes)) return digitOfKeypad(press.key());
  if (press.modifiers().testFlag(Qt::ShiftModifier)) return std::nullopt;
  if (text == u"=") return std::nullopt; // submits, and some layouts have it in the digit row
  if (digitRow.contain(press, codes)) return digitOfRow(press.nativeScanCode());
  return std::nullopt;
}

// ---- Other characters -------------------------------------------------------------------------------------

/// Characters beyond the first 65536 do not fit into one code unit and count as none; a digit that is none by
/// the rules above is no other character either.
std::optional<char32_t> typedCharacter(const QKeyEvent& press) {
  if (isWithCommand(press)) return std::nullopt;
  const QString text = press.text();
  if (text.isEmpty() || text.front().isSurrogate() || !text.front().isPrint()) return std::nullopt;
  if (isDigit(text.front())) return std::nullopt;
  return text.front().unicode();
}

} // namespace

NativeCodes nativeCodes() {
  const QString platform = QGuiApplication::platformName();
  const bool hasThose = platform == u"xcb" || platform.startsWith(u"wayland");
  return hasThose ? NativeCodes::ofX11 : NativeCodes::notKnown;
}

std::optional<KeyStroke> translateKey(const QKeyEvent& press, NativeCodes codes) {
  if (isModifier(press.key())) return std::nullopt;
  if (const auto digit = typedDigit(press, codes)) return KeyStroke{keyCode::other, digit};
  switch (press.key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter: return KeyStroke{keyCode::enter, character::enter};
  case Qt::Key_Backspace: return KeyStroke{keyCode::other, character::backspace};
  case Qt::Key_Escape: return KeyStroke{keyCode::other, character::escape};
  case Qt::Key_Right:
    return KeyStroke{isOnKeypad(press, codes) ? keyCode::other : keyCode::right, std::nullopt};
  default: return KeyStroke{keyCode::other, typedCharacter(press)};
  }
}

} // namespace chiffrolo::qt
