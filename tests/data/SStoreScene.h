// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/LayoutNotification.h"
#include "layout/data/CLayoutData.h"
#include "tests/harness/CFakeEditor.h"
#include "tests/harness/SStoreWorld.h"

#include <QRegularExpression>
#include <QTest>

#include <atomic>
#include <memory>
#include <mutex>

/// A store with a host and an editor that shows the processor "A" of four ports.
struct SStoreScene final : SStoreWorld
{
    using Port = CabinetLayout::CabinetPort;

    inline static const QString FollowUp = QStringLiteral("applyLayoutFollowUp(false)");

    QUuid a = host.addProcessor(QStringLiteral("A"), 4, 2);
    QUuid b = host.addProcessor(QStringLiteral("B"), 2, 1);
    CFakeEditor editor;

    SStoreScene()
    {
        store.setLayoutSource(&editor);
        open(a);
    }
    ~SStoreScene()
    {
        closed = {};
        store.stop();
    }
    void edit(int port, bool atOnce)
    {
        editor.move(port);
        store.syncLayoutData(atOnce);
    }
    /// Brings a processor into view, and its layout into the editor.
    void open(const QUuid &processor)
    {
        host.choose(processor);
        host.notify(LayoutNotification::CurrentProcessorChanged, processor);
        editor.load(store.openProcessor(processor));
        settle(host, store);
    }
    /// Keeps the hand-over worker busy in the host until letGo(): meanwhile nothing that is deferred begins.
    void holdHandOver()
    {
        closed = std::unique_lock<std::mutex>(gate);
        answers()->onCalled = [this](const QString &call) {
            if (call == FollowUp) {
                const std::lock_guard<std::mutex> passed(gate);
            }
        };
        edit(3, false);
        QTRY_VERIFY(answers()->calls().contains(FollowUp));
        answers()->onCalled = nullptr;
        answers()->forgetCalls();
    }
    /// Lets the worker go on when all that was deferred until now is due.
    void letGo()
    {
        std::atomic<bool> due{false};
        CWorkThread later; // what it defers now is due after all of that
        later.AddTimeOutEventFilter(0, CLayoutHandOver::Delay);
        later.AppendEvent({0, [&due] { due = true; }}, false);
        later.ActivateThread();
        QTRY_VERIFY(due);
        closed.unlock();
    }
    /// The host's port @p backup carries the cabinets of @p primary.
    void makeRedundant(int primary, int backup)
    {
        const auto locked = answers();
        QVector<Port> &ports = locked->layouts[a].layout.ports;
        ports[primary].redundancy = Port::Primary;
        ports[primary].redundancyPort = backup;
        ports[backup].redundancy = Port::Redundant;
        ports[backup].redundancyPort = primary;
    }
    QStringList handOverCalls()
    {
        return answers()->calls().filter(QRegularExpression(
            QStringLiteral("^(commitLayoutData|layoutFollowUpNeeded|applyLayoutFollowUp)")));
    }
    QString commitOf(const QUuid &processor) const
    {
        return QStringLiteral("commitLayoutData(%1)").arg(processor.toString(QUuid::WithoutBraces));
    }

private:
    std::mutex gate;
    std::unique_lock<std::mutex> closed;
};
