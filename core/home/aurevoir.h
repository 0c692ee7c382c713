// SPDX-License-Identifier: MIT
#pragma once

#include "screen/layouts.h"
#include "screen/screen.h"

namespace chiffrolo {

/// The goodbye screen. Its arrow ends the program; keys do nothing.
class AurevoirScreen final : public Screen {
public:
  explicit AurevoirScreen(ScreenHost& host) : Screen(host, layoutOf(ScreenName::Aurevoir)) {}

private:
  void flèche_Click() { End(); }

  Image flèche{*this, "flèche", [this] { flèche_Click(); }};
};

} // namespace chiffrolo
