// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QStringList>

class QTextStream;

/// The commands that need no window: new, export, check, recover, --help, --version.
class CCommandLine final
{
    Q_DECLARE_TR_FUNCTIONS(CCommandLine)

public:
    enum ExitStatus { Success = 0, BadInput = 1, Usage = 2, NothingThere = 3 };

    /// Whether the program was called with one of the commands. Needs only the raw arguments and no
    /// application object, which would abort if there is no display.
    static bool isCommand(int argc, const char *const *argv);
    /// Runs the command with its own application object. Returns the exit status. Main thread.
    static int main(int argc, char **argv);
    /// Runs the command named by the first of @p arguments (without the program's name). An application
    /// object must exist, a QGuiApplication for export. Returns the exit status.
    static int run(const QStringList &arguments, QTextStream &out, QTextStream &errors);
};
