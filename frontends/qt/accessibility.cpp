// SPDX-License-Identifier: MIT
#include "qt/accessibility.h"

#include "qt/host_window.h"
#include "qt/units.h"

#include <QAccessibleWidget>

#include <memory>

namespace chiffrolo::qt {

namespace {

/// An element of the accessibility tree that has no widget.
class Element : public QAccessibleInterface {
public:
  explicit Element(Page& page) : page_(page) {}

  bool isValid() const override { return true; }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return page_.window()->windowHandle(); }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(&page_.view().surface());
  }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? words_ : QString{};
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  void notify(QAccessible::Event type) {
    QAccessibleEvent event{this, type};
    QAccessible::updateAccessibility(&event);
  }

protected:
  const Page& page() const { return page_; }
  /// True if the words have changed.
  bool setWords(const QString& words) { return std::exchange(words_, words) != words; }

private:
  Page& page_;
  QString words_;
};

/// One text on the surface.
class TextElement final : public Element {
public:
  using Element::Element;

  QRect rect() const override { return page().onDisplay(topLeft_, bottomRight_); }
  QAccessible::Role role() const override { return QAccessible::StaticText; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = true;
    return state;
  }

  void read(const SpokenText& text) {
    topLeft_ = text.topLeft;
    bottomRight_ = text.bottomRight;
    if (setWords(toQt(text.words))) notify(QAccessible::NameChanged);
  }

private:
  Point topLeft_;
  Point bottomRight_;
};

/// The element that a screen reader announces. It is not visible.
class Announcement final : public Element {
public:
  using Element::Element;

  QRect rect() const override { return page().onDisplay({}, {}); }
  QAccessible::Role role() const override { return QAccessible::Notification; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.invisible = !shown_;
    return state;
  }

  /// Orca 43 announces a notification when it is shown, not when its text changes; so it is hidden first.
  void announce(const QString& words) {
    shown_ = false;
    notify(QAccessible::ObjectHide);
    if (setWords(words)) notify(QAccessible::NameChanged);
    shown_ = true;
    notify(QAccessible::ObjectShow);
  }

private:
  bool shown_{false};
};

/// An element that is registered in the accessibility tree, until this object is destroyed.
template <typename Kind> class Registered {
public:
  explicit Registered(Page& page)
      : element_(new Kind(page)), id_(QAccessible::registerAccessibleInterface(element_)) {}
  Registered(const Registered&) = delete;
  Registered& operator=(const Registered&) = delete;
  ~Registered() { QAccessible::deleteAccessibleInterface(id_); }

  Kind* get() const { return element_; }
  Kind* operator->() const { return element_; }

private:
  Kind* element_; // owned by Qt, which deletes it by its id
  QAccessible::Id id_;
};

/// A surface. Its children are its texts, then its controls, and last the announcement.
class SurfaceElement final : public QAccessibleWidget {
public:
  explicit SurfaceElement(Page& page)
      : QAccessibleWidget(&page.view().surface(), QAccessible::Canvas), page_(page), announcement_(page) {
    updateTexts();
  }

  int childCount() const override { return controlCount() + textCount() + 1; }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    if (index < textCount()) return texts_[static_cast<std::size_t>(index)]->get();
    if (index == childCount() - 1) return announcement_.get();
    return QAccessibleWidget::child(index - textCount());
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    if (child == announcement_.get()) return childCount() - 1;
    for (int index = 0; index < textCount(); ++index)
      if (child == this->child(index)) return index;
    const int control = QAccessibleWidget::indexOfChild(child);
    return control < 0 ? -1 : control + textCount();
  }

  /// Updates the elements of the texts. The element with the same index is reused.
  void updateTexts() {
    const auto now = page_.spokenTexts();
    while (texts_.size() > now.size()) {
      (*texts_.back())->notify(QAccessible::ObjectDestroyed);
      texts_.pop_back();
    }
    for (std::size_t index = 0; index < now.size(); ++index) {
      const bool isNew = index == texts_.size();
      if (isNew) texts_.push_back(std::make_unique<Registered<TextElement>>(page_));
      (*texts_[index])->read(now[index]);
      if (isNew) (*texts_[index])->notify(QAccessible::ObjectCreated);
    }
  }

  void announce(const QString& words) { announcement_->announce(words); }

private:
  int textCount() const { return static_cast<int>(texts_.size()); }
  int controlCount() const { return QAccessibleWidget::childCount(); }

  Page& page_;
  std::vector<std::unique_ptr<Registered<TextElement>>> texts_;
  Registered<Announcement> announcement_;
};

/// Null if the widget is not inside a page.
Page* pageAround(const QWidget& widget) {
  QWidget* const around = widget.parentWidget();
  if (around == nullptr) return nullptr;
  auto* const page = dynamic_cast<Page*>(around);
  return page != nullptr ? page : pageAround(*around);
}

/// Not QAccessible::Pane: Orca 43 reads the texts inside a pane when it gets the focus, and then the
/// announcement, so that the learner would hear the operation twice.
constexpr auto roleOfPages = QAccessible::LayeredPane;

/// Null if Qt's own description is enough.
QAccessibleInterface* createElement(const QString& /*className*/, QObject* object) {
  if (auto* const host = dynamic_cast<HostWindow*>(object))
    return new QAccessibleWidget(host, QAccessible::Window);
  if (auto* const page = dynamic_cast<Page*>(object)) return new QAccessibleWidget(page, roleOfPages);
  const auto* const surface = dynamic_cast<DrawingSurface*>(object);
  Page* const page = surface == nullptr ? nullptr : pageAround(*surface);
  return page == nullptr ? nullptr : new SurfaceElement(*page);
}

} // namespace

void makeSurfacesReadable() { QAccessible::installFactory(createElement); }

Announcer::Announcer(const HostWindow& host) : host_(host), isActive_(QAccessible::isActive()) {
  QAccessible::installActivationObserver(this);
  timer_.setSingleShot(true);
  timer_.setInterval(0);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { update(); });
}

Announcer::~Announcer() { QAccessible::removeActivationObserver(this); }

void Announcer::updateSoon() {
  if (isActive_) timer_.start();
}

void Announcer::update() const {
  Page* const page = host_.current();
  if (page == nullptr) return;
  auto* const element =
      dynamic_cast<SurfaceElement*>(QAccessible::queryAccessibleInterface(&page->view().surface()));
  if (element == nullptr) return;
  element->updateTexts();
  const auto announcement = page->takeAnnouncement();
  if (!announcement.empty()) element->announce(toQt(announcement));
}

} // namespace chiffrolo::qt
