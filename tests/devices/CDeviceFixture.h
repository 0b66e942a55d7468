// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/CDeviceManager.h"
#include "host/devices/CLayoutHandler.h"
#include "platform/control/CObserver.h"
#include "platform/control/CSubject.h"

#include <QStringList>
#include <QTemporaryDir>

#include <mutex>

/// Records notifications as text: "26 <uuid>", "11 1 2 on".
class CNotificationLog final : public CObserver
{
public:
    void Update(CSubject &subject) override;
    QStringList take();        ///< since the last call
    QString waitFor(int code); ///< the text of the next notification with that code; empty if none comes

private:
    std::mutex m_mutex;
    QStringList m_texts;
};

/// A device manager with the simulated park, without delays and after a detection, with its handler and a log
/// of its notifications.
struct CDeviceFixture
{
    /// @p stateFolder: where the processors keep their state; empty: a temporary folder.
    /// @p journalFolder: where unsaved edits are kept; empty: nowhere.
    explicit CDeviceFixture(double delayScale = 0, const QString &stateFolder = {},
                            const QString &journalFolder = {});
    ~CDeviceFixture();

    static QString idOf(const QUuid &uuid) { return uuid.toString(QUuid::WithoutBraces); }
    /// The processor of that name in the park.
    QUuid named(const char *name) const;
    void select(const QUuid &processor);
    CabinetLayout layoutOf(const QUuid &processor) const;
    /// Lets @p start begin a job and waits for its outcome.
    SDeviceOutcome outcomeOf(const std::function<void(CDeviceJobs::Done)> &start);
    SDeviceOutcome detect();
    /// Switches off all processors of the park except that one, and detects: quick even with long delays.
    QUuid detectAlone(const char *name);
    SDeviceOutcome save(const QUuid &processor);
    SDeviceOutcome read(const QUuid &processor);
    /// Waits until the modules know of a layout that has replaced another.
    void settle(const QUuid &processor);
    /// Commits the processor's layout with one cabinet of @p port moved, as the module would.
    void edit(const QUuid &processor, int port = 0);
    void lockPort(const QUuid &processor, int port, bool locked = true);
    /// Waits for the notification with code 2; returns everything notified so far.
    QStringList notifiedUpToDetection();

    QTemporaryDir folder;
    CDeviceManager manager;
    CLayoutHandler handler;
    CNotificationLog log;
    QUuid lobby, stage, left, right; ///< the processors of these names, when all were detected
};
