// SPDX-License-Identifier: MIT
#include "qt/display_faults.h"

#include <QByteArray>
#include <QString>

#include <cstdlib>
#include <mutex>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

namespace chiffrolo::qt {

namespace {

constexpr std::string_view noDisplay =
    "Chiffrolo : aucun écran utilisable, le programme ne peut pas démarrer.\n";
constexpr std::string_view displayLost = "Chiffrolo : l'écran a disparu, le programme s'arrête.\n";

/// Standard error as it was when the program started.
int originalStandardError() {
  static const int descriptor = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  return descriptor;
}

void print(int descriptor, std::string_view line) {
  [[maybe_unused]] const auto written = write(descriptor, line.data(), line.size());
}

/// Wayland: several threads may detect the loss at once. The first one prints the line; the others wait for
/// the end.
[[noreturn]] void giveUp(std::string_view line) {
  static std::mutex turn;
  turn.lock();
  print(originalStandardError(), line);
  std::_Exit(EXIT_FAILURE);
}

/// Qt 6.4: when the display is lost, the xcb and Wayland plugins print one of these messages and call `exit`
/// while all windows are still open.
bool reportsLostDisplay(const QString& message) {
  return message.startsWith(QLatin1StringView{"The X11 connection broke"}) ||
         message.startsWith(QLatin1StringView{"The Wayland connection"});
}

/// Qt 6.4, all platforms: without a display, QApplication prints which plugins it tried, and aborts.
void onMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (reportsLostDisplay(message)) giveUp(displayLost);
  if (type == QtFatalMsg) giveUp(noDisplay);
  print(STDERR_FILENO, (qFormatLogMessage(type, context, message) + u'\n').toStdString());
}

/// Linux: libX11 and libxcb write to standard error themselves when the X server refuses the connection.
class SilentStandardError {
public:
  SilentStandardError() {
    originalStandardError();
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0) return;
    dup2(nowhere, STDERR_FILENO);
    ::close(nowhere);
  }
  SilentStandardError(const SilentStandardError&) = delete;
  SilentStandardError& operator=(const SilentStandardError&) = delete;
  ~SilentStandardError() { dup2(originalStandardError(), STDERR_FILENO); }
};

} // namespace

std::unique_ptr<QApplication> openDisplay(int& argc, char** argv) {
  const SilentStandardError silence;
  qInstallMessageHandler(onMessage);
  return std::make_unique<QApplication>(argc, argv);
}

/// Qt 6.4 on Wayland: the destructor of QApplication may deadlock with Qt's event thread, and the process
/// would stay without a window.
void closeDisplay(std::unique_ptr<QApplication> application, int status) {
  if (QApplication::platformName().startsWith(QLatin1StringView{"wayland"})) std::_Exit(status);
  application.reset();
}

} // namespace chiffrolo::qt
