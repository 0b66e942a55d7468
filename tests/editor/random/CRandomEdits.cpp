// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/random/CRandomEdits.h"

#include "layout/api/records/LayoutLimits.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IMouseMode.h"
#include "layout/geometry/CResizeHandles.h"
#include "tests/editor/random/RandomKinds.h"
#include "tests/editor/random/RandomLayout.h"

#include <QApplication>

using namespace RandomKinds;
using RandomLayout::PortCount;

CRandomEdits::CRandomEdits(SRandomScene &world, QRandomGenerator &random, CReferenceModel &expected)
    : m_world(world)
    , m_scene(world.scene)
    , m_random(random)
    , m_before(expected)
    , m_expected(expected)
    , m_placing(world, random, expected)
    , m_items(world.selected())
    , m_selection(m_items)
{
    m_refused = std::any_of(m_items.begin(), m_items.end(),
                            [this](const QUuid &item) { return m_world.isClosed(m_before.portOf(item)); });
}

bool CRandomEdits::carryOut(int kind)
{
    switch (kind) {
    case Drag:
        return dragSelection();
    case Resize:
        return resizeSelected();
    case Group:
        return groupSelection();
    case Copy:
        m_scene.backend().placing().copy();
        m_placing.takeCopy(m_before, m_items);
        return false;
    case Paste:
    case Append: {
        const bool placed = kind == Paste ? m_placing.paste() : m_placing.append();
        if (placed)
            m_selection = CReferenceModel(m_world.layout()).topItems() - m_before.topItems();
        return placed;
    }
    case SelectAll:
        m_scene.selectAllItem();
        m_selection = m_before.topItems();
        return false;
    case SameType:
        selectSameType();
        return false;
    case Highlight:
        highlight();
        return false;
    case InterruptDrag:
        interruptDrag();
        return false;
    case HostNews:
    case Lock:
        changeState(kind);
        return false;
    case Exchange:
        return exchangeReceivers();
    case Pen:
        return drawStroke();
    case ClearPort:
    case Backup:
        return editPort(kind);
    default:
        return editSelection(kind);
    }
}

bool CRandomEdits::editPort(int kind)
{
    const int port = m_random.bounded(PortCount);
    if (kind == ClearPort) {
        m_scene.breakPortWiring(port);
        const QVector<QUuid> chain = m_before.chain(port);
        if (!m_world.isClosed(port))
            m_expected.unwire(QSet<QUuid>(chain.begin(), chain.end()));
        return !m_world.isClosed(port);
    }
    const bool back = m_random.bounded(2);
    m_scene.backupPort((port + 1) % PortCount, port, back);
    if (!back || m_world.states.isPortLocked(port))
        return false;
    m_expected.prepareBackup(port);
    m_selection.reset();
    return true;
}

bool CRandomEdits::editSelection(int kind)
{
    CReferenceModel edited = m_before;
    const QSet<QUuid> cabinets = m_before.cabinetsBelow(m_items);
    switch (kind) {
    case Cut:
        m_scene.backend().placing().cut(m_scene.backend().operations());
        if (!m_refused)
            m_placing.takeCopy(m_before, m_items);
        edited.remove(cabinets);
        break;
    case Delete:
        m_scene.backend().operations().remove();
        edited.remove(cabinets);
        break;
    case Ungroup:
        m_scene.backend().operations().ungroup();
        for (const QUuid &item : qAsConst(m_items)) {
            if (edited.isGroup(item))
                edited.ungroup(item);
        }
        break;
    case Pattern: {
        const int pattern = m_random.bounded(8);
        m_scene.topologyWiring(uint(pattern));
        edited.wireByPattern(cabinets, pattern);
        break;
    }
    case Break:
        m_scene.breakSelectedWiring();
        edited.unwire(cabinets);
        break;
    default:
        if (!changeShape(kind, edited))
            return false;
    }
    if (m_refused)
        return false;
    m_expected = edited;
    if (kind == Ungroup)
        m_selection.reset();
    else if (kind == Cut || kind == Delete)
        m_selection = QSet<QUuid>();
    return true;
}

