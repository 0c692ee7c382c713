// SPDX-License-Identifier: MIT
#pragma once

/// The whole boundary between the program and whatever shows it: a front end implements `Platform` and
/// `Window`, and tells `Events` what the learner does and which timers are due.
///
/// Everything runs on one thread. The program never blocks and never calls back later by itself: it only
/// answers events. No function of this header throws, in either direction. Texts are UTF-8; views and
/// references handed over are valid during the call only, unless a comment says otherwise.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace chiffrolo {

// ---- Units and values --------------------------------------------------------------------------------

using Points = float; ///< 1/72 inch; at 96 dots per inch, one point is 4/3 of a pixel
using Twips = int;    ///< 1/20 point, the unit of the layouts
constexpr Twips twipsPerPoint = 20;

/// A place in the inner area of a screen, from its top left corner, y downward.
struct Point {
  Points x{};
  Points y{};
};

struct Colour {
  std::uint8_t red{};
  std::uint8_t green{};
  std::uint8_t blue{};
  bool operator==(const Colour&) const = default;
};

enum class Weight : std::uint8_t { regular, bold };
enum class Slant : std::uint8_t { upright, italic };

/// A face that is not installed is replaced by one of like widths; "Times" is Times New Roman, and the case
/// of letters does not matter.
struct Font {
  std::string_view face;
  Points size{};
  Weight weight{Weight::regular};
  Slant slant{Slant::upright};
};

// ---- Layouts: what a screen looks like before any of its code runs -----------------------------------

enum class ScreenName : std::uint8_t {
  accueil,
  addition,
  multiplication,
  division,
  record,
  FIN,
  FIN2,
  Aurevoir
};
constexpr std::size_t screenCount = 8;

/// `frameless`: the inner area is the whole work area. `toolWindow`: a thin frame with a small title bar that
/// holds the caption and a close box; the inner area lies within it.
enum class Frame : std::uint8_t { frameless, toolWindow };

enum class ControlKind : std::uint8_t { label, button, image, line, shape, pictureBox, timer };
enum class Alignment : std::uint8_t { left, centred };
enum class Border : std::uint8_t { none, thin };
enum class Visibility : std::uint8_t { hidden, visible };
enum class Switch : std::uint8_t { off, on };
enum class Picture : std::uint8_t { none, arrow, stop, farewell };

/// From the top left corner of the inner area; positions stay as they are in a larger window.
struct TwipsRectangle {
  Twips left{};
  Twips top{};
  Twips width{};
  Twips height{};
};

/// The least inner area within which everything that any screen shows lies. A front end with less room shows
/// the whole screen smaller.
constexpr TwipsRectangle leastInnerArea{0, 0, 13440, 8460};

/// One control. Which members count depends on its kind; the others keep their defaults.
struct ControlLayout {
  ControlKind kind{};
  std::string_view name;
  TwipsRectangle place{};     ///< of all but timers; a line runs from its top left to its bottom right
  std::string_view caption{}; ///< of labels, wrapped at words from the top of `place`, and of buttons
  std::string_view tooltip{}; ///< of buttons; empty for none
  Font font{};                ///< of labels and buttons
  Colour foreground{};        ///< text of a label, outline of a shape, colour of a line
  Colour background{};        ///< fills the whole `place` of a label, shape or picture box
  Alignment alignment{Alignment::left}; ///< of labels
  Border border{Border::none};          ///< of labels
  std::string_view accessibleName{};    ///< of images and picture boxes: what a screen reader calls them
  Picture picture{Picture::none}; ///< of images (exactly as large as `place`) and picture boxes (top left)
  Visibility visible{Visibility::visible}; ///< of images; a hidden one cannot be clicked
  Switch enabled{Switch::off};             ///< of timers: on from the creation of the screen
  std::chrono::milliseconds interval{};    ///< of timers
};

/// Layouts live as long as the program. Later controls lie above earlier ones, all of them above the drawing
/// surface; the order of the buttons is their tab order, and the first one starts with the focus.
struct ScreenLayout {
  ScreenName name{};
  std::string_view caption;
  std::string_view accessibleName; ///< what a screen reader calls the screen
  Frame frame{};
  Font font{};
  Colour background{};
  std::span<const ControlLayout> controls;
};

/// A control is named across the boundary by the index of its row in the layout of its screen.
using ControlIndex = std::size_t;

// ---- What the platform provides ----------------------------------------------------------------------

/// The window of one screen: its drawing surface, its controls and its timers. The program owns it and may
/// destroy it at any time, inside one of its own events too; from then on it must cause no event, and nothing
/// of it is seen. All functions may be called from inside any event, and while the window is not yet visible.
///
/// What is drawn is retained: the platform keeps the picture and repaints from it, through being covered and
/// through resizes, and never asks for it again. What falls outside the inner area is cut off. `thickness` is
/// in pixels at 96 dots per inch (1 or more), centred on the geometric line. Corners come in any order.
class Window {
public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  /// Makes the window visible in front of all others; from now on it gets the keys.
  virtual void activate() noexcept = 0;

