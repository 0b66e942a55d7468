// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/random/CRandomWorld.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/SmallWorlds.h"
#include "tests/editor/random/CRandomEdits.h"
#include "tests/editor/random/RandomKinds.h"

#include <QCoreApplication>

using namespace RandomKinds;
using RandomLayout::PortCount;

namespace {

void forgetHighlights(QVector<CabinetLayout::CabinetPort::CabinetGroup> &groups)
{
    for (auto &group : groups) {
        for (auto &cabinet : group.cabinets)
            cabinet.calibrationIndex = -1;
        forgetHighlights(group.groups);
    }
}

} // namespace

QString CRandomWorld::kindName(int kind)
{
    return QString::fromLatin1(QMetaEnum::fromType<EKind>().valueToKey(kind));
}

CRandomWorld::CRandomWorld(quint32 seed, int mostCabinets)
    : m_mostCabinets(mostCabinets)
    , m_scene(m_world.scene)
{
    QRandomGenerator random(seed);
    m_world.data = RandomLayout::randomWorld(random, m_mostCabinets);
    m_scene.setLayoutData(SmallWorlds::node(m_world.data), m_world.data);
    m_kept = CKeptSteps(m_world.layout());
    beginHistory({});
    m_history << comparable();
    m_selections.resize(1); // of no step
    QObject::connect(&m_scene, &CCabinetGraphicsScene::notifySelectedChanged,
                     [this] { ++m_world.selectionSignals; });
    QObject::connect(&m_scene, &CCabinetGraphicsScene::notifySceneChanged, [this] {
        ++m_world.sceneSignals;
        noteEdit();
    });
}

void CRandomWorld::beginHistory(const SEditHistory &kept)
{
    m_scene.setUndoStack(nullptr);
    m_world.history = std::make_unique<CEditHistory>(m_scene.backend().content());
    m_known = m_world.layout();
    m_world.history->enter(m_known, m_scene.backend().recorder().stepCount());
    if (!m_world.history->restore(kept))
        m_known = CabinetLayout(); // noticed by checkKept()
    m_scene.setUndoStack(&m_world.history->stack());
}

/// As the store does: compares, and tells the host what the history makes of it.
void CRandomWorld::noteEdit()
{
    const CabinetLayout edited = m_world.layout();
    QVector<int> changed;
    for (const auto &port : edited.ports) {
        const auto *known = m_known.port(port.index);
        if (known && !LayoutData::comparePortData(*known, port, true))
            changed << port.index;
    }
    const auto records =
        m_world.history->note({m_known, edited, changed}, m_scene.backend().recorder().stepCount());
    for (const SEditRecord &record : records)
        m_kept.take(record);
    if (edited.processor == m_world.data.processor)
        m_known = edited;
}

/// Whether what the host has of the history is what there is.
QString CRandomWorld::checkKept()
{
    const QVector<SEditStep> &kept = m_kept.steps();
    const QUndoStack &stack = m_world.history->stack();
    bool same = m_kept.index() == stack.index() && kept.size() == stack.count() && !m_kept.isFaulty();
    for (int i = 0; same && i < stack.count(); ++i)
        same = kept.at(i).text == stack.text(i);
    for (const auto &port : m_world.layout().ports)
        same = same && LayoutData::comparePortData(port, *m_kept.layout().port(port.index), true);
    return same ? QString() : QStringLiteral("the host has another history or layout");
}

/// Shows the same layout as after a restart of the program, with the history that the host has kept.
QString CRandomWorld::restart()
{
    LayoutData data = m_world.data;
    data.layout = m_world.layout();
    m_scene.setUndoStack(nullptr);
    m_scene.setLayoutData(SmallWorlds::node(data), data, m_world.cache);
    beginHistory(m_kept.history());
    m_restored = m_world.history->stack().count();
    m_world.highlighted.clear();
    return check(m_world.history->stack().index(), true, CReferenceModel(data.layout));
}

/// The layout without what is no part of the history: locks, colors and highlights.
CabinetLayout CRandomWorld::comparable() const
{
    CabinetLayout layout = m_world.layout();
    for (auto &port : layout.ports) {
        port.locked = false;
        port.color = QColor();
        port.redundancy = CabinetLayout::CabinetPort::NoRedundancy;
        if (!m_scene.backend().highlights().records().isEmpty())
            forgetHighlights(port.groups);
    }
    return layout;
}

