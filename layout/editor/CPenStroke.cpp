// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CPenStroke.h"

#include "layout/editor/CUndoRecorder.h"
#include "layout/editor/CWiringRecorder.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"

#include <QSet>

CPenStroke::CPenStroke(IEditorScene &scene, CGraphicsPortItem &port, const CGraphicsCabinetItem &first)
    : m_scene(scene)
    , m_port(port.port())
    , m_stroke({first.uuid()})
{
}

void CPenStroke::enter(const CGraphicsCabinetItem &cabinet)
{
    if (cabinet.port() == m_port && !m_stroke.contains(cabinet.uuid()))
        m_stroke << cabinet.uuid();
}

QVector<CGraphicsCabinetItem *> CPenStroke::drawnCabinets() const
{
    QVector<CGraphicsCabinetItem *> cabinets;
    for (const QUuid &uuid : m_stroke) {
        CGraphicsItemBase *item = m_scene.editedItem(uuid);
        if (item && item->type() == CabinetItemKind)
            cabinets << static_cast<CGraphicsCabinetItem *>(item);
    }
    return cabinets;
}

QPolygonF CPenStroke::path() const
{
    QPolygonF path;
    for (const CGraphicsCabinetItem *cabinet : drawnCabinets())
        path << cabinet->mapRectToScene(cabinet->rect()).center();
    return path;
}

QVector<CGraphicsCabinetItem *> CPenStroke::chain() const
{
    const CGraphicsPortItem *owner = m_scene.portItem(m_port);
    if (!owner)
        return {};
    const QVector<CGraphicsCabinetItem *> stroke = drawnCabinets();
    const QSet<CGraphicsCabinetItem *> drawn(stroke.begin(), stroke.end());
    QVector<CGraphicsCabinetItem *> result;
    bool placed = stroke.isEmpty();
    for (CGraphicsCabinetItem *cabinet : owner->chain().order()) {
        if (!placed && cabinet == stroke.first()) {
            result += stroke;
            placed = true;
        } else if (!drawn.contains(cabinet)) {
            result << cabinet;
        }
    }
    return placed ? result : result + stroke;
}

void CPenStroke::finish(CUndoRecorder &recorder) const
{
    CGraphicsPortItem *owner = m_scene.portItem(m_port);
    if (!owner)
        return;
    const CEditBatch batch(m_scene);
    const CUndoMacro macro(recorder, QStringLiteral("createTopologyWiring"),
                           QStringLiteral("createTopologyWiring"));
    CWiringRecorder::rechain(recorder, *owner, chain());
}
