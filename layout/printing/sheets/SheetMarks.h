// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"

/// What most sheets are made of.
namespace SheetMarks {

constexpr double TitlePoints = 28;
constexpr double NumberPoints = 26; ///< of a large cabinet
constexpr double PortPoints = 20;   ///< on the overview
constexpr double ViewPoints = 18;   ///< of the view box
constexpr double TitleBlockPoints = 11;
constexpr double FactPoints = 9.5;
constexpr double TablePoints = 9;
constexpr double NotePoints = 8.5;
constexpr double CaptionPoints = 7; ///< the smallest

constexpr double HeadBase = 8.6; ///< of the name in the head of a sheet, below the top of the content

void line(SSheet &sheet, const QPointF &from, const QPointF &to, double width);
void rectangle(SSheet &sheet, const QRectF &rect, double width);
void fill(SSheet &sheet, const QRectF &rect, const QColor &color, int hatching = 0);
SSheetText text(const QRectF &box, const QString &text, double points, bool bold, EMark mark,
                Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);
/// A text that begins at @p left on the base line @p base. Returns where it ends.
double textAt(SSheet &sheet, double left, double base, const QString &text, double points, bool bold,
              EMark mark);

/// Moves everything on the sheet and its frame.
void move(SSheet &sheet, const QPointF &by);

/// The sheet's name with what stands beside it, and with @p viewSign "FRONT VIEW" or "BACK VIEW" at the
/// right. Returns what is left of @p content below.
QRectF head(SSheet &sheet, const QRectF &content, const QString &name, const QString &beside, bool viewSign);

} // namespace SheetMarks
