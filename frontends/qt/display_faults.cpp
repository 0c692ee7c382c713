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
int terminal() {
  static const int descriptor = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  return descriptor;
}

void print(int descriptor, std::string_view line) {
  [[maybe_unused]] const auto written = write(descriptor, line.data(), line.size());
}

/// Linux: on Wayland several threads may notice it at once. The first one tells, and lets no other go on.
[[noreturn]] void giveUp(std::string_view line) {
  static std::mutex turn;
  turn.lock();
  print(terminal(), line);
  std::_Exit(EXIT_FAILURE);
}

/// Linux: the plugins for X11 and Wayland say so and then call `exit`, with all windows still open.
bool tellsLostDisplay(const QString& message) {
  return message.startsWith(QLatin1StringView{"The X11 connection broke"}) ||
         message.startsWith(QLatin1StringView{"The Wayland connection"});
}

/// All platforms: without a display Qt explains at length which plugins it tried, and aborts.
void onMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (tellsLostDisplay(message)) giveUp(displayLost);
  if (type == QtFatalMsg) giveUp(noDisplay);
  print(STDERR_FILENO, (qFormatLogMessage(type, context, message) + u'\n').toStdString());
}

/// Linux: the X11 libraries write to standard error by themselves when the display refuses the connection.
class SilentStandardError {
public:
  SilentStandardError() {
    terminal();
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0) return;
    dup2(nowhere, STDERR_FILENO);
    ::close(nowhere);
  }
  SilentStandardError(const SilentStandardError&) = delete;
  SilentStandardError& operator=(const SilentStandardError&) = delete;
  ~SilentStandardError() { dup2(terminal(), STDERR_FILENO); }
};

} // namespace

std::unique_ptr<QApplication> openDisplay(int& argc, char** argv) {
  const SilentStandardError silence;
  qInstallMessageHandler(onMessage);
  return std::make_unique<QApplication>(argc, argv);
}

/// Wayland: Qt 6.4 may wait for ever for its own thread, which waits for it, and the process would stay
/// behind.
void closeDisplay(std::unique_ptr<QApplication> application, int status) {
  if (QApplication::platformName().startsWith(QLatin1StringView{"wayland"})) std::_Exit(status);
  application.reset();
}

} // namespace chiffrolo::qt
