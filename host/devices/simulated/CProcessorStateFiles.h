// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/CProcessorCodec.h"
#include "host/projects/SFileStamp.h"

#include <QCoreApplication>
#include <QUuid>

#include <functional>

/// The stored state of a simulated processor on disk: one file for its settings, one for its mapping, each
/// written whole or not at all. A file that could not be read is never overwritten. Call load() first; then
/// save() may be called on any thread.
class CProcessorStateFiles final
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorStateFiles)

public:
    using Factory = std::function<SProcessorState()>;
    enum Part { Settings, Mapping };

    /// How the files are read: a guest changes nothing on the disk.
    enum Reader { Owner, Guest };

    CProcessorStateFiles(QString folder, const QUuid &processor);

    /// Reads the files. A part comes from @p factory if its file is missing, damaged, unreadable at the
    /// moment, or of a newer version. A damaged file is renamed to end in ".damaged" or, if that name is
    /// taken, ".damaged2" and so on. A part whose file is unreadable or newer is closed from then on. Each of
    /// these causes a warning, except a missing file. For a guest, a damaged file is one that is unreadable.
    SProcessorState load(const Factory &factory, Reader reader = Owner);
    /// Whether the files are still those that were loaded last.
    bool areAsLoaded() const;
    /// Call after a part was stored here: it counts as loaded.
    void noteStored(Part part) { m_stamps[part] = SFileStamp::of(fileOf(part)); }
    /// Whether the content of the part's file is unknown, so that it must not be overwritten.
    bool isClosed(Part part) const { return m_closed[part]; }
    /// Also fails for a record that could not be read again, and for a closed part.
    CStatus save(const SProcessorSettings &settings) const;
    CStatus save(const SProcessorMapping &mapping) const;

    QString settingsFile() const { return m_base + QStringLiteral(".settings"); }
    QString mappingFile() const { return m_base + QStringLiteral(".mapping"); }

private:
    template <typename Record, typename Decode>
    Record loadPart(Part part, Reader reader, const Record &factory, const Decode &decode);
    QString fileOf(Part part) const { return part == Settings ? settingsFile() : mappingFile(); }
    void close(Part part, const QString &reason);
    void setAside(Part part, const QString &file, const QString &reason);
    template <typename Record, typename Decode>
    CStatus savePart(Part part, const QString &file, const Record &record, const Decode &decode) const;

    QString m_folder;
    QString m_base;
    bool m_closed[2] = {false, false}; ///< by part
    SFileStamp m_stamps[2];            ///< by part, when it was loaded
};
