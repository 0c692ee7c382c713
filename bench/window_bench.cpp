// SPDX-License-Identifier: MIT

/// Times what one who sits before the display that DISPLAY names sees happen there, and prints each time in
/// milliseconds on a line of its own.
///
/// Usage: window_bench start PROGRAM...    from the start of each program to its first picture; in turn, and
///                                         each is ended before the next one
///        window_bench keys COUNT          from a key press to its digit, which the program that has the keys
///                                         shows

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

constexpr std::chrono::seconds patience{10};

struct Area {
  int x, y;
  unsigned width, height;
};

// In pixels. The first one lies on the home screen's title, the other one where answers are echoed.
constexpr Area titleArea{440, 30, 1, 1};
constexpr Area answerArea{240, 120, 180, 70};

[[noreturn]] void fail(const char* message) {
  std::fprintf(stderr, "window_bench: %s\n", message);
  std::exit(EXIT_FAILURE);
}

class Seat {
public:
  Seat() : display_(XOpenDisplay(nullptr), XCloseDisplay) {
    if (display_ == nullptr) fail("no display");
  }

  std::string pixels(Area area) const {
    const std::unique_ptr<XImage, int (*)(XImage*)> image(
        XGetImage(display_.get(), root(), area.x, area.y, area.width, area.height, AllPlanes, ZPixmap),
        [](XImage* pixels) { return XDestroyImage(pixels); });
    if (image == nullptr) fail("no picture of the display");
    return {image->data, static_cast<std::size_t>(image->bytes_per_line) * area.height};
  }

  void press(KeySym symbol) const {
    const auto code = XKeysymToKeycode(display_.get(), symbol);
    XTestFakeKeyEvent(display_.get(), code, True, CurrentTime);
    XTestFakeKeyEvent(display_.get(), code, False, CurrentTime);
    XFlush(display_.get());
  }

  /// How long it took from `since` until the pixels were no longer as they were. Looking keeps a core busy
  /// and the display server another one, so there is a `pause` between two looks.
  Milliseconds untilChanged(Area area, const std::string& before, Clock::time_point since,
                            std::chrono::microseconds pause) const {
    while (pixels(area) == before) {
      if (Clock::now() - since > patience) fail("nothing has changed on the display");
      std::this_thread::sleep_for(pause);
    }
    return Clock::now() - since;
  }

private:
  ::Window root() const { return DefaultRootWindow(display_.get()); }

  std::unique_ptr<Display, int (*)(Display*)> display_;
};

void rest() { std::this_thread::sleep_for(std::chrono::milliseconds(60)); }

void print(Milliseconds time) { std::printf("%.3f\n", time.count()); }

/// A program that runs as long as this object.
class Running {
public:
  explicit Running(const char* program) : process_(fork()) {
    if (process_ != 0) return;
    execl(program, program, nullptr);
    _exit(EXIT_FAILURE);
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }

private:
  pid_t process_;
};

Milliseconds timeStart(const Seat& seat, const char* program) {
  const std::string empty = seat.pixels(titleArea);
  const auto since = Clock::now();
  const Running running(program);
  return seat.untilChanged(titleArea, empty, since, std::chrono::milliseconds(1));
}

Milliseconds timeKey(const Seat& seat, KeySym symbol) {
  const std::string before = seat.pixels(answerArea);
  const auto since = Clock::now();
  seat.press(symbol);
  return seat.untilChanged(answerArea, before, since, std::chrono::microseconds(20));
}

void timeKeys(const Seat& seat, int count) {
  for (int key = 0; key < count; ++key) {
    print(timeKey(seat, XK_8));
    rest();
    seat.press(XK_BackSpace);
    rest();
  }
}

} // namespace

int main(int argc, char* argv[]) {
  const std::string_view what = argc > 2 ? argv[1] : "";
  const Seat seat;
  if (what == "keys") {
    timeKeys(seat, std::atoi(argv[2]));
  } else if (what == "start") {
    for (int program = 2; program < argc; ++program) {
      print(timeStart(seat, argv[program]));
      rest();
    }
  } else {
    fail("what is to be timed?");
  }
}
