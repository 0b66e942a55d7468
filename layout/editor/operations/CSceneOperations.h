// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QPointF>
#include <QUuid>
#include <QVector>

class CGraphicsPortItem;
class CSceneContent;
class CSceneSelection;
class CUndoRecorder;
class IEditing;

/// Edits of the scene's selection. Each cancels a gesture in progress and makes one undo step. Each does
/// nothing at all if a port that it would change is locked. GUI thread.
class CSceneOperations final
{
    Q_DECLARE_TR_FUNCTIONS(CSceneOperations)

public:
    CSceneOperations(IEditing &editing, CSceneContent &content, const CSceneSelection &selection,
                     CUndoRecorder &recorder)
        : m_editing(editing)
        , m_content(content)
        , m_selection(selection)
        , m_recorder(recorder)
    {
    }

    void wireByPattern(uint pattern);
    void breakSelectedWiring();
    /// Clears the whole topology of a port.
    void breakPortWiring(int port);
    /// Returns whether @p port cannot be edited; if it exists, the status bar says why.
    bool isRefused(int port) const;
    void group();
    void ungroup();
    void remove();
    /// Moves each selected item by @p step, but not beyond the top and left edges of the canvas; @p again: as
    /// part of the same undo step as before.
    void nudge(const QPointF &step, bool again = false);
    /// Reverses the receivers of a cabinet, unless its direction is fixed.
    void exchangeReceivers(const QUuid &cabinet);
    /// Removes grouping and wiring of a port that becomes the redundancy of another one.
    void prepareBackup(int port);

private:
    QVector<CGraphicsPortItem *> ports() const;

    IEditing &m_editing;
    CSceneContent &m_content;
    const CSceneSelection &m_selection;
    CUndoRecorder &m_recorder;
    int m_nudged = -1; // the recorder's count of steps after the last nudge
};
