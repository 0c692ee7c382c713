// SPDX-License-Identifier: MIT
#pragma once

/// The boundary between the program and its front ends. A front end implements `Platform` and `Window`, and
/// calls `Events` when the learner does something or a timer is due.
///
/// Everything runs on one thread. The program never blocks, and draws only while it handles an event. No
/// function of this header throws, in either direction. Texts are UTF-8. Views and references that are passed
/// are valid during the call only, unless a comment says otherwise.

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

using Points = float; ///< 1/72 inch; one point is 4/3 of a pixel, as a layout has 96 pixels per inch
using Twips = int;    ///< 1/20 point, the unit of the layouts
constexpr Twips twipsPerPoint = 20;

/// A position in the content area of a screen, from its top left corner, y downward.
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

/// The front end replaces a face that is not installed by one of similar widths. "Times" is Times New Roman.
/// Upper and lower case are equal in the name of a face.
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

/// `frameless`: the content area is the whole work area of the display. `toolWindow`: a thin frame and a
/// small title bar with the caption and a close box surround the content area.
enum class Frame : std::uint8_t { frameless, toolWindow };

enum class ControlKind : std::uint8_t { label, button, image, line, shape, pictureBox, timer };
enum class Alignment : std::uint8_t { left, centred };
enum class Border : std::uint8_t { none, thin };
enum class Visibility : std::uint8_t { hidden, visible };
enum class Switch : std::uint8_t { off, on };
enum class Typing : std::uint8_t { none, answer };
enum class Closing : std::uint8_t { showsHome, endsProgram, endsChallenge };
enum class Picture : std::uint8_t { none, arrow, stop, farewell };

/// From the top left corner of the content area. Controls keep their positions when the window is larger.
struct TwipsRectangle {
  Twips left{};
  Twips top{};
  Twips width{};
  Twips height{};
};

/// The smallest content area that holds everything a screen shows. A front end with less room scales the
/// whole screen down.
constexpr TwipsRectangle minimumContentArea{0, 0, 13440, 8460};

/// One control. The kind decides which members are used; the others keep their defaults.
struct ControlLayout {
  ControlKind kind{};
  std::string_view name;
  TwipsRectangle place{};     ///< of all kinds but timers; a line runs from the top left to the bottom right
  std::string_view caption{}; ///< of buttons, and of labels, which wrap it between words from the top
  std::string_view tooltip{}; ///< of buttons; empty for none
  Font font{};                ///< of labels and buttons
  Colour foreground{};        ///< text of a label, outline of a shape, colour of a line
  Colour background{};        ///< fills the whole `place` of a label, shape or picture box
  Alignment alignment{Alignment::left}; ///< of labels
  Border border{Border::none};          ///< of labels
  std::string_view accessibleName{};    ///< of images and picture boxes: what a screen reader calls them
  Picture picture{Picture::none}; ///< of images (exactly as large as `place`) and picture boxes (top left)
  Visibility visible{Visibility::visible}; ///< of images; a hidden one cannot be clicked
  Switch enabled{Switch::off};             ///< of timers: `on` runs from the creation of the screen
  std::chrono::milliseconds interval{};    ///< of timers
};

/// Layouts live as long as the program. Controls lie above the drawing surface, each above the ones before
/// it. The order of the buttons is their tab order; the first button has the focus at the start.
struct ScreenLayout {
  ScreenName name{};
  std::string_view caption;
  std::string_view accessibleName; ///< what a screen reader calls the screen
  Frame frame{};
  Font font{};         ///< with which drawing begins; all drawn text has its weight
  Colour background{}; ///< of the drawing surface, until it is cleared to another colour
  std::span<const ControlLayout> controls;
  Typing typing{Typing::none}; ///< `answer`: where there is no keyboard, the front end offers its keys
  /// What the close box does. `endsChallenge` also shows home; a front end may ask the learner first.
  Closing closing{Closing::showsHome};
};

/// Across the boundary, a control is identified by its index in `ScreenLayout::controls`.
using ControlIndex = std::size_t;

// ---- What the platform provides ----------------------------------------------------------------------

/// The window of one screen: its drawing surface, its controls and its timers. The program owns it and may
/// destroy it at any time, also while the window delivers an event; after that it must be invisible and must
/// not cause events. All functions may be called during any event, and before the window is visible.
///
/// The picture is retained: the front end stores what was drawn and repaints from that after the window was
/// covered or resized. The program never redraws. Drawing outside the content area is clipped. `thickness` is
/// in pixels of the layout (96 per inch, 1 or more), centred on the geometric line. Corners come in any
/// order.
class Window {
public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  /// Shows the window in front of all others. From now on it receives the keys.
  virtual void activate() noexcept = 0;

  /// The width of the content area, at least that of `minimumContentArea`. Correct before the window is
  /// shown.
  virtual Points width() const noexcept = 0;

