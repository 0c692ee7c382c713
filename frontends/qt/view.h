// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "qt/drawing_surface.h"
#include "qt/zoom.h"

#include <functional>
#include <vector>

namespace chiffrolo::qt {

/// The content area of a screen. With less room than the minimum content area, the surface and its controls
/// are scaled down. Zoomed in, they may be larger than the view, which then shows a part of them: it follows
/// what is drawn and what gets the focus, and the mouse wheel pans it.
///
/// Not a QScrollArea: that scrolls by whole pixels, reveals points instead of areas, and turns Shift with the
/// wheel into paging. Working around this takes more code than panning.
class View final : public QWidget {
public:
  using Clicked = std::function<void(ControlIndex)>;

  /// `layout` outlives it.
  View(const ScreenLayout& layout, const Clicked& clicked, QWidget* parent);

  DrawingSurface& surface() { return *surface_; }
  /// Null for a timer.
  QWidget* control(ControlIndex index) const { return controls_.at(index); }
  /// Null if the screen has no button.
  QWidget* firstButton() const;

  /// The width of the content area in pixels of the layout. The zoom does not change it.
  qreal contentWidth() const;
  void setZoom(const Zoom& zoom);
  /// The zoom factor at which the minimum content area just fits; 1 with less room than that.
  qreal fillFactor() const;
  void goToTopLeft();
  void setImageVisible(ControlIndex image, Visibility visible);
  /// Makes the view not follow what was drawn since it last did, unless an image became visible: a timer must
  /// not move the view away from the answer.
  void ignoreWhatWasDrawn();

private:
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  /// Reveals a control that gets the focus.
  bool eventFilter(QObject* watched, QEvent* event) override;

  QRectF placeOf(ControlIndex control) const;
  qreal roomScale() const;
  qreal fitScale() const;
  void arrange();
  QSizeF shownSize() const;
  void panTo(QPointF topLeft);
  void follow();
  void followSoon();
  void reveal(const QRectF& area);

  const ScreenLayout& layout_;
  DrawingSurface* surface_;
  std::vector<QWidget*> controls_; // by row of the layout
  Zoom zoom_;

  // In pixels of the layout.
  QPointF pan_;     // the top left corner of the visible part
  QRectF image_;    // became visible since the view last followed
  QRectF revealed_; // the area that was last made visible
  bool followsSoon_{};
};

} // namespace chiffrolo::qt
