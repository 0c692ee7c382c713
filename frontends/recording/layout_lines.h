// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <string>
#include <vector>

namespace chiffrolo {

/// The layout of a screen as text: one line for the screen, then one for each control. `screen` is the name
/// of the screen in each line.
std::vector<std::string> layoutLines(std::string_view screen, const ScreenLayout& layout);

} // namespace chiffrolo
