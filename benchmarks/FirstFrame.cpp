// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/FirstFrame.h"

#include "benchmarks/ShownView.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <cstdio>

namespace {

/// Waits for the first paint of a window.
class CFirstPaintFilter final : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        watched->removeEventFilter(this);
        // Behind the painting that is under way, children included.
        QMetaObject::invokeMethod(this, &CFirstPaintFilter::tell, Qt::QueuedConnection);
        return false;
    }

private:
    void tell()
    {
        std::puts("painted");
        std::fflush(stdout);
        QCoreApplication::quit();
    }
};

} // namespace

void FirstFrame::announce(QWidget &window)
{
    window.installEventFilter(new CFirstPaintFilter(&window));
    window.resize(ShownView::ViewSize);
    window.show();
}
