// SPDX-License-Identifier: MIT
#include "shell/qt/keys.h"

#include "shell/platform.h"

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

/// Characters beyond the first 65536 do not fit into one code unit and count as none.
std::optional<char32_t> typedCharacter(const QKeyEvent& press) {
  if (press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return std::nullopt;
  const QString text = press.text();
  if (text.isEmpty() || text.front().isSurrogate() || !text.front().isPrint()) return std::nullopt;
  return text.front().unicode();
}

} // namespace

std::optional<KeyStroke> translateKey(const QKeyEvent& press) {
  if (isModifier(press.key())) return std::nullopt;
  switch (press.key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter: return KeyStroke{keyCode::enter, character::enter};
  case Qt::Key_Backspace: return KeyStroke{keyCode::other, character::backspace};
  case Qt::Key_Escape: return KeyStroke{keyCode::other, character::escape};
  case Qt::Key_Right: return KeyStroke{keyCode::right, std::nullopt};
  default: return KeyStroke{keyCode::other, typedCharacter(press)};
  }
}

} // namespace chiffrolo::qt
