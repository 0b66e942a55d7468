// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QUuid>
#include <QVector>

class CGraphicsPortItem;
class CSceneContent;
class CSceneSelection;
class CUndoRecorder;
class IEditing;

/// The edits of the scene's selection. Each puts a gesture in progress back and makes one undo step; it does
/// nothing at all when a port that it would change is locked. GUI thread.
class CSceneOperations final
{
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
    void group();
    void ungroup();
    void remove();
    /// Moves by a step in parent coordinates; towards the top and the left not beyond the scene's origin.
    void nudge(const QPointF &step);
    /// Reverses the receivers of a cabinet, unless its direction is fixed.
    void exchangeReceivers(const QUuid &cabinet);
    /// Takes grouping and wiring from a port that becomes the redundancy of another.
    void prepareBackup(int port);

private:
    QVector<CGraphicsPortItem *> ports() const;

    IEditing &m_editing;
    CSceneContent &m_content;
    const CSceneSelection &m_selection;
    CUndoRecorder &m_recorder;
};
