// SPDX-License-Identifier: MIT
#pragma once

/// The controls that a screen uses. Each is a member of the screen, with the name of its row in the layout
/// and the handler of its one event. A control that never changes and has no event needs no member.

#include "platform.h"

#include <functional>
#include <string>

namespace chiffrolo {

class Screen;

class Control {
public:
  /// `screen` owns the control; its layout has a row named `name`.
  Control(Screen& screen, std::string_view name, std::function<void()> handler = {});
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  /// Runs the handler, if the state of the control allows its event.
  void react() const;

protected:
  const ControlLayout& design() const;
  Window& window() const;
  ControlIndex index() const { return index_; }

private:
  virtual bool reacts() const { return true; }

  Screen& screen_;
  ControlIndex index_{};
  std::function<void()> handler_;
};

/// Its event is `Click`.
class Button final : public Control {
public:
  using Control::Control;
};

/// Its event is `Click`, which a hidden image does not have.
class Image final : public Control {
public:
  using Control::Control;

  void show() { setVisible(Visibility::visible); }
  void hide() { setVisible(Visibility::hidden); }
  bool Visible() const { return visible_ == Visibility::visible; }

private:
  bool reacts() const override { return Visible(); }
  void setVisible(Visibility visible);

  Visibility visible_{design().visible};
};

/// It has no event.
class Label final : public Control {
public:
  using Control::Control;

  void setCaption(std::string_view caption);
  std::string_view caption() const { return caption_; }

private:
  std::string caption_{design().caption};
};

/// Its event is `Timer`, every interval while it is on.
class Timer final : public Control {
public:
  using Control::Control;

  /// Starts a fresh countdown if the timer is off.
  void turnOn();
  void turnOff();
  /// 1 ms or more. Starts a fresh countdown if the timer is on, also if the interval is the same.
  void setInterval(std::chrono::milliseconds interval);

private:
  bool reacts() const override { return enabled_ == Switch::on; }

  Switch enabled_{design().enabled};
  std::chrono::milliseconds interval_{design().interval};
};

} // namespace chiffrolo
