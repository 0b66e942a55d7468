// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/EditSides.h"
#include "host/journal/CJournals.h"
#include "layout/data/CProcessorStates.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/history/CEditHistory.h"
#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"

#include <QTemporaryDir>

namespace {

constexpr int FullRepetitions = 7;
constexpr int SmallRepetitions = 25;

/// An editor and the module's store, with or without history and journal.
class CJournaledEditor final
{
public:
    CJournaledEditor(const LayoutData &data, bool journaled)
        : m_processor(data.processor)
    {
        m_editor.load(data);
        m_store.setEdited(m_processor);
        m_store.takeFromHost(m_processor, data.layout.ports, false);
        if (!journaled)
            return;
        CSceneBackend &backend = m_editor.scene().backend();
        m_history = std::make_unique<CEditHistory>(backend.content());
        m_editor.scene().setUndoStack(&m_history->stack());
        m_history->enter(m_store.data(m_processor).layout, backend.recorder().stepCount());
        m_journals = std::make_unique<CJournals>(m_folder.path(), [](const QString &) {});
        SProcessorProject state;
        state.layout = data.layout;
        SJournalOwner owner;
        owner.processor = m_processor;
        m_journals->begin(owner, state);
    }
    ~CJournaledEditor()
    {
        if (m_history)
            m_editor.scene().setUndoStack(nullptr);
    }

    /// @p edit, and everything that happens before the next event.
    SWork work(const EditSides::Edit &select, const EditSides::Edit &edit)
    {
        SWork work = EditSides::work(m_editor, select, [this, edit](CCabinetGraphicsScene &scene) {
            edit(scene);
            note();
        });
        work.finish = [this, finish = work.finish] {
            finish(); // undoes it
            note();
            if (m_journals)
                m_journals->sync();
        };
        return work;
    }

private:
    void note()
    {
        CabinetLayout edited;
        m_editor.scene().getLayoutData(edited, m_processor);
        const auto edit = m_store.takeEdit(edited);
        if (!edit || !m_history)
            return;
        const SComparedEdit compared{edit->known, edited, edit->changedPorts};
        const int steps = m_editor.scene().backend().recorder().stepCount();
        for (SEditRecord record : m_history->note(compared, steps)) {
            record.processor = m_processor;
            m_journals->note(record);
        }
    }

    const QUuid m_processor;
    QTemporaryDir m_folder;
    CEditorSide m_editor;
    CProcessorStates m_store;
    std::unique_ptr<CEditHistory> m_history;
    std::unique_ptr<CJournals> m_journals;
};

void selectOne(CCabinetGraphicsScene &scene)
{
    const QVector<CGraphicsItemBase *> items = scene.backend().content().portItems().first()->topItems();
    items.at(items.size() / 2)->setSelected(true);
}

} // namespace

void Benchmarks::measureJournal()
{
    const LayoutData data = Wall::data(Wall::FullPorts);
    CJournaledEditor with(data, true);
    CJournaledEditor without(data, false);
    const auto measure = [&](const char *name, int repetitions, const EditSides::Edit &select,
                             const EditSides::Edit &edit) {
        const SMedians medians =
            Figures::compare(repetitions, with.work(select, edit), without.work(select, edit));
        Figures::print(
            {name, data.layout.cabinetCount(), medians.work, "the same without journal", medians.reference});
    };
    const auto nudge = [](CCabinetGraphicsScene &scene) { scene.selectedItemMoveRight(); };
    measure("B16 arrow key with everything selected", FullRepetitions, &EditSides::selectAll, nudge);
    measure("B16 arrow key with one cabinet selected", SmallRepetitions, &selectOne, nudge);
    measure(
        "B16 snake pattern over a port", SmallRepetitions,
        [](CCabinetGraphicsScene &scene) { EditSides::selectPort(scene, 0); },
        [](CCabinetGraphicsScene &scene) { scene.topologyWiring(3); });
}
