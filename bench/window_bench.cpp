// SPDX-License-Identifier: MIT

/// Measures the program in a real window beside a bare Qt window, in turn, on the display that DISPLAY names,
/// which should have nothing else on it: start to first picture, and key press to changed pixels. Prints the
/// medians and their ratio.
///
/// Usage: window_bench PROGRAM BARE_PROGRAM

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int starts = 21;
constexpr int keys = 101; // over in less than the thirty seconds that an answer may take
constexpr std::chrono::seconds patience{10};

struct Area {
  int x, y;
  unsigned width, height;
};

// In pixels. The first one lies on the home screen's title, the other one where answers are echoed.
constexpr Area titleArea{440, 30, 1, 1};
constexpr Area answerArea{240, 120, 180, 70};
constexpr Area additionsButton{556, 196, 1, 1};

[[noreturn]] void fail(const char* message) {
  std::fprintf(stderr, "window_bench: %s\n", message);
  std::exit(EXIT_FAILURE);
}

/// The display as one who sits before it sees and uses it.
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

  void click(Area area) const {
    XTestFakeMotionEvent(display_.get(), -1, area.x, area.y, CurrentTime);
    XTestFakeButtonEvent(display_.get(), 1, True, CurrentTime);
    XTestFakeButtonEvent(display_.get(), 1, False, CurrentTime);
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

/// A program that runs as long as this object.
class Running {
public:
  explicit Running(const std::string& program) : process_(fork()) {
    if (process_ != 0) return;
    execl(program.c_str(), program.c_str(), nullptr);
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

Milliseconds timeStart(const Seat& seat, const std::string& program) {
  const std::string empty = seat.pixels(titleArea);
  const auto since = Clock::now();
  const Running running(program);
  return seat.untilChanged(titleArea, empty, since, std::chrono::milliseconds(2));
}

Milliseconds timeKey(const Seat& seat, KeySym symbol) {
  const std::string before = seat.pixels(answerArea);
  const auto since = Clock::now();
  seat.press(symbol);
  return seat.untilChanged(answerArea, before, since, std::chrono::microseconds(20));
}

double median(std::vector<Milliseconds> times) {
  std::ranges::nth_element(times, times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2));
  return times[times.size() / 2].count();
}

void report(const char* what, const std::vector<Milliseconds>& program,
            const std::vector<Milliseconds>& bare) {
  std::printf("%-32s %8.2f ms %8.2f ms %6.2f\n", what, median(program), median(bare),
              median(program) / median(bare));
}

void benchStart(const Seat& seat, const std::string& program, const std::string& bare) {
  std::vector<Milliseconds> programTimes, bareTimes;
  for (int start = 0; start < starts; ++start) {
    programTimes.push_back(timeStart(seat, program));
    rest();
    bareTimes.push_back(timeStart(seat, bare));
    rest();
  }
  report("start to first picture", programTimes, bareTimes);
}

std::vector<Milliseconds> timeKeys(const Seat& seat) {
  std::vector<Milliseconds> times;
  for (int key = 0; key < keys; ++key) {
    times.push_back(timeKey(seat, XK_8));
    rest();
    seat.press(XK_BackSpace);
    rest();
  }
  return times;
}

void benchKeys(const Seat& seat, const std::string& program, const std::string& bare) {
  const auto timesOf = [&](const std::string& each, bool opensAdditions) {
    const Running running(each);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    if (opensAdditions) seat.click(additionsButton);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    return timeKeys(seat);
  };
  report("key press to changed pixels", timesOf(program, true), timesOf(bare, false));
}

} // namespace

int main(int argc, char* argv[]) {
  if (argc != 3) fail("usage: window_bench PROGRAM BARE_PROGRAM");
  const Seat seat;
  std::printf("%-32s %11s %11s %6s\n", "median of", "Chiffrolo", "bare Qt", "ratio");
  benchStart(seat, argv[1], argv[2]);
  benchKeys(seat, argv[1], argv[2]);
}
