// SPDX-License-Identifier: MIT
#pragma once

#include "program.h"

namespace chiffrolo {

/// The eight screens.
extern const ScreenTable allScreens;

} // namespace chiffrolo
