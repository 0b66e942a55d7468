// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/SBackgroundInfo.h"

#include <QVector>

/// What the store is told to announce after a notification of the host has updated its data. Any thread;
/// never called under the lock.
class IStoreEvents
{
public:
    virtual ~IStoreEvents() = default;

    virtual void detectFinished() = 0;
    virtual void processorStateChanged() = 0;
    virtual void canvasSizeChanged(const QSize &size) = 0;
    /// @p canvasSizeChanged: the canvas size has changed, too, and was not announced yet.
    virtual void backgroundChanged(const SBackgroundInfo &before, const SBackgroundInfo &now,
                                   bool canvasSizeChanged) = 0;
    virtual void portBackupChanged(int primary, int backup, bool on) = 0;
    virtual void layoutReplaced(const QUuid &processor) = 0;
    /// The host may know other unsaved edits of the layout in the editor than before.
    virtual void unsavedEditsMayDiffer() = 0;
    /// The current port may differ from the one announced last.
    virtual void currentPortMayDiffer() = 0;
    /// Nothing is highlighted on the wall any more.
    virtual void highlightEnded() = 0;
    /// When the processor's load is announced.
    enum class Announced { IfDifferent, Always };
    /// The loads of @p ports may have changed: asks the host, and announces those that have; then the
    /// processor's.
    virtual void loadsMayDiffer(const QVector<int> &ports, Announced processor = Announced::IfDifferent) = 0;
    /// The processor's load may differ from the one announced last; that of another processor always does.
    virtual void processorLoadMayDiffer(Announced when = Announced::IfDifferent) = 0;
    /// The object whose slots are invoked by name; null: none.
    virtual QObject *controller() const = 0;
};
