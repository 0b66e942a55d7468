// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/CUpdateThread.h"
#include "layout/api/LayoutNotification.h"
#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SHostRecords.h"

#include <QObject>

#include <atomic>
#include <functional>

class CMailbox;

/// Announces changes of devices: to the modules by notifications from the Update thread, to the host's own
/// windows by signals on the GUI thread. Nobody else sends either.
class CDeviceAnnouncer final : public QObject
{
    Q_OBJECT

public:
    using Cabinets = QList<CabinetLayout::CabinetPort::Cabinet>;

    /// @p mailbox delivers the signals on the GUI thread; it must outlive the announcer.
    explicit CDeviceAnnouncer(CMailbox &mailbox, QObject *parent = nullptr);

    /// The subject that sends the notifications; modules attach to it.
    CSubject &subject() { return m_updates.subject(); }

    // Any thread; the signals follow later, in the order of the calls.
    /// Queues a notification; @p argument must have the code's type.
    void notify(LayoutNotification code, std::any argument = {});
    /// Names, states or marks of unsaved edits have changed. Several calls in a row cause one signal.
    void announceState();
    void announceCommit(const QUuid &processor); ///< another working layout, canvas or background
    /// The host has replaced the working layout. @p sent is called on the Update thread once the modules know
    /// it: until then their edits belong to the layout before.
    void announceLayout(const QUuid &processor, std::function<void()> sent);
    void announceWords(const QString &words); ///< something that the user should know
    void announceStatusLed(const QUuid &processor, bool on);
    void announceHighlight(const QUuid &processor, const Cabinets &cabinets, CabinetHighlight highlight);

    // GUI thread; the signals are sent at once.
    void announceProcessors(); ///< processors were added or removed
    void announceCurrentProcessor(const QUuid &processor);
    void announceNumbersShown(const QUuid &processor, bool shown);
    void requestScreen(bool shown);
    void requestTypeLibrary(QWidget *parent);

    /// Sends pending notifications, and none afterwards. A second call does nothing.
    void stop();

Q_SIGNALS:
    void notifyProcessorsChanged();                             ///< added, removed, renamed, or state changed
    void notifyCurrentProcessorChanged(const QUuid &processor); ///< null: none
    void notifyLayoutCommitted(const QUuid &processor);
    void notifyTold(const QString &words); ///< for the status bar
    void notifyScreenRequested(bool shown);
    void notifyTypeLibraryRequested(QWidget *parent);
    /// The cabinets highlighted on the wall, instead of the previous ones.
    void notifyHighlightChanged(const QUuid &processor,
                                const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                                CabinetHighlight highlight);
    void notifyNumbersShownChanged(const QUuid &processor, bool shown); ///< on the cabinets
    void notifyStatusLedChanged(const QUuid &processor, bool on);

private:
    CMailbox &m_mailbox;
    std::atomic<bool> m_stateWaits{false}; // announceState() was called, but the signal is not sent yet
    CUpdateThread m_updates;               // last
};
