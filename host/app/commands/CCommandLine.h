// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QStringList>

class QTextStream;

/// The commands that need no window: new, export, check, --help, --version.
class CCommandLine final
{
    Q_DECLARE_TR_FUNCTIONS(CCommandLine)

public:
    enum ExitStatus { Success = 0, BadInput = 1, Usage = 2 };

    /// Whether the program was called with one of the commands. Looks at the raw arguments only: an
    /// application object that aborts without a display need not exist yet.
    static bool isCommand(int argc, const char *const *argv);
    /// Runs the command with an application object of its own and gives the exit status. Main thread.
    static int main(int argc, char **argv);
    /// Runs the command that @p arguments begin with (without the program's name); an application object
    /// exists, a QGuiApplication for export. Gives the exit status.
    static int run(const QStringList &arguments, QTextStream &out, QTextStream &errors);
};
