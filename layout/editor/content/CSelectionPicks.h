// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QUuid>
#include <QVector>

class CEditBatches;
class CGraphicsScene;
class CSceneContent;
class CSceneSelection;

/// Selects many items at once, told as one change. GUI thread.
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

    /// Everything, groups as wholes.
    void all();
    /// What a port holds, groups as wholes, or no longer.
    void port(int port, bool selected);
    /// Those of the items that exist.
    void only(const QVector<QUuid> &uuids);
    /// All cabinets of its port that have the type of the given one; without a type, those of its size that
    /// have none either. Of a group the first cabinet counts.
    void sameType(const QUuid &uuid);

private:
    CGraphicsScene &m_scene;
    CEditBatches &m_batches;
    const CSceneContent &m_content;
    const CSceneSelection &m_selection;
};
