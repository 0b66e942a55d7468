// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CCabinetGraphicsScene.h"

#include "layout/data/IPortStates.h"
#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/CGuardedUndo.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/menus/CCabinetMenu.h"
#include "layout/editor/menus/CCanvasMenu.h"
#include "layout/editor/undo/CUndoCommandBase.h"
#include "platform/widgets/CMessageBox.h"

#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QPainter>
#include <QPointer>

#include <algorithm>

CCabinetGraphicsScene::CCabinetGraphicsScene(const IPortStates &ports, QObject *parent)
    : CGraphicsScene(parent)
    , m_portStates(ports)
    , m_content(*this, *this, ports)
    , m_recorder([this] { return m_selection.uuids(); })
    , m_operations(*this, m_selection, m_recorder)
    , m_shape(*this, m_selection, m_recorder)
    , m_placing(*this, *this, ports, m_content, m_selection, m_recorder)
    , m_gestures(*this, *this, m_selection, m_recorder)
{
    setUndoStack(&m_ownStack);
    connect(this, &QGraphicsScene::selectionChanged, this, &CCabinetGraphicsScene::onSelectionChanged);
}

CCabinetGraphicsScene::~CCabinetGraphicsScene()
{
    const QSignalBlocker silent(this); // nobody is to be told of what goes now
    setUndoStack(nullptr);
    clearLayout();
}

void CCabinetGraphicsScene::setLayoutData(const ProcessorTree::ProcessorNode &processor,
                                          const LayoutData &data, const PasteCache &pasteCache,
                                          const QList<QUuid> &selected, bool undoable)
{
    if (processor.uuid.isNull() || data.processor != processor.uuid)
        return;
    m_placing.setCache(pasteCache);
    cancelGesture();
    const CEditBatch batch(*this);
    if (undoable && m_content.canRebuild(data)) {
        m_content.rebuild(data, m_recorder);
    } else {
        m_recorder.setOperationName(QStringLiteral("Reset"));
        clearLayout();
        reserveItems(data.layout.cabinetCount());
        m_content.build(data);
        for (const CGraphicsPortItem *port : portItems())
            connect(port, &CGraphicsPortItem::childItemPosChanged, this,
                    [this] { m_portAreaChanged = true; });
        m_pending = CPendingEdits();
        m_pending.noteSelection();
    }
    updateContentRect();
    selectOnly(selected.toVector());
}

void CCabinetGraphicsScene::clearLayout()
{
    cancelGesture();
    leaveOperation();
    const CEditBatch batch(*this);
    clearSelection(); // items that die selected would each announce it
    m_highlights.clear();
    forgetItems();
    m_content.clear();
    clear();
    updateContentRect();
}

CGraphicsItemBase *CCabinetGraphicsScene::editedItem(const QUuid &uuid) const
{
    return static_cast<CGraphicsItemBase *>(itemOf(uuid)); // only cabinets and groups are entered
}

void CCabinetGraphicsScene::enterEdited(CGraphicsItemBase &item)
{
    enterItem(item.uuid(), item);
    m_content.updateMappingIndex(item);
}

void CCabinetGraphicsScene::leaveEdited(CGraphicsItemBase &item)
{
    item.setSelected(false); // Qt drops it from the selection without a word otherwise
    if (item.type() == CabinetItemKind)
        static_cast<CGraphicsCabinetItem &>(item).setHighlighted(false);
    leaveItem(item.uuid());
}

void CCabinetGraphicsScene::setUndoStack(QUndoStack *stack)
{
    if (undoStack())
        undoStack()->disconnect(this);
    m_recorder.setStack(stack);
    if (!stack)
        return;
    connect(stack, &QUndoStack::canUndoChanged, this, &CCabinetGraphicsScene::notifyCanUndoChanged);
    connect(stack, &QUndoStack::canRedoChanged, this, &CCabinetGraphicsScene::notifyCanRedoChanged);
}

