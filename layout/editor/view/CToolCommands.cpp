// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CToolCommands.h"

#include "layout/api/access/IPortStates.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/menus/CClearTopology.h"
#include "layout/editor/menus/IEditorCommands.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CEditorToolBar.h"

namespace {

using Bar = CEditorToolBar;

void clearTopology(QWidget &view, CCabinetGraphicsScene &scene)
{
    CSceneBackend &backend = scene.backend();
    if (scene.selection().isEmpty())
        CClearTopology::ask(&view, backend.content(), backend.operations(), backend.states().currentPort());
    else
        scene.breakSelectedWiring();
}

} // namespace

void CToolCommands::carryOut(int tool, QWidget &view, CCabinetGraphicsScene &scene, IEditorCommands *commands)
{
    switch (tool) {
    case Bar::Undo:
        scene.undo(&view);
        break;
    case Bar::Redo:
        scene.redo(&view);
        break;
    case Bar::TypeLibrary:
        if (commands)
            commands->openTypeLibrary(&view);
        break;
    case Bar::Print:
        if (commands)
            commands->print(&view);
        break;
    case Bar::ClearTopology:
        clearTopology(view, scene);
        break;
    case Bar::Group:
        scene.backend().operations().group();
        break;
    case Bar::Ungroup:
        scene.backend().operations().ungroup();
        break;
    }
}
