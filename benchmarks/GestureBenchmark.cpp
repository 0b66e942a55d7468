// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/CBareSide.h"
#include "benchmarks/EditSides.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QMouseEvent>

#include <algorithm>

namespace {

constexpr int GestureRepetitions = 3;
constexpr int MovesOneWay = 8;
constexpr int MeasuredPort = 1;

void send(QGraphicsView &view, QEvent::Type type, const QPoint &place, Qt::MouseButton button,
          Qt::MouseButtons buttons)
{
    QMouseEvent event(type, place, view.viewport()->mapToGlobal(place), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &event);
    QCoreApplication::processEvents(); // the scene tells the view what has changed
    QEvent paint(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(view.window(), &paint); // by itself it would come with the next tick
}

/// The slowest frame, in milliseconds, of a mouse that goes from one place of the view to another and back.
double slowestFrame(QGraphicsView &view, const QPoint &from, const QPoint &to, Qt::MouseButtons buttons)
{
    double slowest = 0;
    for (int step = 1; step <= 2 * MovesOneWay; ++step) {
        const int out = std::min(step, 2 * MovesOneWay - step);
        SWork frame;
        frame.run = [&view, buttons, place = from + (to - from) * out / MovesOneWay] {
            send(view, QEvent::MouseMove, place, Qt::NoButton, buttons);
        };
        slowest = std::max(slowest, Figures::milliseconds(frame));
    }
    return slowest;
}

std::function<double()> hovering(QGraphicsView &view)
{
    return [&view] {
        const QRect area = view.viewport()->rect();
        return slowestFrame(view, area.center(), area.center() + QPoint(area.width() / 3, area.height() / 3),
                            Qt::NoButton);
    };
}

/// With the left button down, up to where it began; @p select makes the selection that is dragged.
std::function<double()> dragging(QGraphicsView &view, const QPoint &from, const QPoint &to,
                                 const std::function<void()> &select)
{
    return [&view, from, to, select] {
        view.scene()->clearSelection();
        select();
        send(view, QEvent::MouseMove, from, Qt::NoButton, Qt::NoButton);
        send(view, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        const double slowest = slowestFrame(view, from, to, Qt::LeftButton);
        send(view, QEvent::MouseButtonRelease, from, Qt::LeftButton, Qt::NoButton);
        return slowest;
    };
}

void printFrames(const QByteArray &name, int count, const SMedians &medians)
{
    Figures::print(
        {name.constData(), count, medians.work, "bare scene with contained ports", medians.reference});
}

/// From a corner of the view, outside the wall, over all of it.
void measureBand(CEditorSide &editor, CBareSide &bare, const char *which)
{
    bare.view().setDragMode(QGraphicsView::RubberBandDrag);
    const QPoint from(2, 2);
    const QPoint to = bare.view().viewport()->rect().bottomRight() - from;
    const auto nothing = [] {};
    printFrames(QByteArray("B14 frame of a rubber band over the full wall") + which,
                Wall::FullPorts * Wall::CabinetsPerPort,
                Figures::compare(GestureRepetitions, dragging(editor.view(), from, to, nothing),
                                 dragging(bare.view(), from, to, nothing)));
    bare.view().setDragMode(QGraphicsView::NoDrag);
}

/// Selects the bare scene's port at @p place.
void selectBarePort(const CBareScene &scene, const QPointF &place)
{
    const QGraphicsItem *item = scene.itemAt(place, QTransform());
    const QList<QGraphicsItem *> children = (item->parentItem() ? item->parentItem() : item)->childItems();
    for (QGraphicsItem *child : children)
        child->setSelected(true);
}

void measurePortDrag(CEditorSide &editor, CBareSide &bare, const char *which)
{
    const CGraphicsPortItem &port = *editor.scene().backend().content().portItems().at(MeasuredPort);
    const QPointF middle = port.boundingRect().center();
    const QPoint from = editor.view().mapFromScene(middle);
    const QPoint to = from + QPoint(60, 30);
    const auto editorDrag = dragging(
        editor.view(), from, to, [&editor, &port] { EditSides::selectPort(editor.scene(), port.port()); });
    const auto bareDrag =
        dragging(bare.view(), from, to, [&bare, middle] { selectBarePort(bare.scene(), middle); });
    printFrames(QByteArray("B14 frame of dragging a port's cabinets") + which, Wall::CabinetsPerPort,
                Figures::compare(GestureRepetitions, editorDrag, bareDrag));
}

void measureGesturesOn(const LayoutData &data, const char *which)
{
    const QPoint middle = data.bounds.center();
    CEditorSide editor;
    editor.load(data);
    CBareSide bare(CBareScene::ContainedPorts, CBareScene::Outlined);
    bare.load(data.layout);
    editor.view().fitContent();
    bare.view().setTransform(editor.view().transform());
    bare.view().centerOn(middle);
    measureBand(editor, bare, which);
    measurePortDrag(editor, bare, which);

    editor.view().showActualSize();
    editor.view().centerOn(middle);
    bare.view().resetTransform();
    bare.view().centerOn(middle);
    const QList<QGraphicsItem *> bareItems = bare.scene().items();
    for (QGraphicsItem *item : bareItems)
        item->setAcceptHoverEvents(true);
    printFrames(QByteArray("B14 frame of hovering at 1:1") + which, data.layout.cabinetCount(),
                Figures::compare(GestureRepetitions, hovering(editor.view()), hovering(bare.view())));
}

} // namespace

void Benchmarks::measureGestures()
{
    measureGesturesOn(Wall::data(Wall::FullPorts), "");
    measureGesturesOn(Wall::data(Wall::FullPorts, false, Wall::UsualSide), ", cabinets of 128 pixels");
}
