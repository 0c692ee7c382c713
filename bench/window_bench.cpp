// SPDX-License-Identifier: MIT

/// Measures times until the pixels of an X display change. Prints each time in milliseconds on its own line.
///
/// Usage: window_bench start PROGRAM...    from the start of each program to its first picture; ends each
///                                         program before it starts the next one
///        window_bench keys COUNT          from a key press to its digit in the program that has the focus

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::chrono::seconds timeout{10};

struct Area {
  int x, y;
  unsigned width, height;
};

// In pixels: a part of the title of the home screen, and the area where answers are shown.
constexpr Area titleArea{440, 30, 1, 1};
constexpr Area answerArea{240, 120, 180, 70};

[[noreturn]] void fail(const char* message) {
  std::fprintf(stderr, "window_bench: %s\n", message);
  std::exit(EXIT_FAILURE);
}

/// A connection to the X display of the variable DISPLAY.
class XConnection {
public:
  XConnection() : display_(XOpenDisplay(nullptr), XCloseDisplay) {
    if (display_ == nullptr) fail("cannot connect to the display");
  }

  std::string pixels(Area area) const {
    const std::unique_ptr<XImage, int (*)(XImage*)> image(
        XGetImage(display_.get(), root(), area.x, area.y, area.width, area.height, AllPlanes, ZPixmap),
        [](XImage* pixels) { return XDestroyImage(pixels); });
    if (image == nullptr) fail("cannot read the pixels of the display");
    return {image->data, static_cast<std::size_t>(image->bytes_per_line) * area.height};
  }

  void press(KeySym symbol) const {
    const auto code = XKeysymToKeycode(display_.get(), symbol);
    XTestFakeKeyEvent(display_.get(), code, True, CurrentTime);
    XTestFakeKeyEvent(display_.get(), code, False, CurrentTime);
    XFlush(display_.get());
  }

  /// Waits until the pixels differ from `before`. Returns the time since `since`. Sleeps for `pause` between
  /// two reads, because reading keeps this process and the X server busy.
  Milliseconds waitForChange(Area area, const std::string& before, Clock::time_point since,
                             std::chrono::microseconds pause) const {
    while (pixels(area) == before) {
      if (Clock::now() - since > timeout) fail("timeout: the pixels have not changed");
      std::this_thread::sleep_for(pause);
    }
    return Clock::now() - since;
  }

private:
  ::Window root() const { return DefaultRootWindow(display_.get()); }

  std::unique_ptr<Display, int (*)(Display*)> display_;
};

void waitBetweenEvents() { std::this_thread::sleep_for(std::chrono::milliseconds(60)); }

void print(Milliseconds time) { std::printf("%.3f\n", time.count()); }

/// Starts a program, and ends it when destroyed.
class RunningProgram {
public:
  explicit RunningProgram(const char* program) : process_(fork()) {
    if (process_ != 0) return;
    execl(program, program, nullptr);
    _exit(EXIT_FAILURE);
  }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;
  ~RunningProgram() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }

private:
  pid_t process_;
};

Milliseconds timeStart(const XConnection& connection, const char* program) {
  const std::string empty = connection.pixels(titleArea);
  const auto since = Clock::now();
  const RunningProgram running(program);
  return connection.waitForChange(titleArea, empty, since, std::chrono::milliseconds(1));
}

Milliseconds timeKey(const XConnection& connection, KeySym symbol) {
  const std::string before = connection.pixels(answerArea);
  const auto since = Clock::now();
  connection.press(symbol);
  return connection.waitForChange(answerArea, before, since, std::chrono::microseconds(20));
}

void timeKeys(const XConnection& connection, int count) {
  for (int key = 0; key < count; ++key) {
    print(timeKey(connection, XK_8));
    waitBetweenEvents();
    connection.press(XK_BackSpace);
    waitBetweenEvents();
  }
}

} // namespace

int main(int argc, char* argv[]) {
  const std::string_view command = argc > 2 ? argv[1] : "";
  const XConnection connection;
  if (command == "keys") {
    timeKeys(connection, std::atoi(argv[2]));
  } else if (command == "start") {
    for (int program = 2; program < argc; ++program) {
      print(timeStart(connection, argv[program]));
      waitBetweenEvents();
    }
  } else {
    fail("usage: window_bench start PROGRAM... | window_bench keys COUNT");
  }
}
