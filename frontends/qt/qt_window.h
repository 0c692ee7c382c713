// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "qt/fonts.h"
#include "qt/host_window.h"
#include "qt/ticker.h"

namespace chiffrolo::qt {

/// The program's handle of a page. It may be destroyed while the page still handles a Qt event.
class QtWindow final : public Window, private TickReceiver {
public:
  /// All of them outlive the window.
  QtWindow(const ScreenLayout& layout, Events& events, HostWindow& host, FontCache& fonts, Ticker& ticker);
  ~QtWindow() override;

  void activate() noexcept override;
  Points width() const noexcept override;
  Points textWidth(std::string_view text, const Font& font) const noexcept override;
  Points lineHeight(const Font& font) const noexcept override;
  Points averageCharacterWidth(const Font& font) const noexcept override;
  void drawText(Point topLeft, std::string_view text, const Font& font, Colour colour) noexcept override;
  void drawSegment(Point from, Point to, int thickness, Colour colour) noexcept override;
  void drawBox(Point corner, Point opposite, int thickness, Colour outline,
               std::optional<Colour> fill) noexcept override;
  void drawEllipse(Point centre, Points radiusX, Points radiusY, int thickness, Colour outline,
                   std::optional<Colour> fill) noexcept override;
  void clear(Colour background) noexcept override;
  void setVisible(ControlIndex control, Visibility visible) noexcept override;
  void setCaption(ControlIndex control, std::string_view caption) noexcept override;
  void startTimer(ControlIndex timer, std::chrono::milliseconds interval) noexcept override;
  void stopTimer(ControlIndex timer) noexcept override;

private:
  void tick(ControlIndex timer) override;
  void startTimersOnByDesign();

  const ScreenLayout& layout_;
  HostWindow& host_;
  FontCache& fonts_;
  Ticker& ticker_;
  Page& page_; // owned by the host
};

} // namespace chiffrolo::qt
