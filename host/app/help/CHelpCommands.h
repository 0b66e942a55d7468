// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/app/start/CCrashHandler.h"

#include <QObject>

class QWidget;

/// The commands of the help menu, and the report of a crash that the next start shows. GUI thread.
class CHelpCommands final : public QObject
{
    Q_OBJECT

public:
    /// @p window is the parent of all dialogs; it must outlive this object.
    explicit CHelpCommands(QWidget &window);

    /// Shows the latest crash report that was not shown yet, if there is one, in a window of its own that
    /// blocks nothing. While a modal dialog is open, that must be @p parent.
    static void showCrash(QWidget &parent);
    /// Shows @p report, which counts as shown once the user has closed it.
    static void showCrash(QWidget &parent, const CCrashHandler::SReport &report);

    void showLog();
    void openLogFolder();
    void copySystemInformation();
    void showAbout();

Q_SIGNALS:
    /// For the status bar.
    void notifyDone(const QString &text);

private:
    QWidget &m_window;
};
