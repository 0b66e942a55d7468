// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QWidget;

/// Reports when a program has started.
namespace FirstFrame {

/// Shows @p window, prints a line when it has been painted for the first time, and quits the application.
void announce(QWidget &window);

} // namespace FirstFrame
