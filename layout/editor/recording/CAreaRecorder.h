// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSizeF>

class CGraphicsItemBase;
class CUndoRecorder;

/// Records that the receiver areas and blanks of a cabinet follow its size.
class CAreaRecorder final
{
public:
    /// @p item has its new size and its place; a group has no areas.
    static void scale(CUndoRecorder &recorder, CGraphicsItemBase &item, const QSizeF &from, const QSizeF &to);
};
