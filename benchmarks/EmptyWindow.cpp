// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/FirstFrame.h"

#include <QApplication>
#include <QMainWindow>

/// The least program with a window, for comparison: what the framework itself takes to start.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    FirstFrame::announce(window);
    return QApplication::exec();
}
