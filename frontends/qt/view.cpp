// SPDX-License-Identifier: MIT
#include "qt/view.h"

#include "qt/controls.h"
#include "qt/units.h"

#include <QPushButton>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace chiffrolo::qt {

namespace {

constexpr QSizeF minimumContentSize{minimumContentArea.width * pixelsPerTwip,
                                    minimumContentArea.height* pixelsPerTwip};

/// Along one axis: the new start of a view of length `shown`, now at `start`, that shows `from` to `to`; or
/// only `from` if both do not fit.
qreal startToShow(qreal from, qreal to, qreal start, qreal shown) {
  return std::min(from, std::max(start, to - shown));
}

/// Most wheels turn 15 degrees per step; Qt reports eighths of a degree. Shift turns the wheel horizontal.
QPointF wheelSteps(const QWheelEvent& event) {
  const QPointF steps = QPointF{event.angleDelta()} / 120;
  return event.modifiers().testFlag(Qt::ShiftModifier) ? steps.transposed() : steps;
}

} // namespace

View::View(const ScreenLayout& layout, const Clicked& clicked, QWidget* parent)
    : QWidget(parent), layout_(layout),
      surface_(new DrawingSurface(toQt(layout.background), this, [this] { followSoon(); })) {
  for (ControlIndex index = 0; index < layout.controls.size(); ++index) {
    auto* const control =
        createControl(layout.controls[index], *surface_, [clicked, index] { clicked(index); });
    if (control != nullptr) control->installEventFilter(this);
    controls_.push_back(control);
  }
}

QWidget* View::firstButton() const {
  const auto first = std::ranges::find(layout_.controls, ControlKind::button, &ControlLayout::kind);
  return first == layout_.controls.end()
             ? nullptr
             : controls_.at(static_cast<std::size_t>(first - layout_.controls.begin()));
}

// ---- Scale -------------------------------------------------------------------------------------------

/// The scale at which the minimum content area just fits.
qreal View::roomScale() const {
  const QSizeF room = size().expandedTo({1, 1});
  return std::min(room.width() / minimumContentSize.width(), room.height() / minimumContentSize.height());
}

qreal View::fitScale() const { return std::min(1.0, roomScale()); }

qreal View::fillFactor() const { return std::max(1.0, roomScale()); }

qreal View::contentWidth() const { return width() / fitScale(); }

void View::setZoom(const Zoom& zoom) {
  zoom_ = zoom;
  arrange();
}

void View::resizeEvent(QResizeEvent* /*event*/) { arrange(); }

void View::arrange() {
  const qreal factor = zoom_.factor(fillFactor());
  surface_->setScale(fitScale() * factor);
  surface_->resize((QSizeF{size()} * factor).toSize());
  for (ControlIndex index = 0; index < controls_.size(); ++index)
    if (auto* const widget = controls_[index])
      placeControl(*widget, layout_.controls[index], surface_->scale());
  panTo(pan_);
  if (!revealed_.isEmpty()) reveal(revealed_);
}

// ---- Which part is shown -----------------------------------------------------------------------------

QSizeF View::shownSize() const { return QSizeF{size()} / surface_->scale(); }

void View::panTo(QPointF topLeft) {
  const QSizeF hidden = (minimumContentSize - shownSize()).expandedTo({0, 0});
  pan_ = {std::clamp(topLeft.x(), 0.0, hidden.width()), std::clamp(topLeft.y(), 0.0, hidden.height())};
  const QPoint place = (-pan_ * surface_->scale()).toPoint();
  if (place == surface_->pos()) return;
  surface_->move(place);
  surface_->update(); // at a pixel ratio of 1.5, moved pixels would not be pixel-aligned
}

void View::goToTopLeft() {
  revealed_ = {};
  panTo({});
}

void View::reveal(const QRectF& area) {
  revealed_ = area;
  constexpr qreal margin = 8;
  const QRectF roomy = area.adjusted(-margin, -margin, margin, margin);
  const QSizeF shown = shownSize();
  panTo({startToShow(roomy.left(), roomy.right(), pan_.x(), shown.width()),
         startToShow(roomy.top(), roomy.bottom(), pan_.y(), shown.height())});
}

/// After the present event, during which more may be drawn.
void View::followSoon() {
  if (std::exchange(followsSoon_, true)) return;
  QMetaObject::invokeMethod(
      this, [this] { follow(); }, Qt::QueuedConnection);
}

void View::follow() {
  followsSoon_ = false;
  const QRectF drawn = surface_->takeDrawn();
  const QRectF image = std::exchange(image_, {});
  const QRectF both = drawn | image;
  const QSizeF shown = shownSize();
  const bool haveRoom = both.width() <= shown.width() && both.height() <= shown.height();
  const QRectF area = haveRoom || drawn.isEmpty() ? both : drawn;
  if (!area.isEmpty()) reveal(area);
}

void View::ignoreWhatWasDrawn() {
  if (image_.isEmpty()) surface_->takeDrawn();
}

void View::setImageVisible(ControlIndex image, Visibility visible) {
  auto* const widget = control(image);
  if (widget == nullptr) return;
  widget->setVisible(visible == Visibility::visible);
  image_ = visible == Visibility::visible ? placeOf(image) : QRectF{};
  if (!image_.isEmpty()) followSoon();
}

QRectF View::placeOf(ControlIndex control) const { return toPixels(layout_.controls[control].place); }

bool View::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::FocusIn) return false;
  // A button that moves while the mouse is pressed would not be clicked.
  if (static_cast<const QFocusEvent&>(*event).reason() == Qt::MouseFocusReason) return false;
  const auto control = std::ranges::find(controls_, watched);
  if (control != controls_.end()) reveal(placeOf(static_cast<ControlIndex>(control - controls_.begin())));
  return false;
}

void View::wheelEvent(QWheelEvent* event) {
  constexpr qreal pixelsPerStep = 60;
  revealed_ = {};
  panTo(pan_ - wheelSteps(*event) * pixelsPerStep / surface_->scale());
}

} // namespace chiffrolo::qt
