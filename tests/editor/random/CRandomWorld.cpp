// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/random/CRandomWorld.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/geometry/CResizeHandles.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/SmallWorlds.h"
#include "tests/editor/random/RandomKinds.h"
#include "tests/editor/random/RandomLayout.h"

#include <QCoreApplication>

using namespace RandomKinds;
using RandomLayout::PortCount;

namespace {

/// Locks and colours are no part of the history.
CabinetLayout withoutStates(CabinetLayout layout)
{
    for (auto &port : layout.ports) {
        port.locked = false;
        port.color = QColor();
    }
    return layout;
}

} // namespace

QString CRandomWorld::kindName(int kind)
{
    return QString::fromLatin1(kindNames[kind]);
}

CRandomWorld::CRandomWorld(quint32 seed)
    : m_scene(m_states)
{
    QRandomGenerator random(seed);
    m_data = RandomLayout::randomWorld(random);
    m_scene.setLayoutData(SmallWorlds::node(m_data), m_data);
    m_history << layout();
    QObject::connect(&m_scene, &CCabinetGraphicsScene::notifySelectedChanged,
                     [this] { ++m_selectionSignals; });
    QObject::connect(&m_scene, &CCabinetGraphicsScene::notifySceneChanged, [this] { ++m_sceneSignals; });
}

CabinetLayout CRandomWorld::layout() const
{
    CabinetLayout layout;
    m_scene.getLayoutData(layout, m_data.processor);
    return layout;
}

QSet<QUuid> CRandomWorld::selected() const
{
    const QVector<QUuid> uuids = m_scene.selection().uuids();
    return QSet<QUuid>(uuids.begin(), uuids.end());
}

bool CRandomWorld::touchesLocked(const QSet<QUuid> &items) const
{
    const CReferenceModel model(layout());
    return std::any_of(items.begin(), items.end(),
                       [&](const QUuid &item) { return m_states.isPortLocked(model.portOf(item)); });
}