const CUndoCommandBase *CCabinetGraphicsScene::getChildUndoCommand(const QUndoCommand *command) const
{
    return CGuardedUndo::ownCommand(command);
}

void CCabinetGraphicsScene::topologyWiring(uint pattern)
{
    cancelGesture();
    m_operations.wireByPattern(pattern > uint(INT_MAX) ? -1 : int(pattern));
}

void CCabinetGraphicsScene::breakSelectedWiring()
{
    cancelGesture();
    m_operations.breakSelectedWiring();
}

void CCabinetGraphicsScene::breakPortWiring(int port)
{
    cancelGesture();
    if (CGraphicsPortItem *item = portItem(port))
        m_operations.breakPortWiring(*item);
}

void CCabinetGraphicsScene::askToClearTopology(QWidget *parent, int port)
{
    const CGraphicsPortItem *item = portItem(port);
    if (item && !item->isLocked() &&
        CMessageBox::question(parent, tr("Are you sure you want to clear topology for the output port?")) ==
            0)
        breakPortWiring(port);
}

void CCabinetGraphicsScene::groupSelected()
{
    cancelGesture();
    m_operations.group(m_content.takeOrdinal());
}

void CCabinetGraphicsScene::ungroupSelected()
{
    cancelGesture();
    m_operations.ungroup();
}

void CCabinetGraphicsScene::deleteSelected()
{
    cancelGesture();
    m_operations.remove();
}

void CCabinetGraphicsScene::cutSelected()
{
    if (m_selection.touchesLockedPort())
        return;
    copySelected();
    cancelGesture();
    m_operations.remove();
}

CSelectionShape &CCabinetGraphicsScene::selectionShape()
{
    cancelGesture();
    return m_shape;
}

void CCabinetGraphicsScene::selectSameType(const QUuid &uuid)
{
    CGraphicsItemBase *item = editedItem(uuid);
    const QVector<CGraphicsCabinetItem *> concerned =
        item ? item->concernedCabinets() : QVector<CGraphicsCabinetItem *>();
    if (concerned.isEmpty())
        return;
    const auto model = concerned.first()->cabinet();
    QVector<QUuid> same;
    for (const CGraphicsCabinetItem *cabinet : item->portItem()->cabinets(nullptr)) {
        const auto &record = cabinet->cabinet();
        if (record.type == model.type && (!model.type.isNull() || record.rect.size() == model.rect.size()))
            same << record.uuid;
    }
    selectOnly(same);
}

void CCabinetGraphicsScene::pasteItems(const QPointF &scenePos, QWidget *parent)
{
    cancelGesture();
    m_placing.paste(scenePos, parent);
}

void CCabinetGraphicsScene::beginAppend(const CScenePlacing::TypeInfo &type, int port, const QSize &size)
{
    cancelGesture();
    m_placing.beginAppend(type, port, size);
}

void CCabinetGraphicsScene::endAppend()
{
    if (isAppending())
        m_placing.endAppend();
}

void CCabinetGraphicsScene::exchangeReceivers(int, const QUuid &cabinet, int)
{
    m_operations.exchangeReceivers(cabinet);
}

void CCabinetGraphicsScene::selectAllItem()
{
    const CEditBatch batch(*this);
    {
        const QSignalBlocker silent(this); // Qt tells of every single item
        for (const CGraphicsPortItem *port : portItems()) {
            for (CGraphicsItemBase *item : port->topItems())
                item->setSelected(true);
        }
    }
    Q_EMIT selectionChanged();
}

void CCabinetGraphicsScene::nudge(const QPointF &step)
{
    cancelGesture();
    m_operations.nudge(step);
}

void CCabinetGraphicsScene::backupPort(int, int backup, bool back)
{
    cancelGesture();
    CGraphicsPortItem *item = portItem(backup);
    if (item && back)
        m_operations.prepareBackup(*item);
}

void CCabinetGraphicsScene::undo(QWidget *view)
{
    runStep(view, true);
}

void CCabinetGraphicsScene::redo(QWidget *view)
{
    runStep(view, false);
}

