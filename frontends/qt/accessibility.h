// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QTimer>

namespace chiffrolo::qt {

class HostWindow;

/// Puts the texts on the surfaces into the accessibility tree: each surface gets one child per text. Call it
/// once, before the first window is created.
void makeSurfacesReadable();

/// Updates the accessibility tree and announces what has changed, while a screen reader is running.
class Announcer final : private QAccessible::ActivationObserver {
public:
  /// `host` outlives it.
  explicit Announcer(const HostWindow& host);
  Announcer(const Announcer&) = delete;
  Announcer& operator=(const Announcer&) = delete;
  ~Announcer() override;

  /// Updates when the event loop is idle: repainting comes first.
  void updateSoon();

private:
  void accessibilityActiveChanged(bool active) override { isActive_ = active; }
  void update() const;

  const HostWindow& host_;
  bool isActive_; // whether a screen reader is running
  QTimer timer_;
};

} // namespace chiffrolo::qt