void CRandomWorld::select(QRandomGenerator &random)
{
    const CEditBatch batch(m_scene);
    if (random.bounded(3) == 0)
        return; // goes on with what is selected
    m_scene.clearSelection();
    const int port = random.bounded(PortCount + 1); // one more: all ports
    const int share = 1 + random.bounded(4);
    for (const CGraphicsPortItem *item : m_scene.portItems()) {
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
    m_selectionSignals = m_sceneSignals = 0;
    const int indexBefore = m_scene.undoStack()->index();
    CReferenceModel expected(layout());

    switch (operation.kind) {
    case Reload:
        return reload(false, random);
    case ReloadUndoably:
        return reload(true, random);
    case History:
        stepHistory(random);
        return check(m_scene.undoStack()->index(), false,
                     CReferenceModel(m_history.at(m_scene.undoStack()->index())));
    default:
        break;
    }
    m_fault.clear();
    const bool edited = carryOut(operation.kind, random, expected);
    if (!m_fault.isEmpty())
        return m_fault;
    if (!edited && (m_scene.undoStack()->index() != indexBefore || m_sceneSignals > 0))
        return QStringLiteral("what does nothing has recorded a step or announced a change");
    return check(indexBefore, edited, expected);
}

bool CRandomWorld::carryOut(int kind, QRandomGenerator &random, CReferenceModel &expected)
{
    const int port = random.bounded(PortCount);
    switch (kind) {
    case Drag:
        return dragSelection(random, expected);
    case Resize:
        return resizeSelected(random, expected);
    case Exchange:
        return exchangeReceivers(random);
    case Pen:
        return drawStroke(random, expected);
    case Group:
        return groupSelection(expected);
    case ClearPort: {
        const QVector<QUuid> chain = expected.chain(port);
        m_scene.breakPortWiring(port);
        if (m_states.isPortLocked(port))
            return false;
        expected.unwire(QSet<QUuid>(chain.begin(), chain.end()));
        return true;
    }
    case Backup: {
        const bool back = random.bounded(2);
        m_scene.backupPort((port + 1) % PortCount, port, back);
        if (!back || m_states.isPortLocked(port))
            return false;
        expected.prepareBackup(port);
        return true;
    }
    case Lock:
        m_states.locked[port] = random.bounded(3) == 0;
        m_scene.setCabinetLocked(port, m_states.locked[port]);
        return false;
    case HostNews:
        m_scene.onNotifyCabinetColorChanged(port, QColor::fromHsv(random.bounded(360), 200, 200));
        m_scene.onNotifyProcessorStateChanged();
        return false;
    case InterruptDrag:
        interruptDrag(random);
        return false;
    default:
        return editSelection(kind, random, expected);
    }
}

bool CRandomWorld::editSelection(int kind, QRandomGenerator &random, CReferenceModel &expected)
{
    const QSet<QUuid> items = selected();
    const bool refused = touchesLocked(items);
    const int pattern = random.bounded(8);
    const QSet<QUuid> cabinets = expected.cabinetsBelow(items);
    switch (kind) {
    case NudgeUp:
        m_scene.selectedItemMoveUp();
        expected.nudge(items, {0, -1});
        break;
    case NudgeDown:
        m_scene.selectedItemMoveDown();
        expected.nudge(items, {0, 1});
        break;
    case NudgeLeft:
        m_scene.selectedItemMoveLeft();
        expected.nudge(items, {-1, 0});
        break;
    case NudgeRight:
        m_scene.selectedItemMoveRight();
        expected.nudge(items, {1, 0});
        break;
    case Ungroup:
        m_scene.ungroupSelected();
        for (const QUuid &item : items) {
            if (expected.isGroup(item))
                expected.ungroup(item);
        }
        break;
    case Pattern:
        m_scene.topologyWiring(uint(pattern));
        expected.wireByPattern(cabinets, pattern);
        break;
    case Break:
        m_scene.breakSelectedWiring();
        expected.unwire(cabinets);
        break;
    default:
        m_scene.deleteSelected();
        expected.remove(cabinets);
        break;
    }
    if (refused)
        expected = CReferenceModel(m_history.at(m_scene.undoStack()->index()));
    return !refused;
}

bool CRandomWorld::dragSelection(QRandomGenerator &random, CReferenceModel &expected)
{
    const QSet<QUuid> items = selected();
    const QPoint step(random.bounded(-90, 91), random.bounded(-90, 91));
    const QPointF press(random.bounded(500), random.bounded(500));
    m_scene.beginMove(press);
    m_scene.continueDrag(press + QPointF(step) / 3);
    m_scene.endDrag(press + step);
    if (items.isEmpty() || touchesLocked(items))
        return false;
    expected.translate(items, step);
    return true;
}

bool CRandomWorld::resizeSelected(QRandomGenerator &random, CReferenceModel &expected)
{
    const QSet<QUuid> items = selected();
    if (items.size() != 1)
        return false;
    CGraphicsItemBase *item = m_scene.editedItem(*items.begin());
    const QPointF press = item->scenePos();
    const QPoint step(random.bounded(-60, 61), random.bounded(-60, 61));
    const bool refused = !item->canResize();
    m_scene.beginScale(*item, CResizeHandles::BottomRight, press);
    m_scene.continueDrag(press + step);
    m_scene.endDrag(press + step);
    if (refused)
        return false;
    expected.resize(*items.begin(), step, CResizeHandles::LargestSide);
    return true;
}

bool CRandomWorld::exchangeReceivers(QRandomGenerator &random)
{
    const int port = random.bounded(PortCount);
    const QVector<CGraphicsCabinetItem *> cabinets = m_scene.portItem(port)->cabinets(nullptr);
    if (cabinets.isEmpty())
        return false;
    const CGraphicsCabinetItem *cabinet = cabinets.at(random.bounded(cabinets.size()));
    QVector<QRect> wanted = cabinet->cabinet().rects;
    const bool refused =
        m_states.isPortLocked(port) || cabinet->cabinet().directionFixed || wanted.size() < 2;
    if (!refused)
        std::reverse(wanted.begin(), wanted.end());
    m_scene.exchangeReceivers(port, cabinet->uuid(), 0);
    if (cabinet->cabinet().rects != wanted)
        m_fault = QStringLiteral("the receivers are not in the wanted order");
    return !refused;
}

bool CRandomWorld::drawStroke(QRandomGenerator &random, CReferenceModel &expected)
{
    const CGraphicsPortItem *port = m_scene.portItem(random.bounded(PortCount));
    const QVector<CGraphicsCabinetItem *> cabinets = port->cabinets(nullptr);
    if (cabinets.isEmpty())
        return false;
    CGraphicsCabinetItem *first = cabinets.at(random.bounded(cabinets.size()));
    QVector<QPointF> way = {first->sceneBoundingRect().center()};
    const QUuid begin = first->uuid();
    m_scene.beginStroke(*first, way.first());
    m_selectionSignals = 0; // a stroke first takes the selection away, which is told by itself
    for (int i = random.bounded(6); i > 0; --i) {
        const bool wild = random.bounded(3) == 0;
        way << (wild ? QPointF(random.bounded(600), random.bounded(600))
                     : cabinets.at(random.bounded(cabinets.size()))->sceneBoundingRect().center());
        m_scene.continueStroke(way.last());
    }
    m_scene.endStroke(way.last());
    if (port->isLocked())
        return false;
    expected.drawStroke(port->port(), begin, way);
    return true;
}

bool CRandomWorld::groupSelection(CReferenceModel &expected)
{
    const QSet<QUuid> items = selected();
    const bool possible = m_scene.selection().canGroup();
    m_scene.groupSelected();
    if (!possible)
        return false;
    expected.group(items, *selected().begin());
    return true;
}

void CRandomWorld::interruptDrag(QRandomGenerator &random)
{
    m_scene.beginMove(QPointF(0, 0));
    m_scene.continueDrag(QPointF(40, 50));
    if (random.bounded(2))
        m_scene.setCabinetLocked(0, m_states.isPortLocked(0));
    else
        m_scene.cancelGesture();
    m_scene.endDrag(QPointF(90, 90));
}

void CRandomWorld::stepHistory(QRandomGenerator &random)
{
    for (int i = 1 + random.bounded(4); i > 0; --i) {
        const QHash<int, bool> locked = m_states.locked;
        m_states.locked.clear(); // refusals show a box and are tested elsewhere
        if (random.bounded(3))
            m_scene.undo(nullptr);
        else
            m_scene.redo(nullptr);
        m_states.locked = locked;
    }
}

QString CRandomWorld::reload(bool undoable, QRandomGenerator &random)
{
    CabinetLayout before = layout();
    int index = m_scene.undoStack()->index();
    LayoutData data = m_data;
    data.layout = before;
    if (undoable && random.bounded(2)) {
        data.layout = m_history.at(random.bounded(m_history.size()));
        before = data.layout;
    }
    const bool same = withoutStates(layout()) == withoutStates(before);
    m_scene.setLayoutData(SmallWorlds::node(data), data, {}, {}, undoable);
    if (undoable && (m_scene.undoStack()->index() == index) != same)
        return QStringLiteral("a reload of %1 layout")
            .arg(same ? QStringLiteral("an equal") : QStringLiteral("another"));
    if (!undoable) {
        m_scene.undoStack()->clear();
        m_history = {withoutStates(layout())};
        index = 0;
    }
    return check(index, true, CReferenceModel(before));
}

QString CRandomWorld::check(int indexBefore, bool edited, const CReferenceModel &expected)
{
    const QString fault = CSceneVerifier::faultIn(m_scene);
    if (!fault.isEmpty())
        return fault;
    const CabinetLayout now = layout();
    const int index = m_scene.undoStack()->index();
    const CabinetLayout comparable = withoutStates(now);
    if (index > indexBefore || m_history.size() <= index) {
        m_history.resize(index);
        m_history << comparable;
        if (m_sceneSignals != 1 || m_selectionSignals != 1)
            return QStringLiteral("%1 scene and %2 selection signals for one edit")
                .arg(m_sceneSignals)
                .arg(m_selectionSignals);
    } else if (!(m_history.at(index) == comparable)) {
        return QStringLiteral("the layout at undo index %1 is not the one seen there first").arg(index);
    }
    if (edited && !(CReferenceModel(now) == expected))
        return QStringLiteral("the reference model has another layout");
    if (!edited && index == indexBefore && !(CReferenceModel(now) == expected))
        return QStringLiteral("an operation without effect has changed the layout");
    return {};
}

QString CRandomWorld::checkHistory()
{
    m_states.locked.clear();
    const auto comparesAt = [this](int index) { return m_history.at(index) == withoutStates(layout()); };
    while (m_scene.undoStack()->canUndo()) {
        m_scene.undo(nullptr);
        if (!comparesAt(m_scene.undoStack()->index()))
            return QStringLiteral("undoing everything does not pass through what was seen");
    }
    while (m_scene.undoStack()->canRedo()) {
        m_scene.redo(nullptr);
        if (!comparesAt(m_scene.undoStack()->index()))
            return QStringLiteral("redoing everything does not pass through what was seen");
    }
    return CSceneVerifier::faultIn(m_scene);
}