  /// The width of the inner area, at least that of `leastInnerArea`, known before the window is first shown.
  virtual Points width() const noexcept = 0;

  /// The distance that drawing `text` moves to the right, its blanks included.
  virtual Points textWidth(std::string_view text, const Font& font) const noexcept = 0;
  /// The height of one line of text, from the top of one to the top of the next.
  virtual Points lineHeight(const Font& font) const noexcept = 0;
  virtual Points averageCharacterWidth(const Font& font) const noexcept = 0;

  /// Draws one line of text on a transparent background; `topLeft` is where its line box begins.
  virtual void drawText(Point topLeft, std::string_view text, const Font& font, Colour colour) noexcept = 0;
  virtual void drawSegment(Point from, Point to, int thickness, Colour colour) noexcept = 0;
  /// Without `fill` the inside stays as it is.
  virtual void drawBox(Point corner, Point opposite, int thickness, Colour outline,
                       std::optional<Colour> fill) noexcept = 0;
  virtual void drawEllipse(Point centre, Points radiusX, Points radiusY, int thickness, Colour outline,
                           std::optional<Colour> fill) noexcept = 0;
  /// Fills the whole surface, controls not affected.
  virtual void clear(Colour background) noexcept = 0;

  /// `control` is an image, and the value a new one.
  virtual void setVisible(ControlIndex control, Visibility visible) noexcept = 0;
  /// `control` is a label, and the value a new one.
  virtual void setCaption(ControlIndex control, std::string_view caption) noexcept = 0;

  /// Ticks every `interval` (1 ms or more) from now on, until stopped. On a running timer: a fresh countdown.
  /// Each tick falls due one interval after the last one was due, however late it was delivered. Timers due
  /// at the same instant tick in the order in which they were last started from rest, and one that is stopped
  /// before its turn does not tick. Timers tick whether or not their window is in front.
  virtual void startTimer(ControlIndex timer, std::chrono::milliseconds interval) noexcept = 0;
  /// On a timer at rest: nothing.
  virtual void stopTimer(ControlIndex timer) noexcept = 0;
};

class Events;

class Platform {
public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform() = default;

  /// A window with its controls as designed, not yet visible, its timers running that are on by design.
  /// `layout` and `events` outlive it. Never null.
  virtual std::unique_ptr<Window> createWindow(const ScreenLayout& layout, Events& events) noexcept = 0;

  /// Only stirs the random numbers: any unit, the finer the better.
  virtual std::uint64_t timeOfDay() const noexcept = 0;

  /// Ends the program: closes all windows and leaves the event loop. The windows are destroyed, and the event
  /// that led here returns, before the program itself goes.
  virtual void quit() noexcept = 0;
};

// ---- What the platform tells -------------------------------------------------------------------------

/// The codes of the keys that have a meaning of their own.
namespace keyCode {
constexpr int other = 0;
constexpr int enter = 13;
constexpr int right = 39;
} // namespace keyCode

/// The characters that keys without a visible one type.
namespace character {
constexpr char32_t backspace = 8;
constexpr char32_t enter = 13;
constexpr char32_t escape = 27;
} // namespace character

/// What the learner does and what time brings. Each call runs to its end before the next begins; none may be
/// made from inside another, nor from inside a function of `Platform` or `Window`.
/// A text on the surface of a screen, in words for those who do not see it: "47 plus 35 égale ?".
struct SpokenText {
  std::string words;
  Point topLeft;
  Point bottomRight;
};

class Events {
public:
  Events() = default;
  Events(const Events&) = delete;
  Events& operator=(const Events&) = delete;
  virtual ~Events() = default;

  enum class KeyUse : std::uint8_t { screenStayed, screenChanged };

  /// A key went down on the active screen; `character` is what it types, if anything, as one code point.
  /// Enter, Escape and Backspace have characters; arrows, Tab, Delete and the like have none.
  virtual KeyUse key(int code, std::optional<char32_t> character) noexcept = 0;
  /// A button or image of the active screen was clicked.
  virtual void click(ControlIndex control) noexcept = 0;
  /// A timer is due, on whichever screen.
  virtual void tick(ScreenName screen, ControlIndex timer) noexcept = 0;
  /// The learner chose a screen in the window system; nothing happens unless it is loaded and not the active
  /// one.
  virtual void front(ScreenName screen) noexcept = 0;
  /// The learner closed the active screen.
  virtual void close() noexcept = 0;

  /// Not events, but what a screen reader asks after one. They cost nothing to those who do not ask.
  /// What can be read on the surface of a screen now, in reading order; its labels are not on it.
  virtual std::vector<SpokenText> spokenTexts(ScreenName screen) const noexcept = 0;
  /// What to say of all that has happened on the active screen since the last call; empty for nothing.
  virtual std::string takeNews() noexcept = 0;
};

} // namespace chiffrolo
