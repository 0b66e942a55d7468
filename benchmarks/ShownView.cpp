// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/ShownView.h"

#include <QCoreApplication>
#include <QWidget>
#include <QWindow>

void ShownView::show(QWidget &widget)
{
    widget.resize(ViewSize);
    widget.show();
    while (!widget.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
}