/// Gives false, having changed nothing, if the outcome is open.
bool CRandomEdits::changeShape(int kind, CReferenceModel &edited)
{
    CSelectionShape &shape = m_scene.backend().shape();
    if (kind == Nudge) {
        using Scene = CCabinetGraphicsScene;
        static const QPair<void (Scene::*)(), QPoint> steps[] = {{&Scene::selectedItemMoveUp, {0, -1}},
                                                                 {&Scene::selectedItemMoveDown, {0, 1}},
                                                                 {&Scene::selectedItemMoveLeft, {-1, 0}},
                                                                 {&Scene::selectedItemMoveRight, {1, 0}}};
        const auto &[move, step] = steps[m_random.bounded(4)];
        (m_scene.*move)();
        edited.nudge(m_items, step);
    } else if (kind == Arrange) {
        const int length = m_random.bounded(5);
        QSize rank(length, length > 0 ? (m_items.size() + length - 1) / length : 0);
        if (length <= m_items.size() && m_random.bounded(2))
            rank.transpose();
        if (!rank.isEmpty() && !edited.arrange(m_items, rank))
            return false;
        shape.arrange(rank);
    } else if (kind == MoveTo) {
        const QPoint corner(m_random.bounded(600), m_random.bounded(600));
        shape.moveTo(corner);
        edited.moveTo(m_items, corner);
    } else if (kind == ResizeTo) {
        const QSize size(m_random.bounded(8) * 24, 16 + m_random.bounded(128)); // now and then empty
        const bool possible = std::all_of(m_items.begin(), m_items.end(), [this](const QUuid &item) {
            return m_scene.backend().content().editedItem(item)->canResize();
        });
        shape.resizeTo(size);
        if (possible && !size.isEmpty())
            edited.resizeTo(m_items, size);
    } else {
        const CReferenceModel::TypeInfo type = CRandomPlacing::randomType(m_random);
        shape.applyType(type);
        if (type.isValid())
            edited.setType(m_before.cabinetsBelow(m_items), type);
    }
    return true;
}

QUuid CRandomEdits::randomCabinet()
{
    const QVector<QUuid> cabinets = m_before.cabinetsIn(m_random.bounded(PortCount));
    return cabinets.isEmpty() ? QUuid() : cabinets.at(m_random.bounded(cabinets.size()));
}

void CRandomEdits::selectSameType()
{
    const QUuid clicked = randomCabinet();
    m_scene.backend().picks().sameType(clicked);
    if (!clicked.isNull())
        m_selection = m_before.sameType(clicked);
}

/// Presses a cabinet as the tool does that highlights, or ends all highlights.
void CRandomEdits::highlight()
{
    m_highlights = true;
    const QUuid cabinet = randomCabinet();
    const bool adding = m_random.bounded(2);
    if (cabinet.isNull() || m_random.bounded(5) == 0) {
        m_scene.backend().highlights().clear();
        m_world.highlighted.clear();
        return;
    }
    m_scene.backend().highlights().press(
        static_cast<CGraphicsCabinetItem &>(*m_scene.backend().content().editedItem(cabinet)), adding);
    const bool on = !(m_world.highlighted.contains(cabinet) && (adding || m_world.highlighted.size() == 1));
    if (!adding)
        m_world.highlighted.clear();
    if (on)
        m_world.highlighted.insert(cabinet);
    else
        m_world.highlighted.remove(cabinet);
}

void CRandomEdits::changeState(int kind)
{
    const int port = m_random.bounded(PortCount);
    if (kind == Lock) {
        m_world.states.locked[port] = m_random.bounded(3) == 0;
        m_scene.setCabinetLocked(port, m_world.states.locked[port]);
        m_world.states.redundancy[port] = m_random.bounded(4) ? CabinetLayout::CabinetPort::NoRedundancy
                                                              : CabinetLayout::CabinetPort::Redundant;
        m_scene.onNotifyProcessorStateChanged();
        return;
    }
    m_world.chooseColor(port, m_random);
    m_scene.onNotifyCabinetColorChanged(port, m_world.states.portColor(port));
    if (m_random.bounded(2))
        m_scene.onNotifyProcessorStateChanged();
}