  /// The advance width of `text`, its blanks included.
  virtual Points textWidth(std::string_view text, const Font& font) const noexcept = 0;
  /// The distance from the top of one line of text to the top of the next.
  virtual Points lineHeight(const Font& font) const noexcept = 0;
  virtual Points averageCharacterWidth(const Font& font) const noexcept = 0;

  /// Draws one line of text without a background; `topLeft` is the corner of its line box.
  virtual void drawText(Point topLeft, std::string_view text, const Font& font, Colour colour) noexcept = 0;
  virtual void drawSegment(Point from, Point to, int thickness, Colour colour) noexcept = 0;
  /// Without `fill` the inside is not painted.
  virtual void drawBox(Point corner, Point opposite, int thickness, Colour outline,
                       std::optional<Colour> fill) noexcept = 0;
  virtual void drawEllipse(Point centre, Points radiusX, Points radiusY, int thickness, Colour outline,
                           std::optional<Colour> fill) noexcept = 0;
  /// Fills the whole surface. Controls are not affected.
  virtual void clear(Colour background) noexcept = 0;

  /// `control` is an image; `visible` differs from its present state.
  virtual void setVisible(ControlIndex control, Visibility visible) noexcept = 0;
  /// `control` is a label; `caption` differs from its present one.
  virtual void setCaption(ControlIndex control, std::string_view caption) noexcept = 0;

  /// Ticks every `interval` (1 ms or more) from now on, until stopped. A running timer starts a fresh
  /// countdown. Each tick is due one interval after the previous one was due, however late that was
  /// delivered. Timers that are due at the same instant tick in the order in which they were last started
  /// while stopped. A timer that is stopped before its turn does not tick. Timers also tick while their
  /// window is not in front.
  virtual void startTimer(ControlIndex timer, std::chrono::milliseconds interval) noexcept = 0;
  /// Does nothing if the timer is not running.
  virtual void stopTimer(ControlIndex timer) noexcept = 0;
};

class Events;

class Platform {
public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform() = default;

  /// Creates an invisible window with its controls as designed; timers that are on by design run. `layout`
  /// and `events` outlive the window. Never null.
  virtual std::unique_ptr<Window> createWindow(const ScreenLayout& layout, Events& events) noexcept = 0;

  /// Seeds the random numbers. Any unit; the finer, the better.
  virtual std::uint64_t timeOfDay() const noexcept = 0;

  /// Ends the program: closes all windows and leaves the event loop. The program destroys its windows, and
  /// the present event returns, before the program is destroyed.
  virtual void quit() noexcept = 0;
};

// ---- What the front end reports ----------------------------------------------------------------------

/// The key codes that the program distinguishes.
namespace keyCode {
constexpr int other = 0;
constexpr int enter = 13;
constexpr int right = 39;
} // namespace keyCode

/// The characters of keys that type no visible one.
namespace character {
constexpr char32_t backspace = 8;
constexpr char32_t enter = 13;
constexpr char32_t escape = 27;
} // namespace character

/// A text on the surface of a screen, in words for a screen reader: "47 plus 35 égale ?".
struct SpokenText {
  std::string words;
  Point topLeft;
  Point bottomRight;
};

/// What the learner did, and which timers are due. A call must not be made during another one, nor during a
/// call of `Platform` or `Window`.
class Events {
public:
  Events() = default;
  Events(const Events&) = delete;
  Events& operator=(const Events&) = delete;
  virtual ~Events() = default;

  /// Whether another screen has become the active one, or none.
  enum class KeyUse : std::uint8_t { screenStayed, screenChanged };

  /// A key went down on the active screen. `character` is the code point that it types, if any: Enter, Escape
  /// and Backspace have one; arrows, Tab and Delete have none.
  virtual KeyUse key(int code, std::optional<char32_t> character) noexcept = 0;
  /// A button or image of the active screen was clicked.
  virtual void click(ControlIndex control) noexcept = 0;
  /// A timer of `screen` is due.
  virtual void tick(ScreenName screen, ControlIndex timer) noexcept = 0;
  /// The learner chose a screen in the window system. Nothing happens if it is not loaded or already active.
  virtual void front(ScreenName screen) noexcept = 0;
  /// The learner closed the active screen.
  virtual void close() noexcept = 0;

  // Queries for screen readers. They need not be called while no screen reader is running.

  /// The texts that are visible on the surface of a screen, in reading order. Labels are not included.
  virtual std::vector<SpokenText> spokenTexts(ScreenName screen) const noexcept = 0;
  /// What a screen reader announces: all that has changed on the active screen since the last call. Empty if
  /// there is nothing to announce.
  virtual std::string takeAnnouncement() noexcept = 0;
};

} // namespace chiffrolo
