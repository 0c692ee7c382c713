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

// ---- What Qt 6.4 reports in native codes only ---------------------------------------------------------

constexpr quint32 fifthModifier = 0x80; // AltGr on X11

/// Qt 6.4 on Wayland reports AltGr in the native modifiers only.
bool isWithAltGr(const QKeyEvent& press, NativeCodes codes) {
  const bool isNative = codes == NativeCodes::ofX11 && (press.nativeModifiers() & fifthModifier) != 0;
  return isNative || press.modifiers().testFlag(Qt::GroupSwitchModifier);
}

bool isWithCommand(const QKeyEvent& press) {
  return (press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
}

/// Scan codes of adjacent keys, both ends included.
struct ScanCodes {
  quint32 first;
  quint32 last;

  bool contain(const QKeyEvent& press, NativeCodes codes) const {
    return codes == NativeCodes::ofX11 && press.nativeScanCode() >= first && press.nativeScanCode() <= last;
  }
};

constexpr ScanCodes digitRow{10, 19}; // 1 to 9, then 0, on every layout
constexpr ScanCodes keypad{79, 91};   // from 7 to the decimal separator

/// Qt 6.4 on Wayland reports the keypad in the scan code only.
bool isOnKeypad(const QKeyEvent& press, NativeCodes codes) {
  return keypad.contain(press, codes) || press.modifiers().testFlag(Qt::KeypadModifier);
}

// ---- Digits -----------------------------------------------------------------------------------------

/// Not QChar::isDigit, which accepts the digits of other scripts.
bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

/// The keys of the keypad without Num Lock, ordered by their digits 0 to 9.
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

/// The first rule that applies decides.
std::optional<char32_t> typedDigit(const QKeyEvent& press, NativeCodes codes) {
  const QString text = press.text();
  if (isWithCommand(press) || isWithAltGr(press, codes)) return std::nullopt;
  if (text.size() == 1 && isDigit(text.front())) return text.front().unicode();
  if (isOnKeypad(press, codes)) return digitOfKeypad(press.key());
  if (press.modifiers().testFlag(Qt::ShiftModifier)) return std::nullopt;
  if (text == u"=") return std::nullopt; // it submits; some layouts have it in the digit row
  if (digitRow.contain(press, codes)) return digitOfRow(press.nativeScanCode());
  return std::nullopt;
}

// ---- Other characters -------------------------------------------------------------------------------

/// Characters beyond U+FFFF are ignored, and so are digits that the rules above do not accept.
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
