// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

/// What writing leaves behind when its process is killed, and how it is tidied up. Whoever writes holds the
/// lock of the folder; so what is found by one who holds it belongs to nobody that still lives.
class CStrayFiles final
{
public:
    /// The path of a new file in the folder of @p file. It is a stray until it gets another name.
    static QByteArray newFile(const QByteArray &file);
    /// Where the previous generation of @p file is kept.
    static QByteArray previous(const QByteArray &file) { return file + '~'; }
    /// Where what is in @p file is kept while it is being replaced.
    static QByteArray pending(const QByteArray &file) { return file + "~new"; }
    static QByteArray folderOf(const QByteArray &file);

    /// Tidies up around @p file, with the lock of its folder held: new files that never got their name are
    /// removed; what was being replaced becomes the previous generation when its replacement is there.
    static void clean(const QByteArray &file);
    /// The same, but nothing while somebody else holds the lock.
    static void cleanUnlessUsed(const QByteArray &file);

private:
    static void removeNewFiles(const QByteArray &folder);
    static void settlePending(const QByteArray &file);
};
