// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/common/CBackgroundCall.h"

#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QThread>

#include <exception>
#include <thread>

namespace {

/// Shows the user that input must wait.
class CWaitCursor final
{
public:
    CWaitCursor()
        : m_shown(qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
    {
        if (m_shown)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~CWaitCursor()
    {
        if (m_shown)
            QGuiApplication::restoreOverrideCursor();
    }
    CWaitCursor(const CWaitCursor &) = delete;
    CWaitCursor &operator=(const CWaitCursor &) = delete;

private:
    const bool m_shown;
};

} // namespace

void CBackgroundCall::run(const std::function<void()> &work)
{
    const QCoreApplication *application = QCoreApplication::instance();
    if (!application || QThread::currentThread() != application->thread()) {
        work();
        return;
    }
    const CWaitCursor cursor;
    QEventLoop loop;
    std::exception_ptr problem;
    std::thread worker([&loop, &work, &problem] {
        try {
            work();
        } catch (...) {
            problem = std::current_exception();
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    worker.join(); // the loop also ends when the application quits
    if (problem)
        std::rethrow_exception(problem);
}

QString CBackgroundCall::memoryText()
{
    return tr("There is not enough memory.");
}
