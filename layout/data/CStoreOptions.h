// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"
#include "platform/common/CReadWriteLock.h"

#include <QList>
#include <QPair>
#include <QUuid>

/// The user's options for the canvas.
struct SLayoutOptions
{
    bool followUp = true;              ///< the host follows up layouts handed to it
    bool markupCustomCabinets = false; ///< custom-defined cabinets are marked
    bool resetHighlightOnEdit = true;  ///< editing cabinets without a type ends their highlight

    friend bool operator==(const SLayoutOptions &a, const SLayoutOptions &b)
    {
        return a.followUp == b.followUp && a.markupCustomCabinets == b.markupCustomCabinets &&
               a.resetHighlightOnEdit == b.resetHighlightOnEdit;
    }
    friend bool operator!=(const SLayoutOptions &a, const SLayoutOptions &b) { return !(a == b); }
};

/// What the store holds for all processors together: options, pairs of processors, type library. Protected by
/// one lock; any thread.
class CStoreOptions final
{
public:
    using TypeLibrary = QVector<SSettings::TypeLibrary::STreeNode>;

    SLayoutOptions layout() const;
    bool setLayout(const SLayoutOptions &options); ///< false: unchanged
    /// The pairs (primary, redundancy).
    QList<QPair<QUuid, QUuid>> processorRedundancies() const;
    bool setProcessorRedundancies(const QList<QPair<QUuid, QUuid>> &pairs); ///< false: unchanged
    TypeLibrary typeLibrary() const;
    void setTypeLibrary(TypeLibrary library);

private:
    mutable CReadWriteLock m_lock;
    SLayoutOptions m_layout ORVO_GUARDED_BY(m_lock);
    QList<QPair<QUuid, QUuid>> m_processorPairs ORVO_GUARDED_BY(m_lock);
    TypeLibrary m_typeLibrary ORVO_GUARDED_BY(m_lock);
};
