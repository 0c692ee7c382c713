// SPDX-License-Identifier: MIT
#pragma once

#include "qt/host_window.h"

#include <QAccessible>
#include <QTimer>

namespace chiffrolo::qt {

/// Lets screen readers see what is drawn: each surface is an element of the accessibility tree with a child
/// for each text on it. Once, before any window.
void makeSurfacesReadable();

/// Passes everything on to the program, and tells screen readers what has come of it. While none listens,
/// that takes no time.
class SpeakingEvents final : public Events, private QAccessible::ActivationObserver {
public:
  /// Both outlive it.
  SpeakingEvents(Events& program, HostWindow& host);
  ~SpeakingEvents() override;

  KeyUse key(int code, std::optional<char32_t> character) noexcept override;
  void click(ControlIndex control) noexcept override;
  void tick(ScreenName screen, ControlIndex timer) noexcept override;
  void front(ScreenName screen) noexcept override;
  void close() noexcept override;
  std::vector<SpokenText> spokenTexts(ScreenName screen) const noexcept override;
  std::string takeAnnouncement() noexcept override { return program_.takeAnnouncement(); }

private:
  void accessibilityActiveChanged(bool active) override { isHeard_ = active; }
  void tellSoon();
  void tell();

  Events& program_;
  HostWindow& host_;
  bool isHeard_;
  QTimer telling_;
};

} // namespace chiffrolo::qt
