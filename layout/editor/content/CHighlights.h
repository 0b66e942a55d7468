// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/editor/items/IEditing.h"

#include <QSet>

class CGraphicsCabinetItem;

/// Keeps which cabinets of a scene are highlighted on the canvas and on the wall. GUI thread.
class CHighlights final
{
public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    explicit CHighlights(IEditing &editing)
        : m_editing(editing)
    {
    }

    /// Takes the report of an item. An item that leaves the scene must report false.
    void note(CGraphicsCabinetItem &cabinet, bool highlighted);
    void clear();

    /// Handles a press on @p cabinet: highlights it alone, or nothing if it alone was highlighted; with
    /// @p adding, toggles it and keeps the others highlighted.
    void press(CGraphicsCabinetItem &cabinet, bool adding);

    /// Ordered by port, then as in the records.
    QList<Cabinet> records() const;

private:
    IEditing &m_editing;
    QSet<CGraphicsCabinetItem *> m_cabinets;
};
