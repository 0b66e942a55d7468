// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class QWidget;

/// The application's message boxes, always titled "Orvo". They block until the user has answered. GUI thread.
class CMessageBox final
{
public:
    /// A text with the single button OK; @p details, in smaller type below it, says what and where.
    static void information(QWidget *parent, const QString &text, const QString &details = {});
    /// The same for what failed, with the sign of a warning.
    static void warning(QWidget *parent, const QString &text, const QString &details = {});

    /// A text with the buttons Yes and No, Yes being the default. 0: Yes, 1: No (also when closed).
    static int question(QWidget *parent, const QString &text, const QString &details = {});
    /// Asks before something is lost: Yes and No, No being the default. True: Yes.
    static bool confirm(QWidget *parent, const QString &text, const QString &details = {});
};
