// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/history/CRestoredStep.h"

#include "layout/editor/content/CLayoutReader.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <QLoggingCategory>
#include <QSet>

#include <utility>

namespace {
Q_LOGGING_CATEGORY(historyLog, "orvo.layout.history")
}

CRestoredStep::CRestoredStep(std::shared_ptr<const CStepValues> values, CSceneContent &content,
                             const bool &inert)
    : QUndoCommand(values->text())
    , m_values(std::move(values))
    , m_content(content)
    , m_inert(inert)
{
}

void CRestoredStep::undo()
{
    if (m_inert)
        return;
    m_ordinals = m_content.ordinals(ports());
    apply(CPortDelta::Before);
}

void CRestoredStep::redo()
{
    if (m_inert)
        return;
    const auto ordinals = std::exchange(m_ordinals, {});
    if (apply(CPortDelta::After))
        m_content.setOrdinals(ports(), ordinals);
}

bool CRestoredStep::apply(CPortDelta::ESide side)
{
    QVector<CabinetLayout::CabinetPort> records;
    QVector<QUuid> changed;
    for (const CPortDelta &delta : m_values->deltas()) {
        const CGraphicsPortItem *item = m_content.portItem(delta.port());
        if (!item)
            continue;
        CabinetLayout::CabinetPort record = CLayoutReader::read(*item);
        const auto groups = delta.groups(side, record.groups);
        if (!groups) {
            qCWarning(historyLog, "A step does not fit port %d.", delta.port() + 1);
            m_selection.clear();
            return false; // all of it or nothing
        }
        SEditStep::SPort change{record, record};
        change.after.groups = *groups;
        records << change.after;
        changed << CPortDelta::changed(change);
    }
    m_content.replace(records);
    select(changed);
    return true;
}

/// Where the user wants it, an edit ends the highlights of what it changes.
void CRestoredStep::select(const QVector<QUuid> &cabinets)
{
    QSet<QUuid> items;
    for (const QUuid &cabinet : cabinets) {
        CGraphicsItemBase *item = m_content.editedItem(cabinet);
        if (!item)
            continue;
        items.insert(item->outermost().uuid());
        const CGraphicsPortItem *port = item->portItem();
        if (item->type() == CabinetItemKind && port && port->resetsHighlightOnEdit())
            static_cast<CGraphicsCabinetItem *>(item)->setHighlighted(false);
    }
    m_selection = QVector<QUuid>(items.begin(), items.end());
}
