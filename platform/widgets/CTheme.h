// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>

class QApplication;

/// The one dark look of the application: base style, palette, font size and style sheet.
class CTheme final
{
public:
    /// Applies the look to @p application. Call once, before the first window is shown. GUI thread.
    static void apply(QApplication &application);

    /// The two halves of apply(). A style sheet is evaluated again for each widget that gets a parent, so a
    /// window with hundreds of widgets is built quicker between them: with the base style, palette and font
    /// that it is measured with, but without the style sheet.
    static void applyBase();
    static void applyStyleSheet(QApplication &application);

    /// The theme's light or dark text colour, whichever is easier to read on @p background.
    static QColor textOn(const QColor &background);

    /// The contrast ratio of two opaque colours: 1 (equal) to 21 (black and white).
    static double contrast(const QColor &a, const QColor &b);
};