void CCabinetGraphicsScene::runStep(QWidget *view, bool undoing)
{
    cancelGesture();
    QUndoStack *stack = undoStack();
    if (!stack || !(undoing ? stack->canUndo() : stack->canRedo()))
        return;
    const QUndoCommand *command = stack->command(undoing ? stack->index() - 1 : stack->index());
    const QString refused = CGuardedUndo::refusal(*this, *command, undoing);
    if (!refused.isEmpty()) {
        CMessageBox::information(view, refused);
        return;
    }
    const CEditBatch batch(*this);
    if (undoing)
        stack->undo();
    else
        stack->redo();
    for (CGraphicsPortItem *port : portItems())
        port->refreshState();
    if (const CUndoCommandBase *own = getChildUndoCommand(command))
        selectOnly(undoing ? own->selectionBefore() : own->selectionAfter());
}

void CCabinetGraphicsScene::selectOnly(const QVector<QUuid> &uuids)
{
    QSet<CGraphicsItemBase *> wanted;
    for (const QUuid &uuid : uuids) {
        if (CGraphicsItemBase *item = editedItem(uuid))
            wanted.insert(item);
    }
    const CEditBatch batch(*this);
    const QSet<CGraphicsItemBase *> before = m_selection.items();
    for (CGraphicsItemBase *item : before) {
        if (!wanted.contains(item))
            item->setSelected(false);
    }
    for (CGraphicsItemBase *item : qAsConst(wanted))
        item->setSelected(true);
}

void CCabinetGraphicsScene::beginBatch()
{
    ++m_batchDepth;
}

void CCabinetGraphicsScene::endBatch()
{
    while (m_batchDepth == 1 && !m_pending.isEmpty())
        finishBatch(); // who is told of the batch may edit in turn
    --m_batchDepth;
}

void CCabinetGraphicsScene::finishBatch()
{
    const CPendingEdits work = std::exchange(m_pending, CPendingEdits());
    work.finish(*this);
    polishNewItems();
    for (const int index : work.ports()) {
        m_content.forgetRecord(index);
        if (CGraphicsPortItem *port = portItem(index))
            port->takeNote();
    }
    m_pending = CPendingEdits(); // what finishing noted has been done with it
    if (std::exchange(m_portAreaChanged, false))
        updateContentRect();
    if (work.isSelectedMoved())
        Q_EMIT notifySelectedItemGeometryChanged();
    const bool edited = !work.ports().isEmpty() && !m_gestures.isDragging(); // a drag is an edit when it ends
    if (work.isSelectionChanged() || edited)
        tellSelection();
    if (edited)
        Q_EMIT notifySceneChanged();
    if (work.isHighlightChanged())
        Q_EMIT notifyHighlightChanged();
}

void CCabinetGraphicsScene::tellSelection()
{
    Q_EMIT notifySelectedChanged(m_selection.ports(), m_selection.canGroup(), m_selection.canBreakGroup());
    Q_EMIT notifySelectedCabinetInfos(m_selection.records());
}

void CCabinetGraphicsScene::onSelectionChanged()
{
    const CEditBatch batch(*this);
    m_pending.noteSelection();
}

void CCabinetGraphicsScene::noteCabinetMoved(CGraphicsCabinetItem &cabinet)
{
    const CEditBatch batch(*this);
    m_pending.noteCabinetMoved(cabinet);
    if (CGraphicsGroupItem *group = cabinet.groupItem())
        m_pending.noteMembersChanged(*group);
    if (CGraphicsPortItem *port = cabinet.portItem())
        port->noteChanged();
    if (cabinet.isSelectedWithGroups())
        m_pending.noteSelectedMoved();
}

void CCabinetGraphicsScene::noteMembersChanged(CGraphicsGroupItem &group)
{
    const CEditBatch batch(*this);
    m_pending.noteMembersChanged(group);
    if (CGraphicsPortItem *port = group.portItem())
        port->noteChanged();
}

