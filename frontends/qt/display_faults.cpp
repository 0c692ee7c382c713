// SPDX-License-Identifier: MIT
#include "qt/display_faults.h"

#include <QByteArray>
#include <QString>

#include <cstdlib>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace chiffrolo::qt {

namespace {

constexpr std::string_view noDisplay =
    "Chiffrolo : aucun écran utilisable, le programme ne peut pas démarrer.\n";
constexpr std::string_view displayLost = "Chiffrolo : l’écran a disparu, le programme s’arrête.\n";

/// Standard error as it was when the program started.
int originalStandardError() {
  static const int descriptor = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  return descriptor;
}

void print(int descriptor, std::string_view line) {
  [[maybe_unused]] const auto written = write(descriptor, line.data(), line.size());
}

[[noreturn]] void giveUp(std::string_view text) {
  print(originalStandardError(), text);
  std::_Exit(EXIT_FAILURE);
}

/// Qt 6.4: when the display is lost, the xcb and Wayland plugins print one of these messages and call `exit`
/// while all windows are still open.
bool reportsLostDisplay(const QString& message) {
  return message.startsWith(QLatin1StringView{"The X11 connection broke"}) ||
         message.startsWith(QLatin1StringView{"The Wayland connection"});
}

/// Qt 6.4: the xcb and Wayland plugins print one of these messages if they cannot open the display. If no
/// other plugin can either, QApplication prints a fatal message.
bool reportsNoDisplay(const QString& message) {
  return message.startsWith(QLatin1StringView{"could not connect to display"}) ||
         message.startsWith(QLatin1StringView{"Failed to create wl_display"});
}

bool wantsMessages() { return qEnvironmentVariableIntValue("QT_DEBUG_PLUGINS") != 0; }

/// What Qt has reported while it opens the display. It is printed only if that fails for another reason than
/// the display.
struct Opening {
  bool displayFailed{};
  std::string messages;
};

/// Qt may report from several threads at once.
std::mutex& turn() {
  static std::mutex one;
  return one;
}

/// Nothing once the display is open.
std::optional<Opening>& opening() {
  static std::optional<Opening> present;
  return present;
}

void setOpening(std::optional<Opening> present) {
  const std::lock_guard hold{turn()};
  opening() = std::move(present);
}

void handleWhileOpening(QtMsgType type, const QString& message, const std::string& line) {
  auto& [displayFailed, messages] = *opening();
  displayFailed = displayFailed || reportsNoDisplay(message);
  if (wantsMessages())
    print(originalStandardError(), line);
  else
    messages += line;
  if (type == QtFatalMsg) giveUp(displayFailed ? noDisplay : messages);
}

/// Wayland: several threads may detect the loss of the display at once. The first one prints the line; the
/// others wait for the end.
void onMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  const std::lock_guard hold{turn()};
  if (reportsLostDisplay(message)) giveUp(displayLost);
  const std::string line = (qFormatLogMessage(type, context, message) + u'\n').toStdString();
  if (opening()) return handleWhileOpening(type, message, line);
  if (type == QtFatalMsg) giveUp(line);
  print(STDERR_FILENO, line);
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
  setOpening(Opening{});
  qInstallMessageHandler(onMessage);
  auto application = std::make_unique<QApplication>(argc, argv);
  setOpening(std::nullopt);
  return application;
}

/// Qt 6.4 on Wayland: the destructor of QApplication may deadlock with Qt's event thread, and the process
/// would stay without a window.
void closeDisplay(std::unique_ptr<QApplication> application, int status) {
  if (QApplication::platformName().startsWith(QLatin1StringView{"wayland"})) std::_Exit(status);
  application.reset();
}

} // namespace chiffrolo::qt
