// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class QWidget;

/// The application's message boxes, always titled "Orvo". They block until the user answers. GUI thread.
class CMessageBox final
{
public:
    /// Shows a text with the button OK; @p details, in smaller type below it, says what and where.
    static void information(QWidget *parent, const QString &text, const QString &details = {});
    /// The same for a failure, with the icon of a warning.
    static void warning(QWidget *parent, const QString &text, const QString &details = {});

    /// Shows a text with the buttons Yes, the default, and No. Returns 0 for Yes, 1 for No or a closed box.
    static int question(QWidget *parent, const QString &text, const QString &details = {});
    /// Asks before something is lost: Yes and No, with No as the default. Returns whether the answer is Yes.
    static bool confirm(QWidget *parent, const QString &text, const QString &details = {});

    enum class Choice { Keep, Lose, Cancel };
    /// Asks what becomes of something: the button @p keep, the default, keeps it; @p lose gives it up;
    /// Cancel, or closing the box, leaves it as it is.
    static Choice choose(QWidget *parent, const QString &text, const QString &details, const QString &keep,
                         const QString &lose);
};
