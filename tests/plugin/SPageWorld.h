// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/panels/ports/CPortList.h"
#include "layout/plugin/CLayoutEditorPage.h"
#include "tests/editor/SceneParts.h"
#include "tests/harness/SStoreWorld.h"

/// The page with processor A, of three ports with four cabinets each, in a square.
struct SPageWorld : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 3, 4);
    QUuid b = host.addProcessor(QStringLiteral("B"), 3, 1);
    CLayoutEditorPage page{store};

    SPageWorld()
    {
        for (CabinetLayout::CabinetPort &port : host.answers()->layouts[a].layout.ports) {
            for (int i = 0; i < 4; ++i)
                port.groups[0].cabinets[i].rect.moveTo(100 * (i % 2), 200 * port.index + 100 * (i / 2));
        }
        open(a);
    }
    void open(const QUuid &processor)
    {
        show(processor);
        page.setProcessor(answers()->getProcessorNode(processor));
    }
    CLayoutGraphicsView &view() const { return *page.findChild<CLayoutGraphicsView *>(); }
    CCabinetGraphicsScene &scene() const { return view().cabinetScene(); }
    CPort &port(int index) const { return *page.findChild<CPortList *>()->button(index); }
    /// The ports whose buttons are checked.
    QList<int> checked() const
    {
        QList<int> ports;
        for (int i = 0; i < 3; ++i) {
            if (port(i).isChecked())
                ports << i;
        }
        return ports;
    }
    QVector<int> ranks(int port) const
    {
        QMap<QPair<int, int>, int> byPlace;
        for (const CGraphicsCabinetItem *item : scene().backend().content().portItem(port)->cabinets(nullptr))
            byPlace.insert({item->cabinet().rect.y(), item->cabinet().rect.x()}, item->cabinet().rank);
        return byPlace.values().toVector();
    }
};
