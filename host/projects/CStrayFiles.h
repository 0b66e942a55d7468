// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

/// The files that a killed process leaves behind when writing, and how they are cleaned up. A writer holds
/// the lock of the folder; so whoever holds it knows that stray files belong to no running process.
class CStrayFiles final
{
public:
    /// The path of a new file in the folder of @p file. It is a stray until it gets another name.
    static QByteArray newFile(const QByteArray &file);
    /// The path of the previous generation of @p file; @p age 2 and more: of older ones.
    static QByteArray previous(const QByteArray &file, int age = 1);
    /// The path where the content of @p file is kept while it is being replaced.
    static QByteArray pending(const QByteArray &file) { return file + "~new"; }
    static QByteArray folderOf(const QByteArray &file);
    /// Makes the pending content of @p file its previous generation; those before grow older, and the oldest
    /// one goes if there is no room. If this fails the pending content stays.
    static void keepPending(const QByteArray &file);

    /// Cleans up around @p file; the lock of its folder must be held. Removes new files that were never
    /// renamed; a file that was being replaced becomes the previous generation if its replacement is there.
    static void clean(const QByteArray &file);
    /// The same; does nothing and returns false if another process holds the lock, or the folder cannot be
    /// opened.
    static bool cleanUnlessUsed(const QByteArray &file);

private:
    static void removeNewFiles(const QByteArray &folder);
    static void settlePending(const QByteArray &file);
};