void CRandomWorld::select(QRandomGenerator &random)
{
    const CEditBatch batch(m_scene.backend().batches());
    if (random.bounded(3) == 0)
        return; // goes on with what is selected
    m_scene.clearSelection();
    const int port = random.bounded(PortCount + 1); // one more: all ports
    const int share = 1 + random.bounded(4);
    for (const CGraphicsPortItem *item : m_scene.backend().content().portItems()) {
        if (port != PortCount && item->port() != port)
            continue;
        for (CGraphicsCabinetItem *cabinet : item->cabinets(nullptr)) {
            if (random.bounded(share) != 0)
                continue;
            if (random.bounded(5) == 0 && !cabinet->outermost().isSelected())
                cabinet->setSelected(true); // as by a double click, inside its group
            else if (m_scene.selection().isEmpty() || cabinet->outermost().isSelected() ||
                     !cabinet->isGrouped())
                cabinet->selectOutermost(true);
        }
    }
}

QString CRandomWorld::run(const SRandomOperation &operation)
{
    QRandomGenerator random(operation.seed);
    if (random.bounded(2))
        QCoreApplication::processEvents();
    select(random);
    m_world.selectedBefore = m_world.selected();
    m_world.selectionSignals = m_world.sceneSignals = 0;
    switch (operation.kind) {
    case Reload:
        return reload(false, random);
    case ReloadUndoably:
        return reload(true, random);
    case LookAway:
        return lookAway(random);
    case Restart:
        return restart();
    case History:
        if (!stepHistory(random))
            return QStringLiteral("another selection than beside the step");
        return check(m_scene.backend().recorder().stack()->index(), false,
                     CReferenceModel(m_history.at(m_scene.backend().recorder().stack()->index())));
    default:
        return edit(operation.kind, random);
    }
}

QString CRandomWorld::edit(int kind, QRandomGenerator &random)
{
    const int indexBefore = m_scene.backend().recorder().stack()->index();
    CReferenceModel expected(m_world.layout());
    CRandomEdits edits(m_world, random, expected);
    const bool edited = edits.carryOut(kind);
    if (!edited && (m_scene.backend().recorder().stack()->index() != indexBefore ||
                    (m_world.sceneSignals > 0 && !edits.isHighlight())))
        return QStringLiteral("what does nothing has recorded a step or announced a change");
    if (m_world.selectionSignals > 1 || m_world.sceneSignals > 1)
        return QStringLiteral("more than one signal for one operation");
    if (edits.selection() && m_world.selected() != *edits.selection())
        return QStringLiteral("another selection than wanted");
    if (m_scene.backend().placing().isAppending() || m_scene.backend().placing().cache() != m_world.cache)
        return QStringLiteral("an append goes on, or the copy is another");
    return check(indexBefore, edited, expected);
}

QSet<QUuid> CRandomWorld::highlighted() const
{
    QSet<QUuid> now;
    for (const auto &cabinet : m_scene.backend().highlights().records())
        now.insert(cabinet.uuid);
    return now;
}

/// Those that are gone stand out no more.
QString CRandomWorld::checkHighlights()
{
    QSet<QUuid> wanted;
    for (const QUuid &cabinet : qAsConst(m_world.highlighted)) {
        if (m_scene.backend().content().editedItem(cabinet))
            wanted.insert(cabinet);
    }
    m_world.highlighted = wanted;
    return highlighted() == wanted ? QString() : QStringLiteral("other cabinets stand out than wanted");
}

QString CRandomWorld::checkColors() const
{
    for (const CGraphicsPortItem *port : m_scene.backend().content().portItems()) {
        const QColor wanted = m_world.states.portColor(port->port());
        const auto cabinets = port->cabinets(nullptr);
        const bool right = std::all_of(cabinets.begin(), cabinets.end(), [&](const auto *cabinet) {
            return cabinet->brush().color() == wanted;
        });
        if (!right || port->fill() != wanted)
            return QStringLiteral("port %1 has another color than was chosen").arg(port->port());
    }
    return {};
}

/// Gives whether each step selects what was selected before or after it.
bool CRandomWorld::stepHistory(QRandomGenerator &random)
{
    const auto locked = m_world.states.locked;
    const auto redundancy = m_world.states.redundancy;
    m_world.states.redundancy.clear();
    m_world.states.locked.clear(); // refusals show a box and are tested elsewhere
    bool selects = true;
    for (int i = 1 + random.bounded(4); i > 0; --i) {
        const int index = m_scene.backend().recorder().stack()->index();
        const bool undoing = random.bounded(3);
        if (undoing)
            m_scene.undo(nullptr);
        else
            m_scene.redo(nullptr);
        const int now = m_scene.backend().recorder().stack()->index();
        if (now != index && std::min(now, index) >= m_restored)
            selects = selects && m_world.selected() == (now < index ? m_selections.at(index).first
                                                                    : m_selections.at(now).second);
        m_world.highlighted = highlighted(); // an item may have been away meanwhile
    }
    m_world.states.locked = locked;
    m_world.states.redundancy = redundancy;
    return selects;
}

