// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/EditSides.h"
#include "host/devices/services/CWorkingLayout.h"
#include "layout/data/CProcessorStates.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"

namespace {

constexpr int MoveRepetitions = 25;

/// The way of an edit: the scene, the module's store, the host's working layout.
class CEditedProcessor final
{
public:
    explicit CEditedProcessor(const LayoutData &data)
        : m_processor(data.processor)
    {
        m_editor.load(data);
        m_store.setEdited(m_processor);
        m_store.takeFromHost(m_processor, data.layout.ports, false);
        m_host.take(data.layout, {});
        m_host.setSaved(m_host.layout());
    }

    /// Moves one cabinet in the middle of the first port and hands it over.
    SWork move()
    {
        SWork work = EditSides::work(m_editor, &selectOne, [this](CCabinetGraphicsScene &scene) {
            scene.selectedItemMoveRight();
            handOver();
        });
        work.finish = [this, finish = work.finish] {
            finish(); // undoes it
            handOver();
        };
        return work;
    }

private:
    static void selectOne(CCabinetGraphicsScene &scene)
    {
        const QVector<CGraphicsItemBase *> items = scene.backend().content().portItems().first()->topItems();
        items.at(items.size() / 2)->setSelected(true);
    }

    void handOver()
    {
        CabinetLayout edited;
        m_editor.scene().getLayoutData(edited, m_processor);
        m_host.take(m_store.takeEdit(edited)->data.layout, {});
    }

    QUuid m_processor;
    CEditorSide m_editor;
    CProcessorStates m_store;
    CWorkingLayout m_host;
};

} // namespace

void Benchmarks::measureHandOver()
{
    const LayoutData data = Wall::data(Wall::FullPorts);
    const LayoutData portData = Wall::data(1);
    CEditedProcessor full(data);
    CEditedProcessor onePort(portData);
    SMedians medians = Figures::compare(MoveRepetitions, full.move(), onePort.move());
    Figures::print({"B9 move one cabinet until the host has the layout", data.layout.cabinetCount(),
                    medians.work, "the same at 1024 cabinets", medians.reference});
    CBareSide bare(CBareScene::OpenPorts);
    medians = Figures::compare(MoveRepetitions, full.move(), EditSides::buildBare(bare, portData.layout));
    Figures::print({"B9 move one cabinet until the host has the layout, beside a port",
                    data.layout.cabinetCount(), medians.work, "bare items and lines", medians.reference});
}
