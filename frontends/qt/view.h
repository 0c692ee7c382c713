// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "qt/drawing_surface.h"

#include <functional>
#include <vector>

namespace chiffrolo::qt {

/// The content area of a screen. Where there is less room than the minimum content area, the surface and all
/// its controls are shown smaller; zoomed, they may be larger than the view, which then shows a part of them:
/// by itself the one where something happens, and any other one with the mouse wheel.
class View final : public QWidget {
public:
  using Clicked = std::function<void(ControlIndex)>;

  /// `layout` outlives it.
  View(const ScreenLayout& layout, const Clicked& clicked, QWidget* parent);

  DrawingSurface& surface() { return *surface_; }
  /// Null for a timer.
  QWidget* control(ControlIndex index) const { return controls_.at(index); }
  /// Null if there is none.
  QWidget* firstButton() const;

  /// In pixels of the layout, whatever the zoom.
  qreal innerWidth() const;
  /// 1 or more.
  void setZoom(qreal factor);
  void goToTopLeft();
  void setImageVisible(ControlIndex image, Visibility visible);
  /// What a clock has drawn must not carry the view away from where the learner is writing, unless an image
  /// became visible with it.
  void ignoreWhatWasDrawn();

private:
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  /// Sees which control gets the focus.
  bool eventFilter(QObject* watched, QEvent* event) override;

  QRectF placeOf(ControlIndex control) const;
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
  qreal zoom_{1};

  // In pixels of the layout.
  QPointF pan_;     // the top left corner of what is shown
  QRectF image_;    // that became visible since the view last followed
  QRectF revealed_; // last
  bool followsSoon_{};
};

} // namespace chiffrolo::qt
