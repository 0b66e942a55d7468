// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"

#include <QPair>

/// Finds what a sheet tells, and where.
namespace SheetTexts {

QVector<SSheetText> of(const SSheet &sheet);
/// All texts, one after the other.
QString whole(const SSheet &sheet);
bool has(const SSheet &sheet, const char *wanted);
/// Where the letters of a text are, without the air around them.
QRectF lettersOf(const SSheetText &text);
QRectF extentOf(const SSheetMark &mark);
/// Whether something without width or height is within, too.
bool isWithin(const QRectF &outer, const QRectF &inner);
/// A text that touches another one, "a / b"; empty if there is none.
QString touching(QVector<QPair<QRectF, QString>> placed);
QString touching(const SSheet &sheet);

} // namespace SheetTexts
