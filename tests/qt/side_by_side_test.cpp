// SPDX-License-Identifier: MIT

/// Plays the same random events to two programs: one in the Qt front end, one in a simple model of a front
/// end. After each event, the Qt front end must show what the model expects. CHIFFROLO_SIDE_BY_SIDE_EVENTS
/// sets how many events are played.

#include "qt/qt_platform.h"
#include "qt/units.h"
#include "screen/layouts.h"
#include "screens.h"
#include "tests/core/operation.h"

#include <QBitmap>
#include <QPainter>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <map>
#include <random>
#include <set>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// The time on all clocks of this process, in nanoseconds; 0 while they are real.
std::atomic<std::int64_t> frozenTime{0};

} // namespace

/// Replaces the function of the C library, for Qt's timers too.
extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
  const auto frozen = frozenTime.load();
  if (frozen == 0) return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
  *time = {frozen / 1'000'000'000, frozen % 1'000'000'000};
  return 0;
}

namespace chiffrolo::qt {

namespace {

using enum ScreenName;

// ---- The model ---------------------------------------------------------------------------------------

class ModelWindow;

struct Model final : Platform {
  std::unique_ptr<Window> createWindow(const ScreenLayout& layout, Events& events) noexcept override;
  std::uint64_t timeOfDay() const noexcept override { return static_cast<std::uint64_t>(frozenTime); }
  void quit() noexcept override { hasQuit = true; }

  QSize host; ///< the size of the host window
  ModelWindow* active{};
  bool hasQuit{};
  TimerQueue timers;
  FontCache fonts;
  std::set<QRgb> colours; ///< of all that was drawn
};

class ModelWindow final : public Window, public TickReceiver {
public:
  ModelWindow(Model& model, const ScreenLayout& design, Events& events)
      : layout(design), model_(model), events_(events) {
    for (ControlIndex index = 0; index < layout.controls.size(); ++index) {
      const auto& row = layout.controls[index];
      isVisible.push_back(row.visible == Visibility::visible);
      captions.emplace_back(row.caption);
      if (row.kind == ControlKind::button) buttons.push_back(index);
      if (row.enabled == Switch::on) startTimer(index, row.interval);
    }
    clear(layout.background);
  }
  ~ModelWindow() override { model_.timers.stopAll(*this); }

  void activate() noexcept override { model_.active = this; }
  Points width() const noexcept override {
    const QSizeF frame = layout.frame == Frame::toolWindow ? QSizeF{2, 27} : QSizeF{0, 0};
    const QSizeF room = model_.host - frame;
    return toPoints(room.width() / std::min({1.0, room.width() / 896, room.height() / 564}));
  }
  Points textWidth(std::string_view text, const Font& font) const noexcept override {
    return toPoints(face(font).width(qt::toQt(text)));
  }
  Points lineHeight(const Font& font) const noexcept override { return toPoints(face(font).lineHeight()); }
  Points averageCharacterWidth(const Font& font) const noexcept override {
    return toPoints(face(font).averageCharacterWidth());
  }

  void drawText(Point topLeft, std::string_view text, const Font& font, Colour colour) noexcept override {
    const QString words = qt::toQt(text);
    const QSizeF size{face(font).width(words), face(font).lineHeight()};
    const QRect area = QRectF{toPixels(topLeft), size}.toAlignedRect().adjusted(-8, -8, 8, 8);
    QImage mask{area.size(), QImage::Format_ARGB32_Premultiplied};
    mask.fill(Qt::transparent);
    QPainter maskPainter{&mask};
    face(font).draw(maskPainter, toPixels(topLeft) - area.topLeft(), words);
    QPainter painter{&picture};
    painter.setPen(toQt(colour));
    painter.drawPixmap(area.topLeft(), QBitmap::fromImage(mask.createAlphaMask(Qt::ThresholdDither)));
  }
  void drawSegment(Point from, Point to, int thickness, Colour colour) noexcept override {
    drawBox(from, to, thickness, colour, colour); // no segment of the program is diagonal
  }
  void drawBox(Point corner, Point opposite, int thickness, Colour outline,
               std::optional<Colour> fill) noexcept override {
    const auto first = [&](Points place) { return std::floor(toPixels(place) - (thickness - 1) / 2.0); };
    const QPointF from{first(corner.x), first(corner.y)};
    const QPointF to{first(opposite.x), first(opposite.y)};
    const QRect outer = QRectF{from, to}.normalized().adjusted(0, 0, thickness, thickness).toRect();
    QPainter painter{&picture};
    if (fill) painter.fillRect(outer, toQt(*fill));
    for (const QRect& side : QRegion{outer} - outer.adjusted(thickness, thickness, -thickness, -thickness))
      painter.fillRect(side, toQt(outline));
  }
  void drawEllipse(Point centre, Points radiusX, Points radiusY, int thickness, Colour outline,
                   std::optional<Colour> fill) noexcept override {
    QPainter painter{&picture};
    painter.setPen({toQt(outline), qreal(thickness)});
    painter.setBrush(fill ? QBrush{toQt(*fill)} : Qt::NoBrush);
    painter.drawEllipse(toPixels(centre), toPixels(radiusX), toPixels(radiusY));
  }
  void clear(Colour background) noexcept override { picture.fill(toQt(background)); }

