// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QUuid>
#include <QVector>

class CEditBatches;
class CGraphicsScene;
class CSceneContent;
class CSceneSelection;

/// Selects many items at once, announced as one change. GUI thread.
class CSelectionPicks final
{
public:
    CSelectionPicks(CGraphicsScene &scene, CEditBatches &batches, const CSceneContent &content,
                    const CSceneSelection &selection)
        : m_scene(scene)
        , m_batches(batches)
        , m_content(content)
        , m_selection(selection)
    {
    }

    /// Selects everything, groups as wholes.
    void all();
    /// Selects or deselects all items of @p port, groups as wholes.
    void port(int port, bool selected);
    /// Whether all items of @p port are selected, groups as wholes; false if there are none.
    bool isWhole(int port) const;
    /// Selects exactly the items with these identities; unknown ones are ignored.
    void only(const QVector<QUuid> &uuids);
    /// Selects all cabinets in the same port that have the same type as the given one. If it has no type:
    /// those without a type and of the same size. For a group, its first cabinet is compared.
    void sameType(const QUuid &uuid);

private:
    CGraphicsScene &m_scene;
    CEditBatches &m_batches;
    const CSceneContent &m_content;
    const CSceneSelection &m_selection;
};
