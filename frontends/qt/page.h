// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "qt/keys.h"
#include "qt/ticker.h"
#include "qt/view.h"

class QToolButton;

namespace chiffrolo::qt {

class HostWindow;

/// One screen: its frame and, inside it, the view of its surface and controls. It reports to `events` what
/// the learner does there, until it is retired.
class Page final : public QWidget {
public:
  /// All of them outlive the page, `events` until it is retired.
  Page(const ScreenLayout& layout, Events& events, Ticker& ticker, HostWindow& host);

  /// Resizes the page to the host's size at once, also while it is hidden.
  void fill(QSize host);
  /// Gives the focus to the widget of the page that had it last.
  void takeFocus();
  /// Hides the page, which reports no events from now on. It is deleted when the event loop runs again.
  void retire();

  ScreenName name() const { return layout_.name; }
  bool hasButtons() const { return view_->firstButton() != nullptr; }
  View& view() { return *view_; }

  /// The texts that are visible on the surface; none once retired.
  std::vector<SpokenText> spokenTexts() const;
  /// What a screen reader announces now; empty once retired.
  std::string takeAnnouncement();
  /// The area of the surface between two points, in pixels of the display.
  QRect onDisplay(Point topLeft, Point bottomRight) const;

  Events::KeyUse reportKey(const KeyStroke& stroke);
  /// A hidden control is not clicked, and a hidden page is not closed.
  void reportClick(ControlIndex control);
  void reportTick(ControlIndex timer);
  void reportClose();

private:
  template <typename Event> void report(Event event);
  void paintEvent(QPaintEvent* event) override;
  QRect titleBar() const;
  QRect contentArea() const;

  const ScreenLayout& layout_;
  Events* events_; // null once retired
  Ticker& ticker_;
  HostWindow& host_;
  View* view_;
  QToolButton* closeBox_{};
};

} // namespace chiffrolo::qt
