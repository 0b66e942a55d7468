// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/control/CSubject.h"
#include "platform/control/IAbstractControlInterface.h"
#include "tests/harness/CFakeHandler.h"

#include <QObject>

enum class LayoutNotification : int;

/// A host for tests: a handler that records its calls, and notifications from their own thread.
class CFakeHost final : public IAbstractControlInterface
{
public:
    /// Becomes the module's host until it is destroyed.
    CFakeHost();
    ~CFakeHost() override;

    QObject *object() override { return hostObject; }
    std::shared_ptr<IAbstractInterfaceHandler> handler() const override { return m_handler; }
    CSubject *subject() override { return &m_subject; }
    void stop() override {}

    /// The handler's answers and recorded calls, locked for the expression or scope.
    CFakeAnswers answers() { return CFakeAnswers(*m_handler); }
    /// Adds an online processor with @p ports ports, each with @p cabinets wired cabinets of 100 x 100 pixels
    /// in a row, to the tree. Returns its key.
    QUuid addProcessor(const QString &name, int ports, int cabinets = 0);
    /// Makes @p processor the selected and the current one, without a notification.
    void choose(const QUuid &processor);

    /// Ends the read or save that has waited longest.
    void endWaiting(const SDeviceOutcome &outcome) { m_handler->endWaiting(outcome); }

    /// Notifies on a separate thread and waits for its end. Passes on exceptions of the update.
    void notify(LayoutNotification code, std::any argument = {});
    /// The thread of the last notification.
    std::thread::id updateThread() const { return m_updateThread; }

    QObject *hostObject = nullptr; ///< the object behind the interface

private:
    std::shared_ptr<CFakeHandler> m_handler;
    CSubject m_subject;
    std::thread::id m_updateThread;
};
