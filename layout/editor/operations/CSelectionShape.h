// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"

#include <QCoreApplication>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsItemBase;
class CSceneSelection;
class CUndoRecorder;
class IEditing;

/// Sets position, size, arrangement or type of the selection. Each edit cancels a gesture in progress and
/// makes one undo step. Each does nothing at all if a port that it would change is locked. GUI thread.
class CSelectionShape final
{
    Q_DECLARE_TR_FUNCTIONS(CSelectionShape)

public:
    using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    CSelectionShape(IEditing &editing, const CSceneSelection &selection, CUndoRecorder &recorder)
        : m_editing(editing)
        , m_selection(selection)
        , m_recorder(recorder)
    {
    }

    /// Moves the selection as a whole, so that the upper left corner of its extent is at @p wanted, canvas
    /// pixels; what is beyond the limits counts as the limit, and the status bar says so.
    void moveTo(const QPoint &wanted);
    /// Scales the selection as a whole, so that its extent gets @p size; the upper left corner stays, what
    /// stands side by side stays so. Groups are scaled with their members, as by their handles; receiver
    /// areas are scaled and keep at least one pixel. Does nothing if a selected item cannot be resized, or if
    /// a cabinet would get a size that is not allowed.
    void resizeTo(const QSize &size);
    /// Arranges the selected items in a grid of @p rank columns and rows, beginning at the upper left corner
    /// of their extent: row by row in the order of their present positions or, where that does not give these
    /// rows, column by column. The largest item sets the pitch.
    void arrange(const QSize &rank);
    /// Gives all selected cabinets @p type and its size; the upper left corners stay.
    void applyType(const TypeInfo &type);

private:
    struct STarget
    {
        CGraphicsCabinetItem *cabinet;
        QRect place;
    };

    /// Why the cabinets cannot get these sizes; empty if they can.
    static QString obstacleTo(const QVector<STarget> &targets);
    void move(CGraphicsItemBase &item, const QPointF &target);
    void resize(CGraphicsItemBase &item, const QSize &size);

    IEditing &m_editing;
    const CSceneSelection &m_selection;
    CUndoRecorder &m_recorder;
};