  void setVisible(ControlIndex control, Visibility visible) noexcept override {
    isVisible[control] = visible == Visibility::visible;
  }
  void setCaption(ControlIndex label, std::string_view text) noexcept override { captions[label] = text; }
  void startTimer(ControlIndex timer, std::chrono::milliseconds interval) noexcept override {
    model_.timers.start({this, timer}, interval, Clock::now());
  }
  void stopTimer(ControlIndex timer) noexcept override { model_.timers.stop({this, timer}); }
  void tick(ControlIndex timer) override { events_.tick(layout.name, timer); }

  const ScreenLayout& layout;
  std::vector<bool> isVisible;
  std::vector<std::string> captions;
  std::vector<ControlIndex> buttons;
  std::size_t focus{}; ///< an index of `buttons`
  /// The minimum content area, not antialiased: what is drawn over leaves no trace.
  QImage picture{896, 564, QImage::Format_RGB32};

private:
  const TextFace& face(const Font& font) const { return model_.fonts.face(font); }
  QColor toQt(Colour colour) {
    model_.colours.insert(qt::toQt(colour).rgb());
    return qt::toQt(colour);
  }

  Model& model_;
  Events& events_;
};

std::unique_ptr<Window> Model::createWindow(const ScreenLayout& layout, Events& events) noexcept {
  return std::make_unique<ModelWindow>(*this, layout, events);
}

// ---- The game ----------------------------------------------------------------------------------------

auto values(const MODULE11& shared) {
  const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q] = shared;
  return std::tie(a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q);
}

/// Both programs, from their start to their end.
class Game {
public:
  explicit Game(std::mt19937& random) : random_(random) {
    qt_.start();
    settle();
    model.host = host_.size();
    expected.start();
  }

