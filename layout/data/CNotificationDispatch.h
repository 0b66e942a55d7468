// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/LayoutNotification.h"
#include "layout/data/IStoreEvents.h"
#include "platform/common/CWorkThread.h"

#include <QGenericArgument>

#include <functional>

class CLayoutHandOver;
class CProcessorStates;
class CStoreOptions;
class CSubject;

/// Updates the store's data when the host notifies, and tells the store what to announce. Arguments are read
/// on the Update thread; slow work runs on the notification worker.
class CNotificationDispatch final
{
public:
    /// A key for post() that is not a notification code.
    static constexpr int PortLoadsKey = 100;

    CNotificationDispatch(IStoreEvents &events, CProcessorStates &states, CStoreOptions &options,
                          CLayoutHandOver &handOver);

    /// Handles the current notification of @p subject; ignores unknown codes. An exception from reading the
    /// argument is passed to the caller. Update thread.
    void dispatch(CSubject &subject);
    /// Queues @p work for the worker. Any thread.
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
    void onUnsavedEditsChanged(CSubject &subject);

    void post(LayoutNotification code, std::function<void()> work) { post(static_cast<int>(code), work); }
    void removeProcessor(const QUuid &processor);
    void replaceLayout(const QUuid &processor);
    void refreshCurrentPorts();
    void takeCurrent(const QUuid &processor);
    void updateAllLoads(IStoreEvents::Announced processor = IStoreEvents::Announced::IfDifferent);
    void updatePairsWith(const QUuid &other); ///< what ports paired with its ports show; null: with any
    void invoke(const char *slot, QGenericArgument first = QGenericArgument(nullptr),
                QGenericArgument second = QGenericArgument(nullptr));

    IStoreEvents &m_events;
    CProcessorStates &m_states;
    CStoreOptions &m_options;
    CLayoutHandOver &m_handOver;
    CWorkThread m_worker;
};
