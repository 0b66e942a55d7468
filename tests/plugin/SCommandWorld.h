// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/plugin/CEditorCommands.h"
#include "tests/harness/DialogUser.h"
#include "tests/harness/SStoreWorld.h"

#include <QtTest>

/// A type of the library, with one receiver.
inline SSettings::TypeLibrary::STreeNode typeNode(const char *name, int width, int height)
{
    SSettings::TypeLibrary::STreeNode node;
    node.name = QString::fromLatin1(name);
    node.key = SMD5::ofContent(name);
    node.info.key = node.key;
    node.info.name = node.name;
    node.info.width = width;
    node.info.height = height;
    node.info.receivers = {QRect(0, 0, width, height)};
    return node;
}

/// A host, and the editor with its commands.
struct SCommandWorld final : SStoreWorld
{
    SCommandWorld()
    {
        host.answers()->library = {typeNode("Flat", 100, 100), typeNode("Huge", 2049, 100)};
        view.setCommands(&commands);
        store.setLayoutSource(&view.cabinetScene());
    }
    ~SCommandWorld()
    {
        view.setCommands(nullptr);
        store.setLayoutSource(nullptr);
    }

    /// Brings a processor with @p ports ports of @p cabinets cabinets each into view.
    void open(int ports, int cabinets)
    {
        const QUuid processor = host.addProcessor(QStringLiteral("Main"), ports, cabinets);
        show(processor);
        const ProcessorTree::ProcessorNode node = host.answers()->getProcessorNode(processor);
        view.showLayout(node, store.openProcessor(processor));
        store.setCurrentPort(ports - 1);
    }
    CCabinetGraphicsScene &scene() { return view.cabinetScene(); }
    CGraphicsCabinetItem &cabinet(int port, int place)
    {
        return *scene().portItem(port)->cabinets(nullptr).at(place);
    }

    CLayoutGraphicsView view{store};
    CEditorCommands commands{store, view};
};