bool CRandomEdits::dragSelection()
{
    const QPoint step(m_random.bounded(-90, 91), m_random.bounded(-90, 91));
    const QPointF press(m_random.bounded(500), m_random.bounded(500));
    m_scene.backend().mouse()->beginMove(press);
    m_scene.backend().mouse()->continueDrag(press + QPointF(step) / 3, Qt::AltModifier);
    m_scene.backend().mouse()->endDrag(press + step);
    if (m_items.isEmpty() || m_refused || step.manhattanLength() < QApplication::startDragDistance())
        return false;
    m_expected.translate(m_items, step);
    return true;
}

bool CRandomEdits::resizeSelected()
{
    if (m_items.size() != 1)
        return false;
    CGraphicsItemBase *item = m_scene.backend().content().editedItem(*m_items.begin());
    const QPointF press = item->scenePos();
    const QPoint step(m_random.bounded(-60, 61), m_random.bounded(-60, 61));
    const bool refused = !item->canResize() || step.manhattanLength() < QApplication::startDragDistance();
    m_scene.backend().mouse()->beginScale(*item, CResizeHandles::BottomRight, press);
    m_scene.backend().mouse()->continueDrag(press + step);
    m_scene.backend().mouse()->endDrag(press + step);
    if (refused)
        return false;
    m_expected.resize(*m_items.begin(), step, LayoutLimits::LargestSide);
    return true;
}

bool CRandomEdits::exchangeReceivers()
{
    const int port = m_random.bounded(PortCount);
    const QVector<CGraphicsCabinetItem *> cabinets =
        m_scene.backend().content().portItem(port)->cabinets(nullptr);
    if (cabinets.isEmpty())
        return false;
    const CGraphicsCabinetItem *cabinet = cabinets.at(m_random.bounded(cabinets.size()));
    m_scene.backend().operations().exchangeReceivers(cabinet->uuid());
    return !m_world.isClosed(port) && m_expected.exchangeReceivers(cabinet->uuid());
}

bool CRandomEdits::drawStroke()
{
    const CGraphicsPortItem *port = m_scene.backend().content().portItem(m_random.bounded(PortCount));
    const QVector<CGraphicsCabinetItem *> cabinets = port->cabinets(nullptr);
    if (cabinets.isEmpty())
        return false;
    CGraphicsCabinetItem *first = cabinets.at(m_random.bounded(cabinets.size()));
    QVector<QPointF> way = {first->sceneBoundingRect().center()};
    const QUuid begin = first->uuid();
    m_scene.backend().setToolMode(ToolMode::ManualWiring, true);
    IMouseMode &pen = m_scene.backend().mouse()->mouseMode();
    pen.beginStroke(*first, way.first());
    m_world.selectedBefore.clear();
    m_selection = QSet<QUuid>();
    m_world.selectionSignals = 0; // a stroke first takes the selection away, which is told by itself
    for (int i = m_random.bounded(6); i > 0; --i) {
        const bool wild = m_random.bounded(3) == 0;
        const QPointF next =
            wild ? QPointF(m_random.bounded(600), m_random.bounded(600))
                 : cabinets.at(m_random.bounded(cabinets.size()))->sceneBoundingRect().center();
        pen.continueStroke(next);
        const qreal distance = (next - way.first()).manhattanLength();
        if (way.size() > 1 || distance >= QApplication::startDragDistance()) // otherwise still a click
            way << next;
    }
    pen.endStroke(way.last());
    m_scene.backend().setToolMode(ToolMode::ManualWiring, false);
    if (port->isClosed())
        return false;
    m_expected.drawStroke(port->port(), begin, way);
    return true;
}

bool CRandomEdits::groupSelection()
{
    const bool possible = m_scene.selection().canGroup();
    m_scene.backend().operations().group();
    if (!possible)
        return false;
    m_selection = m_world.selected();
    if (m_selection->size() != 1)
        return false;
    m_expected.group(m_items, *m_selection->begin());
    return true;
}

void CRandomEdits::interruptDrag()
{
    m_scene.backend().mouse()->beginMove(QPointF(0, 0));
    m_scene.backend().mouse()->continueDrag(QPointF(40, 50));
    if (m_random.bounded(2))
        m_scene.setCabinetLocked(0, m_world.states.isPortLocked(0));
    else
        m_scene.backend().batches().cancelGesture();
    m_scene.backend().mouse()->endDrag(QPointF(90, 90));
}
