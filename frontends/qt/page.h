// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "qt/keys.h"
#include "qt/ticker.h"
#include "qt/view.h"

class QToolButton;

namespace chiffrolo::qt {

/// One screen: its frame and, within it, the view of its surface and controls. It tells `events` what the
/// learner does there, until it is retired.
class Page final : public QWidget {
public:
  /// All of them outlive the page.
  Page(const ScreenLayout& layout, Events& events, Ticker& ticker, QWidget* host);

  /// Takes the whole of a host of that size at once, even while it is hidden.
  void fill(QSize host);
  /// Gives the keys to whichever part of the page had them last.
  void takeFocus();
  /// No event, no sight of it from now on; the object itself goes once all its handlers have returned.
  void retire();

  ScreenName name() const { return layout_.name; }
  bool hasButtons() const { return view_->firstButton() != nullptr; }
  View& view() { return *view_; }

  /// What can be read on the surface now.
  std::vector<SpokenText> spokenTexts() const;
  /// Where an area of the surface lies on the display, in pixels.
  QRect onDisplay(Point topLeft, Point bottomRight) const;

  Events::KeyUse pressKey(const KeyStroke& stroke);
  void click(ControlIndex control);
  void tick(ControlIndex timer);
  void reportClose();

private:
  void paintEvent(QPaintEvent* event) override;
  QRect titleBar() const;
  QRect innerArea() const;

  const ScreenLayout& layout_;
  Events* events_; // null once retired
  Ticker& ticker_;
  View* view_;
  QToolButton* closeBox_{};
};

} // namespace chiffrolo::qt
