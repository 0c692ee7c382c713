// SPDX-License-Identifier: MIT
#pragma once

#include "shell/layouts.h"
#include "shell/screen.h"

namespace chiffrolo {

/// The goodbye screen: only its arrow ends the program, no key does.
class AurevoirScreen final : public Screen {
public:
  explicit AurevoirScreen(Program& program) : Screen(program, layoutOf(ScreenName::Aurevoir)) {}

private:
  void flèche_Click() { End(); }

  Image flèche{*this, "flèche", [this] { flèche_Click(); }};
};

} // namespace chiffrolo
