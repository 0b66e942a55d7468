// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/editor/SceneParts.h"
#include "tests/editor/SmallWorlds.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>

namespace MouseWorld {

using SmallWorlds::groupOf;

inline CabinetLayout::CabinetPort::Cabinet cabinetAt(int port, const QPoint &place,
                                                     const char *type = nullptr)
{
    auto cabinet = SmallWorlds::cabinet(port, 0, -1);
    cabinet.rect.moveTopLeft(place);
    if (type)
        cabinet.type = SMD5::ofContent(type);
    return cabinet;
}

/// Port 0: three loose cabinets in a row from the origin. Port 1: an L-shaped group that contains a group of
/// two. Port 2: a group of two that tiles a rectangle, and a group of two different types. Port 3: two
/// cabinets with two receivers each, the second with a fixed direction.
inline LayoutData mouseWorld()
{
    auto receivers = SmallWorlds::receiverPort(3);
    auto &cabinets = receivers.groups[0].cabinets;
    cabinets[0].rect.moveTopLeft({400, 0});
    cabinets[1].rect.moveTopLeft({600, 0});
    cabinets[1].directionFixed = true;
    const auto pair = groupOf({cabinetAt(1, {0, 200}), cabinetAt(1, {128, 200})});
    const auto outer = groupOf({cabinetAt(1, {128, 328})}, {pair});
    const auto tiles = groupOf({cabinetAt(2, {0, 500}, "a"), cabinetAt(2, {128, 500}, "a")});
    const auto mixed = groupOf({cabinetAt(2, {400, 500}, "a"), cabinetAt(2, {528, 500}, "b")});
    return SmallWorlds::data({SmallWorlds::port(0, {SmallWorlds::loose(0, 3)}), SmallWorlds::port(1, {outer}),
                              SmallWorlds::port(2, {tiles, mixed}), receivers});
}

} // namespace MouseWorld

/// A view of a small world, and its simulated mouse. Positions are scene coordinates.
class CMouseTester final
{
public:
    using Items = QSet<CGraphicsItemBase *>;

    CMouseTester()
        : m_data(MouseWorld::mouseWorld())
        , m_view(m_states)
    {
        m_view.resize(1000, 800);
        m_view.showLayout(SmallWorlds::node(m_data), m_data);
        m_view.show();
    }

    /// Sets the scale so that scene units are pixels. Call after the view is shown.
    void showAtActualSize()
    {
        m_view.setScaleFactor(1);
        m_view.centerOn(380, 320);
    }

    CLayoutGraphicsView &view() { return m_view; }
    CFixedPortStates &states() { return m_states; }
    /// The initial layout.
    const CabinetLayout &original() const { return m_data.layout; }

    CCabinetGraphicsScene &scene() { return m_view.cabinetScene(); }
    QUndoStack &stack() { return *scene().backend().recorder().stack(); }
    CGraphicsCabinetItem &cabinet(int port, int place)
    {
        return *scene().backend().content().portItem(port)->cabinets(nullptr).at(place);
    }
    CGraphicsItemBase *at(const QPoint &place)
    {
        for (const CGraphicsPortItem *port : scene().backend().content().portItems()) {
            for (CGraphicsCabinetItem *cabinet : port->cabinets(nullptr)) {
                if (cabinet->mapRectToScene(cabinet->rect()).contains(place))
                    return cabinet;
            }
        }
        return nullptr;
    }
    /// Whether nothing has been edited, and undone.
    bool isUntouched() { return layout() == original() && stack().count() == 0; }
    Items selected() { return scene().selection().items(); }
    CabinetLayout layout()
    {
        CabinetLayout layout;
        scene().getLayoutData(layout, m_data.processor);
        return layout;
    }

    void hover(const QPoint &place) { send(QEvent::MouseMove, place, false, {}); }
    void press(const QPoint &place, Qt::KeyboardModifiers keys = {})
    {
        send(QEvent::MouseButtonPress, place, true, keys);
    }
    /// The right button, alone or while the left one is pressed.
    void pressRight(const QPoint &place, bool besideLeft = false, Qt::KeyboardModifiers keys = {})
    {
        sendButton(QEvent::MouseButtonPress, place, Qt::RightButton,
                   besideLeft ? Qt::LeftButton | Qt::RightButton : Qt::RightButton, keys);
        sendButton(QEvent::MouseButtonRelease, place, Qt::RightButton,
                   besideLeft ? Qt::LeftButton : Qt::NoButton, keys);
    }
    /// The event that follows a press of the right button.
    void contextMenu(const QPoint &place)
    {
        const QPoint local = m_view.mapFromScene(place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, local, m_view.viewport()->mapToGlobal(local));
        QApplication::sendEvent(m_view.viewport(), &event);
    }
    /// With Alt nothing snaps to edges.
    void moveTo(const QPoint &place, Qt::KeyboardModifiers keys = Qt::AltModifier)
    {
        send(QEvent::MouseMove, place, true, keys);
    }
    void release(const QPoint &place, Qt::KeyboardModifiers keys = {})
    {
        send(QEvent::MouseButtonRelease, place, false, keys);
    }
    void click(const QPoint &place, Qt::KeyboardModifiers keys = {})
    {
        press(place, keys);
        release(place, keys);
    }
    void doubleClick(const QPoint &place, Qt::KeyboardModifiers keys = {})
    {
        click(place, keys);
        pressAgain(place, keys);
        release(place, keys);
    }
    /// A press soon after a click at the same place.
    void pressAgain(const QPoint &place, Qt::KeyboardModifiers keys = {})
    {
        send(QEvent::MouseButtonDblClick, place, true, keys);
    }
    /// A drag by one long move.
    void pull(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers pressKeys = {},
              Qt::KeyboardModifiers moveKeys = Qt::AltModifier)
    {
        press(from, pressKeys);
        moveTo(to, moveKeys);
        release(to, pressKeys | (moveKeys & ~Qt::AltModifier));
    }
    void drag(const QPoint &from, const QPoint &delta)
    {
        hover(from);
        press(from);
        moveTo(from + delta / 2);
        moveTo(from + delta);
        release(from + delta);
    }

private:
    void send(QEvent::Type type, const QPoint &place, bool down, Qt::KeyboardModifiers keys)
    {
        sendButton(type, place, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                   down ? Qt::LeftButton : Qt::NoButton, keys);
    }
    void sendButton(QEvent::Type type, const QPoint &place, Qt::MouseButton button, Qt::MouseButtons buttons,
                    Qt::KeyboardModifiers keys)
    {
        const QPoint local = m_view.mapFromScene(place);
        QMouseEvent event(type, local, m_view.viewport()->mapToGlobal(local), button, buttons, keys);
        QApplication::sendEvent(m_view.viewport(), &event);
    }

    CFixedPortStates m_states;
    LayoutData m_data;
    CLayoutGraphicsView m_view;
};