void CCabinetGraphicsScene::notePortChanged(CGraphicsPortItem &port)
{
    const CEditBatch batch(*this);
    m_pending.notePortChanged(port);
}

void CCabinetGraphicsScene::noteWiringChanged(CGraphicsPortItem &)
{
    onSelectionChanged();
}

void CCabinetGraphicsScene::noteSelected(CGraphicsItemBase &item, bool selected)
{
    if (m_selection.count() <= 2) { // handles come or go with the only one
        for (CGraphicsItemBase *other : m_selection.items())
            other->update();
    }
    m_selection.note(item, selected);
}

void CCabinetGraphicsScene::noteHighlighted(CGraphicsCabinetItem &cabinet, bool highlighted)
{
    const CEditBatch batch(*this);
    m_highlights.note(cabinet, highlighted);
    m_pending.noteHighlight();
}

void CCabinetGraphicsScene::pressHighlight(CGraphicsCabinetItem &cabinet, bool adding)
{
    const CEditBatch batch(*this);
    m_highlights.press(cabinet, adding);
}

void CCabinetGraphicsScene::clearHighlights()
{
    const CEditBatch batch(*this);
    m_highlights.clear();
}

void CCabinetGraphicsScene::selectPort(int port, bool selected)
{
    const CEditBatch batch(*this);
    if (const CGraphicsPortItem *item = portItem(port)) {
        for (CGraphicsItemBase *top : item->topItems())
            top->setSelected(selected);
    }
}

void CCabinetGraphicsScene::leaveOperation()
{
    cancelGesture();
    endAppend();
    Q_EMIT notifyExitCurrentOperate();
}

void CCabinetGraphicsScene::setToolMode(EToolMode mode, bool on)
{
    cancelGesture();
    if (on)
        m_toolModes.insert(mode);
    else
        m_toolModes.remove(mode);
    update(); // handles come or go
}

void CCabinetGraphicsScene::beginMove(const QPointF &scenePos)
{
    if (!m_toolModes.isEmpty())
        return;
    m_gestures.beginMove(scenePos);
    if (m_gestures.isDragging())
        m_content.holdCabinets(m_selection.ports());
}

void CCabinetGraphicsScene::beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos)
{
    if (!m_toolModes.isEmpty() || !item.canResize())
        return;
    m_gestures.beginScale(item, handle, scenePos);
    m_content.holdCabinets({item.port()});
}

bool CCabinetGraphicsScene::endDrag(const QPointF &scenePos)
{
    m_content.releaseCabinets();
    return m_gestures.endDrag(scenePos);
}

void CCabinetGraphicsScene::cancelGesture()
{
    m_gestures.cancel();
    m_content.releaseCabinets();
}

void CCabinetGraphicsScene::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    if (isAppending()) {
        leaveOperation(); // here, as the press comes first and must not make way for a menu
        event->accept();
        return;
    }
    if (!m_toolModes.isEmpty() || isOn(event->scenePos(), CabinetItemKind) ||
        isOn(event->scenePos(), GroupItemKind)) {
        CGraphicsScene::contextMenuEvent(event);
        return;
    }
    cancelGesture();
    const QPointer<QMenu> menu = new QMenu(event->widget());
    CCanvasMenu::fill(*menu, *this, event->scenePos(), event->widget());
    menu->exec(event->screenPos());
    delete menu;
    event->accept();
}

void CCabinetGraphicsScene::showCabinetMenu(CGraphicsItemBase &item, QWidget *widget, const QPoint &screenPos)
{
    if (!m_toolModes.isEmpty() || isAppending())
        return;
    cancelGesture();
    const QPointer<QMenu> menu = new QMenu(widget);
    CCabinetMenu(*menu, *this, item, widget).fill();
    menu->exec(screenPos);
    delete menu;
}

