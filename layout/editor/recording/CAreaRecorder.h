// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSizeF>

class CGraphicsItemBase;
class CUndoRecorder;

/// Records that receiver areas and blanks are scaled with their cabinet.
class CAreaRecorder final
{
public:
    /// @p item already has its new size and position. Does nothing for a group, which has no areas.
    static void scale(CUndoRecorder &recorder, CGraphicsItemBase &item, const QSizeF &from, const QSizeF &to);
};
