// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/editor/items/IEditing.h"

#include <QSet>

class CGraphicsCabinetItem;

/// The cabinets of a scene that stand out on the canvas and on the wall. GUI thread.
class CHighlights final
{
public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    explicit CHighlights(IEditing &editing)
        : m_editing(editing)
    {
    }

    /// What an item reports of itself; one that leaves the scene is highlighted no more.
    void note(CGraphicsCabinetItem &cabinet, bool highlighted);
    void clear();

    /// A press on @p cabinet: it alone stands out, or none when it did so already; with @p adding it joins or
    /// leaves the others.
    void press(CGraphicsCabinetItem &cabinet, bool adding);

    /// In the order of ports and records.
    QList<Cabinet> records() const;

private:
    IEditing &m_editing;
    QSet<CGraphicsCabinetItem *> m_cabinets;
};