QString CRandomWorld::reload(bool undoable, QRandomGenerator &random)
{
    int index = m_scene.backend().recorder().stack()->index();
    LayoutData data = m_world.data;
    data.layout = m_world.layout();
    if (undoable && random.bounded(2))
        data.layout = m_history.at(random.bounded(m_history.size()));
    if (random.bounded(3) == 0)
        m_world.chooseColor(random.bounded(PortCount), random); // as an import does
    for (auto &port : data.layout.ports)
        port.color = m_world.states.colors.value(port.index);
    const CReferenceModel wanted(data.layout);
    const bool same = wanted.matches(CReferenceModel(m_world.layout()));
    m_scene.setLayoutData(SmallWorlds::node(data), data, m_world.cache, {}, undoable);
    if (undoable && (m_scene.backend().recorder().stack()->index() == index) != same)
        return QStringLiteral("a reload of %1 layout")
            .arg(same ? QStringLiteral("an equal") : QStringLiteral("another"));
    if (!undoable) {
        m_world.history->clear();
        m_known = m_world.layout();
        m_world.history->enter(m_known, m_scene.backend().recorder().stepCount());
        m_kept = CKeptSteps(m_known);
        m_restored = 0;
        m_history = {comparable()};
        m_selections.resize(1);
        index = 0;
    }
    m_world.highlighted.intersect(highlighted()); // a reload ends those of what it makes anew
    return check(index, true, wanted);
}

/// Shows another processor for a moment; the history must fit what is built anew.
QString CRandomWorld::lookAway(QRandomGenerator &random)
{
    LayoutData data = m_world.data;
    data.layout = m_world.layout();
    QUndoStack *stack = m_scene.backend().recorder().stack();
    m_scene.clearLayout();
    m_scene.setUndoStack(nullptr);
    const LayoutData other = RandomLayout::randomWorld(random, m_mostCabinets);
    m_scene.setLayoutData(SmallWorlds::node(other), other);
    m_scene.clearLayout();
    m_scene.setUndoStack(stack);
    m_scene.setLayoutData(SmallWorlds::node(data), data, m_world.cache);
    m_world.highlighted.clear();
    m_known = m_world.layout();
    m_world.history->enter(m_known, m_scene.backend().recorder().stepCount());
    return check(stack->index(), true, CReferenceModel(data.layout));
}

QString CRandomWorld::check(int indexBefore, bool edited, const CReferenceModel &expected)
{
    const QString fault = CSceneVerifier::faultIn(m_scene);
    if (!fault.isEmpty())
        return fault;
    const QString unkept = checkKept();
    if (!unkept.isEmpty())
        return unkept;
    const CabinetLayout now = comparable();
    const int index = m_scene.backend().recorder().stack()->index();
    if (index > indexBefore)
        m_restored = std::min(m_restored, index - 1);
    if (index > indexBefore || m_history.size() <= index) {
        m_history.resize(index);
        m_history << now;
        m_selections.resize(index);
        m_selections << qMakePair(m_world.selectedBefore, m_world.selected());
        if (m_world.sceneSignals != 1 || m_world.selectionSignals != 1)
            return QStringLiteral("%1 scene and %2 selection signals for one edit")
                .arg(m_world.sceneSignals)
                .arg(m_world.selectionSignals);
    } else if (m_history.at(index) != now) {
        return QStringLiteral("the layout at undo index %1 is not the one seen there first").arg(index);
    }
    if (!expected.matches(CReferenceModel(now)))
        return edited ? QStringLiteral("the reference model has another layout")
                      : QStringLiteral("an operation without effect has changed the layout");
    const QString color = checkColors();
    return color.isEmpty() ? checkHighlights() : color;
}

QString CRandomWorld::checkHistory()
{
    m_world.states.locked.clear();
    m_world.states.redundancy.clear();
    QString fault = stepThrough();
    if (fault.isEmpty())
        fault = restart();
    if (fault.isEmpty())
        fault = stepThrough();
    return fault;
}

QString CRandomWorld::stepThrough()
{
    const QUndoStack &stack = *m_scene.backend().recorder().stack();
    for (const bool undoing : {true, false}) {
        while (undoing ? stack.canUndo() : stack.canRedo()) {
            undoing ? m_scene.undo(nullptr) : m_scene.redo(nullptr);
            if (m_history.at(stack.index()) != comparable())
                return QStringLiteral("%1 everything does not pass through what was seen")
                    .arg(undoing ? QStringLiteral("undoing") : QStringLiteral("redoing"));
        }
    }
    const QString color = checkColors();
    return color.isEmpty() ? CSceneVerifier::faultIn(m_scene) : color;
}
