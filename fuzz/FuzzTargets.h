// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// What can be given arbitrary bytes, by a fuzzer or from the corpus. Each target makes the digests in the
/// bytes right, feeds them to the program, and checks what must hold afterwards. Needs a QApplication; GUI
/// thread.
namespace FuzzTargets {

/// Returns the fault that the bytes have revealed; empty if there is none.
using Run = QString (*)(const QByteArray &bytes);

struct STarget
{
    const char *name; ///< also of its folder in the corpus
    Run run;
    bool isJson; ///< the bytes hold JSON, after a header line or alone
};

const QVector<STarget> &all();

// The readers of files.
QString project(const QByteArray &bytes);
QString port(const QByteArray &bytes);
QString configuration(const QByteArray &bytes);
QString currentGain(const QByteArray &bytes);
QString typeLibrary(const QByteArray &bytes);
QString state(const QByteArray &bytes);
QString journal(const QByteArray &bytes);
/// The file of settings, as it may have been edited by hand.
QString settings(const QByteArray &bytes);
/// A layout that is shown, copied to the clipboard, and pasted again.
QString clipboard(const QByteArray &bytes);
/// Four bytes choose a world; each further three are a kind of operation and its random numbers.
QString operations(const QByteArray &bytes);

} // namespace FuzzTargets
