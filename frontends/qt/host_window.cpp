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

#include <malloc.h>

namespace chiffrolo::qt {

namespace {

bool movesFocus(const QKeyEvent& press) {
  const bool isTab = press.key() == Qt::Key_Tab || press.key() == Qt::Key_Backtab;
  return isTab && !(press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

/// Keys that were not pressed on a keyboard have no scan code.
KeyRepeatFilter::ScanCode scanCode(const QKeyEvent& event) {
  const auto code = event.nativeScanCode();
  return code != 0 ? code : static_cast<KeyRepeatFilter::ScanCode>(event.key());
}

KeyRepeatFilter::Origin origin(const QKeyEvent& event) {
  return event.isAutoRepeat() ? KeyRepeatFilter::Origin::autoRepeat : KeyRepeatFilter::Origin::hand;
}

/// There, a window that sizes itself breaks the protocol.
bool isSizedByCompositor() {
  return QGuiApplication::platformName().startsWith(QLatin1StringView("wayland"));
}

} // namespace

HostWindow::HostWindow() : QWidget(nullptr, Qt::FramelessWindowHint) {
  setWindowTitle(QStringLiteral("Chiffrolo"));
  setAttribute(Qt::WA_InputMethodEnabled, false);
  // Otherwise the first button shows only after a Tab that it has the focus.
  setAttribute(Qt::WA_KeyboardFocusChange);
  // A display without a window manager maximizes nothing.
  setGeometry(screen()->availableGeometry());
}

void HostWindow::add(Page& page) {
  pages_.push_back(&page);
  page.view().setZoom(zoom_.factor());
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
  case QEvent::KeyPress: return pressKey(static_cast<const QKeyEvent&>(*event)) == KeyFate::usedUp;
  case QEvent::KeyRelease: return releaseKey(static_cast<const QKeyEvent&>(*event)) == KeyFate::usedUp;
  case QEvent::Expose: showIcon(); break;
  default: break;
  }
  return QWidget::eventFilter(watched, event);
}

HostWindow::KeyFate HostWindow::pressKey(const QKeyEvent& press) {
  using enum KeyFate;
  if (current_ == nullptr) return usedUp;
  if (const auto step = zoomStep(press)) {
    repeats_.dropRepeats(scanCode(press)); // they go on when the Control key is let go first
    takeZoomStep(*step);
    return usedUp;
  }
  const auto verdict = repeats_.press(scanCode(press), press.timestamp(), origin(press), current_->name());
  if (verdict == KeyRepeatFilter::Verdict::dropped) return usedUp;
  const bool hasButtons = current_->hasButtons();
  if (hasButtons && movesFocus(press)) return leftToFocus;
  const auto stroke = translateKey(press);
  if (!stroke || current_->pressKey(*stroke) == Events::KeyUse::screenChanged) return usedUp;
  return hasButtons ? leftToFocus : usedUp;
}

HostWindow::KeyFate HostWindow::releaseKey(const QKeyEvent& release) {
  repeats_.release(scanCode(release), release.timestamp(), origin(release));
  return zoomStep(release) ? KeyFate::usedUp : KeyFate::leftToFocus;
}

void HostWindow::takeZoomStep(ZoomStep step) {
  zoom_.take(step);
  for (auto* const page : pages_)
    page->view().setZoom(zoom_.factor());
}

void HostWindow::followScreen() {
  disconnect(screenChanges_);
  screenChanges_ = connect(screen(), &QScreen::availableGeometryChanged, this, [this] { fillScreenSoon(); });
}

/// Whatever keeps the window maximized gets time to do so again; where there is nothing of the kind, the
/// window follows the screen by itself.
void HostWindow::fillScreenSoon() {
  constexpr std::chrono::milliseconds patience{500};
  QTimer::singleShot(patience, this, [this, before = geometry()] {
    if (geometry() == before && !isSizedByCompositor()) setGeometry(screen()->availableGeometry());
  });
}

/// Once, and only after the first picture: the icon takes longer to load and to send than the home screen.
/// Were its format not told, Qt would load all its plugins for pictures to find it out.
void HostWindow::showIcon() {
  if (!windowIcon().isNull()) return;
  QTimer::singleShot(0, this, [this] {
    setWindowIcon(QPixmap(QStringLiteral(":/chiffrolo.png"), "PNG"));
    malloc_trim(0); // Linux: what only the start needed, of which the search for faces had most
  });
}

} // namespace chiffrolo::qt
