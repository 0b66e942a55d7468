// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/LayoutNotification.h"
#include "platform/common/CWorkThread.h"

#include <QGenericArgument>

#include <functional>

class CLayoutHandOver;
class CProcessorStates;
class CSubject;
class IStoreEvents;

/// Brings the store's data up to date when the host notifies, and tells the store what to announce. Arguments
/// are read on the Update thread; what takes time runs on the notification worker.
class CNotificationDispatch final
{
public:
    /// A key of the worker beside the notification codes.
    static constexpr int PortLoadsKey = 100;

    CNotificationDispatch(IStoreEvents &events, CProcessorStates &states, CLayoutHandOver &handOver);

    /// Handles the running notification of @p subject; ignores codes that it does not know. An exception from
    /// reading the argument reaches the caller. Update thread.
    void dispatch(CSubject &subject);
    /// Runs @p work on the worker, behind what is queued. Any thread.
    void post(int key, std::function<void()> work);
    /// Ends the worker and waits for it.
    void stop();

private:
    using Handling = void (CNotificationDispatch::*)(CSubject &);
    static Handling handlingOf(int code);
    void onDetectFinished(CSubject &subject);
    void onWorkModeChanged(CSubject &subject);
    void onPortBackupChanged(CSubject &subject);
    void onTypeLibraryChanged(CSubject &subject);
    void onProcessorRemoved(CSubject &subject);
    void onProcessorsRemoved(CSubject &subject);
    void onLayoutReplaced(CSubject &subject);
    void onLayoutsReplaced(CSubject &subject);
    void onBackgroundChanged(CSubject &subject);
    void onCanvasSizeChanged(CSubject &subject);
    void onProcessorStateChanged(CSubject &subject);
    void onPortLoadsChanged(CSubject &subject);
    void onPortCountChanged(CSubject &subject);
    void onCurrentProcessorChanged(CSubject &subject);
    void onSelectedNodeChanged(CSubject &subject);
    void onReadbackFinished(CSubject &subject);

    void post(LayoutNotification code, std::function<void()> work) { post(static_cast<int>(code), work); }
    void removeProcessor(const QUuid &processor);
    void replaceLayout(const QUuid &processor);
    void refreshCurrentPorts();
    void takeCurrent(const QUuid &processor);
    void updateAllLoads();
    void invoke(const char *slot, QGenericArgument first = QGenericArgument(nullptr),
                QGenericArgument second = QGenericArgument(nullptr));

    IStoreEvents &m_events;
    CProcessorStates &m_states;
    CLayoutHandOver &m_handOver;
    CWorkThread m_worker;
};
