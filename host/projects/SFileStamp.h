// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// Tells whether a file is still the one that was read or written before. Every saving gives a file another
/// stamp.
struct SFileStamp
{
    bool exists = false;
    quint64 device = 0; ///< another one after a restart, at times; 0: unknown, equal to any
    quint64 node = 0;   ///< number of the file on its device
    qint64 size = 0;
    qint64 seconds = 0; ///< of the last change
    qint64 nanoseconds = 0;

    /// The stamp of @p file now. May wait for a slow disk.
    static SFileStamp of(const QString &file);

    friend bool operator==(const SFileStamp &a, const SFileStamp &b);
    friend bool operator!=(const SFileStamp &a, const SFileStamp &b) { return !(a == b); }
};
