// SPDX-License-Identifier: MIT
#pragma once

#include "shell/controls.h"
#include "shell/module11.h"
#include "shell/program.h"
#include "shell/surface.h"

#include <string>
#include <vector>

namespace chiffrolo {

/// One of the eight screens: a surface with controls, and the handlers of its events. A handler is named
/// after the control it belongs to, `Form_` for the screen itself, and its event.
///
/// A screen may be unloaded while one of its handlers runs. Its window is gone then, but the object stays
/// alive until that handler has returned.
class Screen : public Surface {
public:
  /// Creates the window. `layout` lives as long as the program.
  Screen(Program& program, const ScreenLayout& layout);
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  virtual ~Screen() = default;

  virtual void Form_Load() {}                   ///< once, before the screen is first visible
  virtual void Form_Activate() {}               ///< each time it has become the program's active screen
  virtual void Form_KeyDown(int /*keyCode*/) {} ///< before the `Form_KeyPress` of the same key, if it has one
  virtual void Form_KeyPress(char32_t /*character*/) {}

  /// A click on a button or image, or the tick of a timer.
  void react(ControlIndex control);
  void bringToFront() { window().activate(); }
  void close() { closeWindow(); }
  const ScreenLayout& layout() const { return layout_; }
  /// What its labels say now, in the order of the layout, without blanks around.
  std::vector<std::string> labelCaptions() const;

protected:
  void Show(ScreenName screen) { program_.Show(screen); }
  void Unload(ScreenName screen) { program_.Unload(screen); }
  void End() { program_.End(); }
  RandomNumbers& randomNumbers() { return program_.randomNumbers(); }

  MODULE11& shared; ///< the program-wide variables

private:
  friend class Control;

  Program& program_;
  const ScreenLayout& layout_;
  std::vector<Control*>
      controls_; // by row of the layout; each enters itself, and lives in the derived screen
};

} // namespace chiffrolo
