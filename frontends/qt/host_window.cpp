// SPDX-License-Identifier: MIT
#include "qt/host_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace chiffrolo::qt {

namespace {

bool movesFocus(const QKeyEvent& press) {
  const bool isTab = press.key() == Qt::Key_Tab || press.key() == Qt::Key_Backtab;
  return isTab && !(press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

/// Identifies a physical key. Synthetic key events have no scan code.
KeyRepeatFilter::ScanCode scanCode(const QKeyEvent& event) {
  const auto code = event.nativeScanCode();
  return code != 0 ? code : static_cast<KeyRepeatFilter::ScanCode>(event.key());
}

KeyRepeatFilter::Origin origin(const QKeyEvent& event) {
  return event.isAutoRepeat() ? KeyRepeatFilter::Origin::autoRepeat : KeyRepeatFilter::Origin::hand;
}

/// On Wayland, a window must not choose its own size.
bool isSizedByCompositor() {
  return QGuiApplication::platformName().startsWith(QLatin1StringView("wayland"));
}

} // namespace

HostWindow::HostWindow(const Zoom& zoom) : QWidget(nullptr, Qt::FramelessWindowHint), zoom_(zoom) {
  setWindowTitle(QStringLiteral("Chiffrolo"));
  setAttribute(Qt::WA_InputMethodEnabled, false);
  // Without it, the focus of the first button is drawn only after the first Tab.
  setAttribute(Qt::WA_KeyboardFocusChange);
  // Without a window manager, nothing maximizes the window.
  setGeometry(screen()->availableGeometry());
}

void HostWindow::add(Page& page) {
  pages_.push_back(&page);
  page.view().setZoom(zoom_);
  page.fill(size());
}

void HostWindow::bringForward(Page& page) {
  if (&page == current_) return;
  Page* const previous = std::exchange(current_, &page);
  page.view().goToTopLeft();
  page.show();
  page.takeFocus();
  if (previous != nullptr) previous->hide();
  if (!isVisible()) open();
}

void HostWindow::remove(Page& page) {
  std::erase(pages_, &page);
  if (&page == current_) current_ = nullptr;
  page.retire();
}

void HostWindow::open() {
  showMaximized();
  windowHandle()->installEventFilter(this);
  connect(windowHandle(), &QWindow::screenChanged, this, [this] {
    followScreen();
    fillScreenSoon();
  });
  followScreen();
  raise();
  activateWindow();
}

void HostWindow::resizeEvent(QResizeEvent* /*event*/) {
  for (auto* const page : pages_)
    page->fill(size());
}

void HostWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (current_ != nullptr) current_->reportClose();
}

bool HostWindow::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::KeyPress: return pressKey(static_cast<const QKeyEvent&>(*event)) == KeyFate::consumed;
  case QEvent::KeyRelease: return releaseKey(static_cast<const QKeyEvent&>(*event)) == KeyFate::consumed;
  case QEvent::Expose: finishStart(); break;
  default: break;
  }
  return QWidget::eventFilter(watched, event);
}

HostWindow::KeyFate HostWindow::pressKey(const QKeyEvent& press) {
  using enum KeyFate;
  if (current_ == nullptr) return consumed;
  if (const auto step = zoomStep(press)) {
    pressZoomKey(press, *step);
    return consumed;
  }
  const auto verdict = repeats_.press(scanCode(press), press.timestamp(), origin(press), current_->name());
  if (verdict == KeyRepeatFilter::Verdict::dropped) return consumed;
  const bool hasButtons = current_->hasButtons();
  if (hasButtons && movesFocus(press)) return passedOn;
  const auto stroke = translateKey(press);
  if (!stroke || current_->reportKey(*stroke) == Events::KeyUse::screenChanged) return consumed;
  return hasButtons ? passedOn : consumed;
}

HostWindow::KeyFate HostWindow::releaseKey(const QKeyEvent& release) {
  repeats_.release(scanCode(release), release.timestamp(), origin(release));
  return zoomStep(release) ? KeyFate::consumed : KeyFate::passedOn;
}

/// A key that is held goes through the levels, but does not switch between filling and not.
void HostWindow::pressZoomKey(const QKeyEvent& press, ZoomStep step) {
  const bool isRepeat = repeats_.isRepeat(scanCode(press), press.timestamp(), origin(press));
  repeats_.dropRepeats(scanCode(press)); // auto-repeat continues when Control is released first
  if (step != ZoomStep::fill || !isRepeat) takeZoomStep(step);
}

void HostWindow::takeZoomStep(ZoomStep step) {
  zoom_.take(step, current_->view().fillFactor());
  for (auto* const page : pages_)
    page->view().setZoom(zoom_);
}

void HostWindow::followScreen() {
  disconnect(screenChanges_);
  screenChanges_ = connect(screen(), &QScreen::availableGeometryChanged, this, [this] { fillScreenSoon(); });
}

/// A window manager gets time to maximize the window again. Where there is none, the window resizes itself.
void HostWindow::fillScreenSoon() {
  constexpr std::chrono::milliseconds patience{500};
  QTimer::singleShot(patience, this, [this, before = geometry()] {
    if (geometry() == before && !isSizedByCompositor()) setGeometry(screen()->availableGeometry());
  });
}

/// Once, after the first picture: loading and sending the icon takes longer than showing the home screen. Its
/// format is given because Qt 6.4 otherwise loads all image plugins to detect it.
void HostWindow::finishStart() {
  if (!windowIcon().isNull()) return;
  QTimer::singleShot(0, this, [this] {
    setWindowIcon(QPixmap(QStringLiteral(":/chiffrolo.png"), "PNG"));
#ifdef __GLIBC__
    malloc_trim(0); // returns start-up memory to the system, most of it from the search for faces
#endif
  });
}

} // namespace chiffrolo::qt
