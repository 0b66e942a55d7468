// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CJournals.h"
#include "host/projects/CFileSystem.h"
#include "tests/journal/CRecordingEditor.h"

#include <QDir>
#include <QTemporaryDir>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <mutex>
#include <new>
#include <thread>

/// A disk that fills up, in the middle of a write, and gets room again.
class CSwitchedDisk final : public CFileSystem
{
public:
    explicit CSwitchedDisk(bool isOfThisMachine = true)
        : local(isOfThisMachine)
    {
        setCurrent(this);
    }
    ~CSwitchedDisk() override { setCurrent(nullptr); }

    std::atomic<bool> full{false};
    std::atomic<bool> refusesSync{false};
    std::atomic<bool> hasNoMemory{false};
    std::atomic<bool> hangs{false}; // in a write, but not for ever
    std::atomic<bool> local;
    std::atomic<bool> keepsFiles{false};
    std::atomic<int> syncs{0};
    /// Files whose names contain this are not opened before it is null.
    std::atomic<const char *> held{nullptr};

    int open(const QByteArray &path, int flags, mode_t mode) override
    {
        for (const char *name = held; name && path.contains(name); name = held)
            std::this_thread::yield();
        return CFileSystem::open(path, flags, mode);
    }
    qint64 write(int file, const char *data, qint64 size) override
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (hangs) {
            std::this_thread::yield();
            if (std::chrono::steady_clock::now() > end)
                hangs = false;
        }
        if (hasNoMemory)
            throw std::bad_alloc();
        if (!full)
            return CFileSystem::write(file, data, size);
        if (size > 1)
            return CFileSystem::write(file, data, size / 2);
        errno = ENOSPC;
        return -1;
    }
    int unlink(const QByteArray &path) override
    {
        errno = EACCES;
        return keepsFiles ? -1 : CFileSystem::unlink(path);
    }
    bool isLocal(const QByteArray &) override { return local; }
    std::mutex syncGate; // who has it makes the disk hang

    int sync(int file) override
    {
        ++syncs;
        const std::lock_guard<std::mutex> gate(syncGate);
        if (!refusesSync)
            return CFileSystem::sync(file);
        errno = EIO;
        return -1;
    }
};

/// A folder with journals, and what they told.
struct SJournalWorld
{
    QTemporaryDir root;
    QString folder = root.filePath(QStringLiteral("state/journal"));
    std::mutex mutex;
    QStringList told;
    std::atomic<int> arrived{0};
    CJournals journals{folder,
                       [this](const QString &text) {
                           const std::lock_guard<std::mutex> lock(mutex);
                           told << text;
                       },
                       [this](const QUuid &) { ++arrived; }};

    void editOnceAndEnd(CRecordingEditor &editor);
    int toldCount()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return told.size();
    }
    QStringList files() const { return QDir(folder).entryList(QDir::Files); }
    QList<SStrayJournal> strays() const { return CJournalFolder(folder).strays(); }
};

SJournalOwner ownerOf(const CRecordingEditor &editor, const QString &file = {});
/// Whether exactly what @p editor has done is offered.
bool offers(const QList<SStrayJournal> &strays, const CRecordingEditor &editor);
CRecordingEditor smallEditor(quint32 seed = 1);
