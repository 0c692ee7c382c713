// SPDX-License-Identifier: MIT

/// Baseline for the X server without a toolkit: a window as large as the screen that shows only the last
/// digit typed.

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <array>
#include <cstdlib>
#include <memory>

namespace {

// In pixels: the area that is cleared before a digit is drawn, and the left end and the baseline of the
// digit.
constexpr int left = 250, top = 130;
constexpr unsigned side = 60;
constexpr int digitLeft = 277, digitBaseline = 165;

class BareWindow {
public:
  explicit BareWindow(Display* display)
      : display_(display),
        window_(XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0,
                                    static_cast<unsigned>(DisplayWidth(display, DefaultScreen(display))),
                                    static_cast<unsigned>(DisplayHeight(display, DefaultScreen(display))), 0,
                                    0, WhitePixel(display, DefaultScreen(display)))) {
    XSelectInput(display_, window_, ExposureMask | KeyPressMask);
    XMapWindow(display_, window_);
  }

  void run() {
    for (XEvent event;;) {
      XNextEvent(display_, &event);
      if (event.type == Expose) XSetInputFocus(display_, window_, RevertToParent, CurrentTime);
      if (event.type == KeyPress) press(event.xkey);
    }
  }

private:
  void press(XKeyEvent& key) {
    std::array<char, 8> text{};
    KeySym symbol = NoSymbol;
    const int length = XLookupString(&key, text.data(), static_cast<int>(text.size()), &symbol, nullptr);
    XClearArea(display_, window_, left, top, side, side, False);
    if (symbol != XK_BackSpace)
      XDrawString(display_, window_, DefaultGC(display_, DefaultScreen(display_)), digitLeft, digitBaseline,
                  text.data(), length);
  }

  Display* display_;
  ::Window window_;
};

} // namespace

int main() {
  const std::unique_ptr<Display, int (*)(Display*)> display(XOpenDisplay(nullptr), XCloseDisplay);
  if (display == nullptr) return EXIT_FAILURE;
  BareWindow(display.get()).run();
}
