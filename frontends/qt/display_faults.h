// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

#include <memory>

namespace chiffrolo::qt {

/// Connects to the display. If there is none, or it goes away later, the process ends with one line on
/// standard error and status 1. `argc` outlives the application.
std::unique_ptr<QApplication> openDisplay(int& argc, char** argv);

/// Lets go of the display, once all windows are destroyed. Where that might take for ever, the process ends
/// here and now, with `status`.
void closeDisplay(std::unique_ptr<QApplication> application, int status);

} // namespace chiffrolo::qt
