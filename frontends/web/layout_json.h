// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <string>

namespace chiffrolo::web {

/// A layout as the page reads it: the members of `ScreenLayout` and `ControlLayout` by their names,
/// enumerators by name, colours as 0xRRGGBB.
std::string layoutJson(const ScreenLayout& layout);

} // namespace chiffrolo::web
