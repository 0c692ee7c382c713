// SPDX-License-Identifier: MIT
#pragma once

#include "shell/platform.h"

#include <QWidget>

#include <functional>

namespace chiffrolo::qt {

/// The widget for a row of a layout, at its place; null for a timer. `row` outlives it, `clicked` is called
/// for each click on a button or image.
QWidget* createControl(const ControlLayout& row, QWidget* parent, const std::function<void()>& clicked);

/// `control` is the widget of a label.
void setLabelCaption(QWidget& control, std::string_view caption);

} // namespace chiffrolo::qt