void CCabinetGraphicsScene::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    cancelGesture();
    if (isAppending()) {
        if (event->button() == Qt::LeftButton)
            m_placing.press(*event);
        event->accept();
        return;
    }
    if (event->buttons() == event->button())
        m_gestures.beginPress();
    const bool onItem = isOn(event->scenePos(), CabinetItemKind) || isOn(event->scenePos(), GroupItemKind);
    if (onItem || event->button() != Qt::LeftButton || !m_toolModes.isEmpty()) {
        CGraphicsScene::mousePressEvent(event);
        return;
    }
    m_gestures.beginBand(event->scenePos(), event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
    event->accept();
}

void CCabinetGraphicsScene::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_toolModes.isEmpty() && !isAppending() &&
        isOn(event->scenePos(), CabinetItemKind)) {
        m_gestures.beginPress();
        CGraphicsScene::mouseDoubleClickEvent(event);
        return;
    }
    // Everything else that takes clicks takes quick ones as well.
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setWidget(event->widget());
    press.setScenePos(event->scenePos());
    press.setScreenPos(event->screenPos());
    press.setLastScenePos(event->lastScenePos());
    press.setLastScreenPos(event->lastScreenPos());
    press.setButton(event->button());
    press.setButtons(event->buttons());
    press.setModifiers(event->modifiers());
    mousePressEvent(&press);
    event->setAccepted(press.isAccepted());
}

bool CCabinetGraphicsScene::isOn(const QPointF &scenePos, int kind) const
{
    const QList<QGraphicsItem *> under = items(scenePos, Qt::IntersectsItemBoundingRect);
    return std::any_of(under.begin(), under.end(),
                       [kind](const QGraphicsItem *item) { return item->type() == kind; });
}

void CCabinetGraphicsScene::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (isAppending())
        m_placing.move(*event);
    else if (m_gestures.hasBand())
        m_gestures.continueBand(event->scenePos());
    else
        CGraphicsScene::mouseMoveEvent(event);
}

void CCabinetGraphicsScene::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (isAppending()) {
        if (event->button() == Qt::LeftButton && m_placing.release(*event))
            Q_EMIT notifyExitCurrentOperate();
    } else if (m_gestures.hasBand())
        m_gestures.endBand();
    else
        CGraphicsScene::mouseReleaseEvent(event);
}

void CCabinetGraphicsScene::setCabinetLocked(int port, bool locked)
{
    cancelGesture();
    if (CGraphicsPortItem *item = portItem(port)) {
        item->setShownLocked(locked);
        m_content.forgetRecord(port);
        update(item->boundingRect());
    }
    onSelectionChanged();
}

void CCabinetGraphicsScene::setCanvasSize(const QSize &size)
{
    m_content.setCanvas(size);
    updateContentRect();
    update();
}

void CCabinetGraphicsScene::onNotifyProcessorStateChanged()
{
    for (CGraphicsPortItem *port : portItems())
        port->refreshState();
    m_content.forgetRecords();
    update();
}

void CCabinetGraphicsScene::onBackgroundChanged(const SBackgroundInfo &newInfo, const SBackgroundInfo &,
                                                bool sceneSizeChange)
{
    m_fill.set(newInfo);
    if (sceneSizeChange)
        updateContentRect();
    update();
}

void CCabinetGraphicsScene::onNotifyCabinetColorChanged(int port, const QColor &color)
{
    if (CGraphicsPortItem *item = portItem(port)) {
        item->setColor(color);
        m_content.forgetRecord(port);
        update(item->boundingRect());
    }
}

void CCabinetGraphicsScene::updateContentRect()
{
    setContentRect(m_content.bounds());
}

void CCabinetGraphicsScene::drawBackground(QPainter *painter, const QRectF &rect)
{
    painter->fillRect(rect, CLayoutPainter::surroundings());
    if (!m_content.canvas().isEmpty())
        CLayoutPainter::paintCanvas(*painter, QRectF(QPointF(0, 0), QSizeF(m_content.canvas())), m_fill);
}

void CCabinetGraphicsScene::drawForeground(QPainter *painter, const QRectF &)
{
    if (isPicturing())
        return;
    m_gestures.paint(*painter);
    m_placing.paint(*painter);
}
