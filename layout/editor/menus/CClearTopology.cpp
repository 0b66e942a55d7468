// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/menus/CClearTopology.h"

#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "platform/widgets/CMessageBox.h"

void CClearTopology::ask(QWidget *parent, const CSceneContent &content, CSceneOperations &operations,
                         int port)
{
    const CGraphicsPortItem *item = content.portItem(port);
    const QUuid asked = content.processor();
    if (!item || item->isClosed() ||
        CMessageBox::question(parent, tr("Are you sure you want to clear topology for the output port?")) !=
            0)
        return;
    if (content.processor() == asked)
        operations.breakPortWiring(port);
    else
        CMessageBox::information(parent, tr("Set failed."), tr("The processor is no longer in view."));
}
