// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <QWidget>

#include <functional>

namespace chiffrolo::qt {

class DrawingSurface;

/// The widget for a row of a layout, shown at the scale of the surface on which it lies; null for a timer.
/// `row` outlives it, `clicked` is called for each click on a button or image.
QWidget* createControl(const ControlLayout& row, DrawingSurface& surface,
                       const std::function<void()>& clicked);

/// Puts the widget of `row` where it lies when `scale` of its pixels make one of the layout.
void placeControl(QWidget& control, const ControlLayout& row, qreal scale);

/// `control` is the widget of a label.
void setLabelCaption(QWidget& control, std::string_view caption);

} // namespace chiffrolo::qt
