// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"

#include <QPoint>
#include <QSize>

class CGraphicsItemBase;
class CSceneSelection;
class CUndoRecorder;
class IEditing;

/// Sets position, size, arrangement or type of the selection. Each edit cancels a gesture in progress and
/// makes one undo step. Each does nothing at all if a port that it would change is locked. GUI thread.
class CSelectionShape final
{
public:
    using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    CSelectionShape(IEditing &editing, const CSceneSelection &selection, CUndoRecorder &recorder)
        : m_editing(editing)
        , m_selection(selection)
        , m_recorder(recorder)
    {
    }

    /// Moves the selection as a whole, so that the upper left corner of its extent is at @p corner, canvas
    /// pixels.
    void moveTo(const QPoint &corner);
    /// Gives each selected cabinet that is in no group @p size. The upper left corners stay; receiver areas
    /// are scaled and keep at least one pixel.
    void resizeTo(const QSize &size);
    /// Arranges the selected items in rows of @p columns items, in the order of their present positions,
    /// beginning at the upper left corner of their extent. The largest item sets the pitch.
    void arrange(int columns);
    /// Gives all selected cabinets @p type and its size; the upper left corners stay.
    void applyType(const TypeInfo &type);

private:
    void move(CGraphicsItemBase &item, const QPointF &target);

    IEditing &m_editing;
    const CSceneSelection &m_selection;
    CUndoRecorder &m_recorder;
};
