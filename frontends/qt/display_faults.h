// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

#include <memory>

namespace chiffrolo::qt {

/// Connects to the display. If there is none, or if it is lost later, the process ends with one line on
/// standard error and status 1; on any other fatal message of Qt, with that message and status 1. `argc`
/// outlives the application.
std::unique_ptr<QApplication> openDisplay(int& argc, char** argv);

/// Disconnects from the display; all windows must be destroyed before. Where that may deadlock, the process
/// ends at once with `status`.
void closeDisplay(std::unique_ptr<QApplication> application, int status);

} // namespace chiffrolo::qt