  void play() {
    wait(400);
    if (below(300) == 0) isDiligent_ = !isDiligent_;
    if (isDiligent_ && below(60) > 0) return answerRightly();
    switch (below(20)) {
    case 0: return resize();
    case 1: return zoom();
    case 2: return wait(40'000);
    case 3: return answerRightly();
    case 4: return below(4) == 0 ? close() : press('\r');
    default: return below(5) == 0 ? useMouse() : press(anyKey());
    }
  }

  /// With a repaint: compares what is on the display with a repaint of everything, too.
  void compare(bool withRepaint) {
    ASSERT_EQ(host_.isVisible(), !model.hasQuit);
    if (model.hasQuit) return;
    ASSERT_EQ(values(qt_.shared()), values(expected.shared()));
    for (auto* const child : host_.children()) {
      const auto* const other = dynamic_cast<Page*>(child);
      ASSERT_TRUE(other == nullptr || other->isVisible() == (other == &page()));
    }
    const auto& active = *model.active;
    ASSERT_EQ(page().name(), active.layout.name);
    for (ControlIndex index = 0; index < active.layout.controls.size(); ++index) {
      const auto* const widget = view().control(index);
      if (widget == nullptr) continue;
      ASSERT_EQ(widget->isVisible(), active.isVisible[index]) << active.layout.controls[index].name;
      ASSERT_EQ(widget->property("text").toString().toStdString(), active.captions[index]);
    }
    const QWidget* const expectedFocus = active.buttons.empty() ? &page() : view().control(focused());
    ASSERT_EQ(host_.focusWidget(), expectedFocus);
    ASSERT_EQ(differences(), 0);
    if (!withRepaint) return;
    const QImage shown = host_.screen()->grabWindow(host_.winId()).toImage();
    const QImage repainted = host_.grab().toImage();
    ASSERT_EQ(shown.convertToFormat(repainted.format()), repainted);
  }

  Model model;
  Program expected{model, allScreens};

private:
  Page& page() const { return *host_.current(); }
  View& view() const { return page().view(); }
  ControlIndex focused() const { return model.active->buttons[model.active->focus]; }
  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  /// The pixels of the surface, in its designed size, that have a wrong colour. Pixels with a blended colour,
  /// at antialiased edges, are not compared.
  int differences() const {
    const QImage& picture = model.active->picture;
    QImage shown{picture.size(), picture.format()};
    shown.fill(Qt::white);
    QPainter painter{&shown};
    const qreal scale = (1 + 1e-9) / view().surface().scale(); // a place of 7 must not become 6.999
    painter.scale(scale, scale);
    view().surface().render(&painter, {}, {}, {});
    int count = 0;
    for (int y = 0; y < shown.height(); ++y) {
      const auto* const pixels = reinterpret_cast<const QRgb*>(shown.constScanLine(y));
      const auto* const expectedPixels = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
      if (std::equal(pixels, pixels + shown.width(), expectedPixels)) continue;
      for (int x = 0; x < shown.width(); ++x)
        count += pixels[x] != expectedPixels[x] && model.colours.contains(pixels[x]);
    }
    return count;
  }

  /// Handles what is queued, twice, because a timer queues repaints.
  static void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void wait(int lessThan) {
    frozenTime += below(lessThan) * 1'000'000LL;
    settle();
    while (const auto due = model.timers.takeDue(Clock::now()))
      due->receiver->tick(due->control);
  }

  void resize() {
    model.host = below(2) == 0 ? QSize{1280, 1024} : QSize{400 + below(880), 300 + below(724)};
    host_.resize(model.host);
    settle();
  }

  // ---- Keys ------------------------------------------------------------------------------------------

  /// Keys are identified by what they type; the right arrow is ">".
  static constexpr char rightArrow = '>';
  char anyKey() {
    constexpr std::string_view keys = "0123456789  ==x\t>\33\b\r\r\r";
    return keys[static_cast<std::size_t>(below(static_cast<int>(keys.size())))];
  }

  void send(QEvent::Type type, char key, Qt::KeyboardModifiers modifiers = {}, bool isRepeat = false) {
    const int code = key == rightArrow ? Qt::Key_Right : key == 'F' ? Qt::Key_F11 : QTest::asciiToKey(key);
    const QString text = key == rightArrow || key == 'F' ? QString{} : QString{QChar{key}};
    QKeyEvent event{type, code, modifiers, text, isRepeat};
    event.setTimestamp(timestamp_ += 10);
    QCoreApplication::sendEvent(host_.windowHandle(), &event);
    settle();
  }

  void zoom() {
    const char key = "+-0F"[below(4)];
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
      key == 'F' ? send(type, key) : send(type, key, Qt::ControlModifier);
  }

  /// Sometimes holds the key until it repeats.
  void press(char key) {
    const auto* const pressedOn = model.active;
    send(QEvent::KeyPress, key);
    expectKey(key);
    if (below(8) == 0) {
      send(QEvent::KeyPress, key, {}, true);
      if (model.active == pressedOn) expectKey(key);
    }
    send(QEvent::KeyRelease, key);
    if (std::exchange(isSpaceDown_, false)) expected.click(focused());
  }

  void expectKey(char key) {
    isSpaceDown_ = false;
    const bool hasButtons = !model.active->buttons.empty();
    if (hasButtons && key == '\t') return moveFocus();
    const int code = key == '\r' ? keyCode::enter : key == rightArrow ? keyCode::right : keyCode::other;
    const bool types = key != '\t' && key != rightArrow;
    const auto use = expected.key(code, types ? std::optional(static_cast<char32_t>(key)) : std::nullopt);
    if (!hasButtons || use == Events::KeyUse::screenChanged) return;
    if (key == rightArrow) moveFocus();
    if (key == '\r') expected.click(focused());
    isSpaceDown_ = key == ' ';
  }

  void moveFocus() const { model.active->focus = (model.active->focus + 1) % model.active->buttons.size(); }

  // ---- The mouse -------------------------------------------------------------------------------------

  static constexpr ControlIndex closeBox = 1000;

  bool isClickable(ControlIndex control) const {
    if (control == closeBox) return true;
    const auto kind = model.active->layout.controls[control].kind;
    return kind == ControlKind::button || (kind == ControlKind::image && model.active->isVisible[control]);
  }

  /// The centre of a control, in the host window.
  QPoint placeOf(ControlIndex control) const {
    if (control == closeBox) return {host_.width() - 13, 13};
    const auto& [left, top, width, height] = model.active->layout.controls[control].place;
    const QPointF centre{(left + width / 2.0) / 15.0, (top + height / 2.0) / 15.0};
    return view().surface().mapTo(&host_, (centre * view().surface().scale()).toPoint());
  }

  /// A control of which the centre can be seen and is not covered by another one.
  ControlIndex anyControl() {
    const auto& layout = model.active->layout;
    while (layout.frame == Frame::frameless || below(8) > 0) {
      const auto control = static_cast<ControlIndex>(below(static_cast<int>(layout.controls.size())));
      const auto kind = layout.controls[control].kind;
      const bool isPlane =
          kind == ControlKind::shape || kind == ControlKind::line || kind == ControlKind::timer;
      if (!isPlane && view().rect().contains(view().mapFrom(&host_, placeOf(control)))) return control;
    }
    return closeBox;
  }

  void useMouse() {
    const auto control = anyControl();
    const auto mouseButton = below(8) == 0 ? Qt::RightButton : Qt::LeftButton;
    const auto& buttons = model.active->buttons;
    const auto button = std::ranges::find(buttons, control);
    if (button != buttons.end()) model.active->focus = static_cast<std::size_t>(button - buttons.begin());
    QTest::mouseClick(host_.windowHandle(), mouseButton, {}, placeOf(control));
    settle();
    if (mouseButton == Qt::RightButton || !isClickable(control)) return;
    control == closeBox ? expected.close() : expected.click(control);
  }

  void close() {
    EXPECT_FALSE(host_.close());
    settle();
    expected.close();
  }

  // ---- Right answers ---------------------------------------------------------------------------------

  bool isArrowVisible() const {
    const auto& rows = model.active->layout.controls;
    const auto arrow = std::ranges::find(rows, "flèche", &ControlLayout::name) - rows.begin();
    return model.active->isVisible[static_cast<std::size_t>(arrow)];
  }

  /// Presses the next key of the right answer, or goes on to the next operation or screen.
  void answerRightly() {
    const auto& shared = expected.shared();
    const auto screen = model.active->layout.name;
    if (screen == accueil || screen == Aurevoir) return useMouse();
    if (isArrowVisible()) return below(12) == 0 ? useMouse() : press('\r');
    const bool isStep = screen != record && screen != division && (shared.essai == 1 || shared.essai == 2);
    const auto step = static_cast<std::size_t>(shared.essai) + 1;
    const auto operation = test::parsed(isStep ? shared.termes.at(step) : shared.operation);
    const auto answer = std::to_string(operation.result());
    if (shared.reponse == answer) return press('\r');
    press(answer.starts_with(shared.reponse) ? answer[shared.reponse.size()] : '\b');
  }

  std::mt19937& random_;
  bool isDiligent_{true};
  bool isSpaceDown_{}; ///< its release clicks the button that has the focus
  std::uint64_t timestamp_{1000};
  QtPlatform platform_;
  HostWindow& host_ = dynamic_cast<HostWindow&>(*QApplication::topLevelWidgets().constFirst());
  Program qt_{platform_, allScreens};
};

TEST(SideBySide, theQtFrontEndShowsWhatTheModelExpects) {
  const int wanted = qEnvironmentVariableIntValue("CHIFFROLO_SIDE_BY_SIDE_EVENTS");
  frozenTime = 1'000'000'000'000'000;
  std::mt19937 random{20260101};
  std::map<std::string_view, int> reached;
  std::optional<Game> game{std::in_place, random};
  for (int event = 0; event < std::max(wanted, 5000) && !HasFailure(); ++event) {
    SCOPED_TRACE(event);
    const auto* const before = game->model.active;
    game->play();
    game->compare(event % 250 == 0);
    if (game->model.hasQuit) {
      ++reached["end"];
      game.emplace(random);
    } else if (game->model.active != before) {
      ++reached[nameOf(*game->expected.active())];
      if (game->expected.active() == FIN2 && game->expected.shared().nbOperations == 20)
        ++reached["complete challenge"];
    }
  }
  game.reset();
  frozenTime = 0;
  EXPECT_EQ(reached.size(), screenCount + 2) // the end, and a complete challenge
      << testing::PrintToString(reached);
}

} // namespace

} // namespace chiffrolo::qt
