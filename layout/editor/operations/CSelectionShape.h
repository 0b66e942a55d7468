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

/// Gives the selection a place, a size, an arrangement or a type in figures. Each puts a gesture in
/// progress back and makes one undo step; it does nothing when a port that it would change is locked. GUI
/// thread.
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

    /// Moves the selection as a whole, so that the corner of its extent lies at @p corner, canvas pixels.
    void moveTo(const QPoint &corner);
    /// Gives each selected cabinet that lies in no group @p size; the upper left corners stay, the
    /// receivers follow, and each of them keeps a pixel.
    void resizeTo(const QSize &size);
    /// Puts the selected items side by side in rows of @p columns, in the order in which they lie now, from
    /// the corner of their extent on. The largest item sets the pitch.
    void arrange(int columns);
    /// Gives all selected cabinets the type, and its size; the upper left corners stay.
    void applyType(const TypeInfo &type);

private:
    void move(CGraphicsItemBase &item, const QPointF &target);

    IEditing &m_editing;
    const CSceneSelection &m_selection;
    CUndoRecorder &m_recorder;
};
