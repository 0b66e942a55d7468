// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/menus/CClearTopology.h"

#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "platform/widgets/CMessageBox.h"

void CClearTopology::ask(QWidget *parent, CSceneContent &content, CSceneOperations &operations, int port)
{
    const QUuid asked = content.processor();
    if (operations.isRefused(port))
        return;
    content.pointOut(port); // the question does not name it
    const int answer =
        CMessageBox::question(parent, tr("Are you sure you want to clear topology for the output port?"));
    content.pointOut(CSceneContent::NoPort);
    if (answer != 0)
        return;
    if (content.processor() == asked)
        operations.breakPortWiring(port);
    else
        CMessageBox::warning(parent, tr("Set failed."), tr("The processor is no longer in view."));
}
