// SPDX-License-Identifier: MIT
#pragma once

#include "screen/controls.h"
#include "screen/screen_host.h"
#include "screen/surface.h"

#include <memory>
#include <string>
#include <vector>

namespace chiffrolo {

/// One of the eight screens: a surface with controls, and the handlers of its events. A handler is named
/// after its control (`Form_` for the screen itself) and its event.
///
/// A screen may be unloaded while one of its handlers runs. Its window is closed at once; the object is
/// destroyed after the handler has returned.
class Screen : public Surface {
public:
  /// Creates the window. `layout` lives as long as the program.
  Screen(ScreenHost& host, const ScreenLayout& layout);
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  virtual ~Screen() = default;

  virtual void Form_Load() {}                   ///< once, before the screen is first visible
  virtual void Form_Activate() {}               ///< each time the screen has become the active one
  virtual void Form_KeyDown(int /*keyCode*/) {} ///< before the `Form_KeyPress` of the same key, if it has one
  virtual void Form_KeyPress(char32_t /*character*/) {}

  /// Runs the handler of a button or image. Other controls, and indices beyond the layout, are ignored.
  void click(ControlIndex control);
  /// Runs the handler of a timer. Other controls, and indices beyond the layout, are ignored.
  void tick(ControlIndex control);
  void bringToFront() { window().activate(); }
  void close() { closeWindow(); }
  const ScreenLayout& layout() const { return layout_; }
  /// The present captions of the labels, in the order of the layout, without blanks at either end.
  std::vector<std::string> labelCaptions() const;

protected:
  void Show(ScreenName screen) { host_.Show(screen); }
  void Unload(ScreenName screen) { host_.Unload(screen); }
  void End() { host_.End(); }
  RandomNumbers& randomNumbers() { return host_.randomNumbers(); }

  MODULE11& shared; ///< the program-wide variables

private:
  friend class Control;

  bool isTimer(ControlIndex control) const;
  void react(ControlIndex control);

  ScreenHost& host_;
  const ScreenLayout& layout_;
  std::vector<Control*>
      controls_; // by row of the layout; each registers itself, and is a member of the screen
};

/// Creates a screen. `host` outlives it.
using ScreenCreator = std::shared_ptr<Screen> (*)(ScreenHost& host);

} // namespace chiffrolo
