// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>

class QApplication;

/// The one dark look of the application: base style, palette, font size and style sheet.
class CTheme final
{
public:
    /// Gives @p application the look. Called once, before the first window is shown. GUI thread.
    static void apply(QApplication &application);

    /// The theme's text colour, light or dark, that reads best on @p background.
    static QColor textOn(const QColor &background);

    /// How far two opaque colours differ in lightness: 1 (not at all) to 21 (black and white).
    static double contrast(const QColor &a, const QColor &b);
};
