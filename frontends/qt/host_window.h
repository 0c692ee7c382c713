// SPDX-License-Identifier: MIT
#pragma once

#include "qt/key_repeat.h"
#include "qt/page.h"
#include "qt/zoom.h"

#include <vector>

namespace chiffrolo::qt {

/// The one window of the window system. The screens are its pages, of which one is seen and gets the keys: a
/// change of screen is over with the next repaint, and no window manager has a say in it.
class HostWindow final : public QWidget {
public:
  HostWindow();

  /// `page` is a child of the host.
  void add(Page& page);
  /// The first one brings the host itself onto the screen.
  void bringForward(Page& page);
  /// The page that is seen; null when the active screen is gone.
  Page* current() const { return current_; }
  /// Retires the page.
  void remove(Page& page);

private:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  /// Sees all keys before the widget that has the focus.
  bool eventFilter(QObject* watched, QEvent* event) override;

  enum class KeyFate : std::uint8_t { usedUp, leftToFocus };
  KeyFate pressKey(const QKeyEvent& press);
  KeyFate releaseKey(const QKeyEvent& release);
  void takeZoomStep(ZoomStep step);
  void open();
  void followScreen();
  void fillScreenSoon();
  void showIcon();

  std::vector<Page*> pages_;
  Page* current_{};
  KeyRepeatFilter repeats_;
  Zoom zoom_;
  QMetaObject::Connection screenChanges_;
};

} // namespace chiffrolo::qt
