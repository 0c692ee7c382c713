// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <optional>
#include <string_view>

namespace chiffrolo {

/// The layout of a screen; it lives as long as the program.
const ScreenLayout& layoutOf(ScreenName screen);

std::string_view nameOf(ScreenName screen);

/// The screen with exactly that name, if there is one.
std::optional<ScreenName> screenNamed(std::string_view name);

} // namespace chiffrolo
