// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/menus/CClearTopology.h"

#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/CRefusal.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "platform/widgets/CMessageBox.h"

void CClearTopology::ask(QWidget *parent, CSceneBackend &backend, int port)
{
    CSceneContent &content = backend.content();
    const CGraphicsPortItem *item = content.portItem(port);
    const QUuid asked = content.processor();
    if (!item || CRefusal::isTold(backend.batches(), item))
        return;
    content.pointOut(port); // the question does not name it
    const int answer =
        CMessageBox::question(parent, tr("Are you sure you want to clear topology for the output port?"));
    content.pointOut(CSceneContent::NoPort);
    if (answer != 0)
        return;
    if (content.processor() == asked)
        backend.operations().breakPortWiring(port);
    else
        CMessageBox::warning(parent, tr("Set failed."), tr("The processor is no longer in view."));
}
