// SPDX-License-Identifier: MIT
#pragma once

#include "screen/screen.h"

namespace chiffrolo {

/// The congratulations for a passed level. It stays loaded when the home screen is shown.
class FinScreen final : public Screen {
public:
  explicit FinScreen(ScreenHost& host);

  void Form_Load() override;
  void Form_KeyDown(int code) override;
  void Form_KeyPress(char32_t typed) override;

private:
  void flèche_Click();

  Image flèche{*this, "flèche", [this] { flèche_Click(); }};
};

} // namespace chiffrolo
