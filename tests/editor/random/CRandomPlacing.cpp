// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/random/CRandomPlacing.h"

#include "tests/editor/random/RandomLayout.h"

#include <QCoreApplication>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>

#include <algorithm>
#include <cstdlib>

using RandomLayout::PortCount;

namespace {

constexpr int FullPort = 30; // cabinets; worlds stay small
constexpr int Reach = 10;    // pixels over which an appended cabinet snaps

/// The smallest shift that brings an edge of [low, high] to one of @p edges; 0 without one that is near,
/// nothing where two are equally small.
std::optional<int> shiftTo(int low, int high, const QSet<int> &edges)
{
    for (int distance = 0; distance <= Reach; ++distance) {
        const auto meets = [&](int shift) {
            return edges.contains(low + shift) || edges.contains(high + shift);
        };
        if (distance > 0 && meets(distance) && meets(-distance))
            return std::nullopt;
        if (meets(distance) || meets(-distance))
            return meets(distance) ? distance : -distance;
    }
    return 0;
}

/// The grid that a drag from @p first to @p cursor covers, row by row from @p first on, without what lies
/// beyond the left and the upper edge of the canvas.
QVector<QRect> covered(const QRect &first, const QPoint &cursor)
{
    const QPoint step(cursor.x() < first.left() ? -first.width() : first.width(),
                      cursor.y() < first.top() ? -first.height() : first.height());
    QVector<QRect> cells;
    for (QRect row = first;; row.translate(0, step.y())) {
        for (QRect cell = row;; cell.translate(step.x(), 0)) {
            if (cell.left() >= 0 && cell.top() >= 0)
                cells << cell;
            if (cell.left() <= cursor.x() && cursor.x() <= cell.right())
                break;
        }
        if (row.top() <= cursor.y() && cursor.y() <= row.bottom())
            return cells;
    }
}

} // namespace

CReferenceModel::TypeInfo CRandomPlacing::randomType(QRandomGenerator &random)
{
    CReferenceModel::TypeInfo type;
    const int kind = random.bounded(4);
    if (kind == 0)
        return type; // none
    type.key = SMD5::ofContent(QByteArray::number(kind));
    type.width = 32 * kind;
    type.height = 64;
    if (kind > 1)
        type.receivers = {QRect(0, 0, 16, 64), QRect(16, 0, 32 * kind - 16, 64)};
    return type;
}

bool CRandomPlacing::hasRoom(int port) const
{
    return m_expected.cabinetsIn(port).size() < FullPort;
}

void CRandomPlacing::takeCopy(const CReferenceModel &before, const QSet<QUuid> &items)
{
    if (items.isEmpty())
        return;
    m_world.copied = before.part(items);
    m_world.cache = m_world.scene.backend().placing().cache();
}

bool CRandomPlacing::paste()
{
    const QPointF place(m_random.bounded(12) * 50.25, m_random.bounded(12) * 50.0);
    const int port = m_random.bounded(PortCount + 1) - 1; // one of them is none
    m_world.states.current = port;
    if (!hasRoom(port))
        return false;
    m_world.scene.pasteItems(place, nullptr);
    if (port < 0) {
        m_world.copied = CReferenceModel(); // the copy is given up
        m_world.cache = PasteCache();
    }
    if (port < 0 || m_world.isClosed(port) || m_world.copied.isEmpty())
        return false;
    m_expected.paste(m_world.copied, port, place.toPoint());
    return true;
}

/// Where a single cabinet comes to lie that is held at @p ghost; nothing where that is open.
std::optional<QRect> CRandomPlacing::snapped(QRect ghost) const
{
    QSet<int> across = {0}; // the canvas; its far edges are out of reach
    QSet<int> down = {0};
    for (int port = 0; port < PortCount; ++port) {
        for (const auto &cell : m_expected.cellsOf(m_expected.cabinetsIn(port))) {
            const QRect rect = cell.second;
            if (!rect.intersects(ghost.adjusted(-Reach, -Reach, Reach, Reach)))
                continue;
            across << rect.left() << rect.right() + 1;
            down << rect.top() << rect.bottom() + 1;
        }
    }
    const auto right = shiftTo(ghost.left(), ghost.right() + 1, across);
    const auto lower = shiftTo(ghost.top(), ghost.bottom() + 1, down);
    if (!right || !lower)
        return std::nullopt;
    ghost.translate(*right, *lower);
    ghost.moveTopLeft(QPoint(std::max(ghost.left(), 0), std::max(ghost.top(), 0)));
    return ghost;
}

bool CRandomPlacing::append()
{
    const int port = m_random.bounded(PortCount + 1); // the last one does not exist
    const CReferenceModel::TypeInfo type = randomType(m_random);
    const bool ofType = type.isValid() && m_random.bounded(4);
    const QSize size = ofType ? QSize(type.width, type.height)
                              : QSize(32 + 2 * m_random.bounded(32), 32 + 2 * m_random.bounded(32));
    const QPoint press(m_random.bounded(600), m_random.bounded(600));
    const QPoint cursor = press + QPoint(m_random.bounded(-150, 151), m_random.bounded(-150, 151));
    const auto first = snapped(QRect(press - QPoint(size.width(), size.height()) / 2, size));
    if (!first || !hasRoom(port))
        return false;
    CCabinetGraphicsScene &scene = m_world.scene;
    scene.backend().placing().beginAppend(type, port, size);
    if (port == PortCount || m_world.isClosed(port))
        return false; // the run looks whether anything waits
    send(QEvent::GraphicsSceneMouseMove, cursor, Qt::NoButton);
    send(QEvent::GraphicsSceneMousePress, press, Qt::LeftButton);
    send(QEvent::GraphicsSceneMouseMove, press + QPoint(300, -300), Qt::LeftButton);
    send(QEvent::GraphicsSceneMouseMove, cursor, Qt::LeftButton);
    switch (m_random.bounded(10)) {
    case 0:
        scene.leaveOperation();
        return false;
    case 1:
        send(QEvent::GraphicsSceneMousePress, cursor, Qt::RightButton);
        askForMenu(cursor);
        return false;
    default:
        send(QEvent::GraphicsSceneMouseRelease, cursor, Qt::LeftButton);
    }
    m_expected.append(port, covered(*first, cursor), type);
    return true;
}

void CRandomPlacing::send(QEvent::Type type, const QPointF &scenePos, Qt::MouseButton button)
{
    QGraphicsSceneMouseEvent event(type);
    event.setScenePos(scenePos);
    event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : button);
    event.setButtons(type == QEvent::GraphicsSceneMouseRelease ? Qt::NoButton : button);
    QCoreApplication::sendEvent(&m_world.scene, &event);
}

void CRandomPlacing::askForMenu(const QPointF &scenePos)
{
    QGraphicsSceneContextMenuEvent event(QEvent::GraphicsSceneContextMenu);
    event.setScenePos(scenePos);
    QCoreApplication::sendEvent(&m_world.scene, &event);
}
