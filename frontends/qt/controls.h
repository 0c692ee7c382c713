// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <QWidget>

#include <functional>

namespace chiffrolo::qt {

class DrawingSurface;

/// Creates the widget of a control on `surface`, which owns it. Null for a timer. `row` outlives the widget;
/// `clicked` is called for each click on a button or image.
QWidget* createControl(const ControlLayout& row, DrawingSurface& surface,
                       const std::function<void()>& clicked);

/// Sets the geometry of the widget of `row`. `scale` is pixels of the widget per pixel of the layout.
void placeControl(QWidget& control, const ControlLayout& row, qreal scale);

/// `control` is the widget of a label.
void setLabelCaption(QWidget& control, std::string_view caption);

} // namespace chiffrolo::qt
