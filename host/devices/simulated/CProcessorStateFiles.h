// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/CProcessorCodec.h"

#include <QCoreApplication>
#include <QUuid>

#include <functional>

/// The memory of a simulated processor on disk: one file for its settings, one for its mapping, each written
/// whole or not at all. What could not be read is never overwritten. load() comes first; then save() may be
/// called on any thread.
class CProcessorStateFiles final
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorStateFiles)

public:
    using Factory = std::function<SProcessorState()>;
    enum Part { Settings, Mapping };

    CProcessorStateFiles(QString folder, const QUuid &processor);

    /// What is on disk; a part that is not there is as @p factory makes it. So is one whose file is damaged,
    /// which is kept beside it under a name that ends in ".damaged" or, when that is taken, in ".damaged2"
    /// and so on; and one whose file cannot be read now or is of a newer version, which is closed from then
    /// on. A warning says so.
    SProcessorState load(const Factory &factory);
    /// Whether the part's file holds something that is not known, so that nothing is saved over it.
    bool isClosed(Part part) const { return m_closed[part]; }
    /// Fails, too, for what could not be read again, and for a part that is closed.
    CStatus save(const SProcessorSettings &settings) const;
    CStatus save(const SProcessorMapping &mapping) const;

    QString settingsFile() const { return m_base + QStringLiteral(".settings"); }
    QString mappingFile() const { return m_base + QStringLiteral(".mapping"); }

private:
    template <typename Record, typename Decode>
    Record loadPart(Part part, const QString &file, const Record &factory, const Decode &decode);
    void close(Part part, const QString &reason);
    void setAside(Part part, const QString &file, const QString &reason);
    template <typename Record, typename Decode>
    CStatus savePart(Part part, const QString &file, const Record &record, const Decode &decode) const;

    QString m_folder;
    QString m_base;
    bool m_closed[2] = {false, false}; ///< by part
};
