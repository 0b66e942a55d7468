// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSize>

class QWidget;

/// Puts widgets on the screen.
namespace ShownView {

constexpr QSize ViewSize(1920, 1080);

/// Shows @p widget in ViewSize and returns when it has been painted.
void show(QWidget &widget);

} // namespace ShownView
