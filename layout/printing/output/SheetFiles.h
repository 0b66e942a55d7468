// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"

#include <QByteArray>
#include <QDate>

#include <functional>

/// Turns sheets into the content of files. Any thread; needs a QGuiApplication. An empty result: cancelled,
/// or out of memory.
namespace SheetFiles {

/// Told how many sheets are done; returns whether to go on.
using Progress = std::function<bool(int done)>;

/// Letters on the sheets that no installed font has; empty if there are none.
QString missingLetters(const QVector<SSheet> &sheets);

/// All sheets as one PDF, with vectors and embedded fonts. The same sheets, title and date give the same
/// bytes.
QByteArray pdf(const QVector<SSheet> &sheets, const QString &title, const QDate &date,
               const Progress &progress = {});
/// One sheet as an SVG.
QByteArray svg(const SSheet &sheet, const QString &title);
/// One sheet as a PNG.
QByteArray png(const SSheet &sheet, int dotsPerInch);

} // namespace SheetFiles
