// SPDX-License-Identifier: MIT
#pragma once

#include "qt/accessibility.h"
#include "qt/key_repeat.h"
#include "qt/page.h"
#include "qt/zoom.h"

#include <vector>

namespace chiffrolo::qt {

/// The program's only window. The screens are its pages, one of which is visible and receives the keys.
/// Changing the screen is one repaint; no window manager is involved.
///
/// Not a QStackedWidget: in Qt 6.4 that resizes only the page that it shows, and shows another page by itself
/// when the current one is removed.
class HostWindow final : public QWidget {
public:
  explicit HostWindow(const Zoom& zoom);

  /// `page` is a child of the host.
  void add(Page& page);
  /// Shows the page in place of the current one. The first call shows the window.
  void bringForward(Page& page);
  /// The visible page; null after the active screen was removed.
  Page* current() const { return current_; }
  /// Retires the page.
  void remove(Page& page);
  /// Has screen readers announce what has changed, once the present event is handled.
  void announceSoon() { announcer_.updateSoon(); }

private:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  /// Receives all keys before the widget that has the focus.
  bool eventFilter(QObject* watched, QEvent* event) override;

  enum class KeyFate : std::uint8_t { consumed, passedOn };
  KeyFate pressKey(const QKeyEvent& press);
  KeyFate releaseKey(const QKeyEvent& release);
  void pressZoomKey(const QKeyEvent& press, ZoomStep step);
  void takeZoomStep(ZoomStep step);
  void open();
  void followScreen();
  void fillScreenSoon();
  void finishStart();

  std::vector<Page*> pages_;
  Page* current_{};
  KeyRepeatFilter repeats_;
  Zoom zoom_;
  Announcer announcer_{*this};
  QMetaObject::Connection screenChanges_;
};

} // namespace chiffrolo::qt
