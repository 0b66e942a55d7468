// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QImage>
#include <QObject>
#include <QSize>
#include <QStringList>

#include <atomic>
#include <thread>

/// Reads project files one after the other on a thread of its own, and draws a small picture of each.
class CVersionReader final : public QObject
{
    Q_OBJECT

public:
    explicit CVersionReader(QSize picture, QObject *parent = nullptr);
    ~CVersionReader() override; ///< waits for the file that is being read

    /// Begins; call once.
    void read(const QStringList &files);

Q_SIGNALS:
    /// The file with that place in the list: its picture and what it holds in a word; a null picture and what
    /// is wrong with it if it cannot be read. From the thread.
    void notifyRead(int place, const QImage &picture, const QString &text);

private:
    void readOne(int place, const QString &file);

    const QSize m_picture;
    std::atomic<bool> m_stopped{false};
    std::thread m_thread;
};
