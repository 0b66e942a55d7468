// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QUuid>
#include <QVector>

class CGraphicsPortItem;
class CSceneSelection;
class CUndoRecorder;
class IEditorScene;
struct LayoutData;

/// The edits of the scene's selection. Each makes one undo step, and does nothing at all when a port that it
/// would change is locked. GUI thread.
class CSceneOperations final
{
public:
    CSceneOperations(IEditorScene &scene, const CSceneSelection &selection, CUndoRecorder &recorder)
        : m_scene(scene)
        , m_selection(selection)
        , m_recorder(recorder)
    {
    }

    void wireByPattern(uint pattern);
    void breakSelectedWiring();
    void breakPortWiring(CGraphicsPortItem &port);
    /// The new group stands at @p ordinal among the records.
    void group(qint64 ordinal);
    void ungroup();
    void remove();
    /// Moves by a step in parent coordinates; towards the top and the left not beyond the scene's origin.
    void nudge(const QPointF &step);
    /// Reverses the receivers of a cabinet, unless its direction is fixed.
    void exchangeReceivers(const QUuid &cabinet);
    /// Takes grouping and wiring from a port that becomes the redundancy of another.
    void prepareBackup(CGraphicsPortItem &port);

private:
    QVector<CGraphicsPortItem *> ports() const;

    IEditorScene &m_scene;
    const CSceneSelection &m_selection;
    CUndoRecorder &m_recorder;
};
