// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CHighlights.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"

#include <algorithm>
#include <tuple>

void CHighlights::note(CGraphicsCabinetItem &cabinet, bool highlighted)
{
    if (highlighted)
        m_cabinets.insert(&cabinet);
    else
        m_cabinets.remove(&cabinet);
}

void CHighlights::clear()
{
    const CEditBatch batch(m_editing);
    const QSet<CGraphicsCabinetItem *> before = m_cabinets; // each one leaves the set when its highlight ends
    for (CGraphicsCabinetItem *cabinet : before)
        cabinet->setHighlighted(false);
}

void CHighlights::press(CGraphicsCabinetItem &cabinet, bool adding)
{
    const CEditBatch batch(m_editing);
    const bool wasAlone = cabinet.isHighlighted() && m_cabinets.size() == 1;
    const bool on = adding ? !cabinet.isHighlighted() : !wasAlone;
    if (!adding)
        clear();
    cabinet.setHighlighted(on);
}

QList<CHighlights::Cabinet> CHighlights::records() const
{
    QVector<CGraphicsCabinetItem *> sorted(m_cabinets.begin(), m_cabinets.end());
    std::sort(sorted.begin(), sorted.end(), [](const CGraphicsCabinetItem *a, const CGraphicsCabinetItem *b) {
        return std::make_tuple(a->port(), a->ordinal()) < std::make_tuple(b->port(), b->ordinal());
    });
    QList<Cabinet> records;
    for (const CGraphicsCabinetItem *cabinet : qAsConst(sorted))
        records << cabinet->cabinet();
    return records;
}
