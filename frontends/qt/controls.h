// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <QAbstractButton>

#include <functional>

namespace chiffrolo::qt {

class DrawingSurface;

/// Creates the widget of a control on `surface`, which owns it. Null for a timer. `row` outlives the widget;
/// `clicked` is called for each click on a button or image.
QWidget* createControl(const ControlLayout& row, DrawingSurface& surface,
                       const std::function<void()>& clicked);

/// Sets the geometry of the widget of `row`. `scale` is pixels of the widget per pixel of the layout.
void placeControl(QWidget& control, const ControlLayout& row, qreal scale);

/// A press of the mouse on the button ends without a click when the button or its page is hidden.
void endPressWhenHidden(QAbstractButton& button);

/// `control` is the widget of a label.
void setLabelCaption(QWidget& control, std::string_view caption);

} // namespace chiffrolo::qt
