// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CCabinetGraphicsScene.h"

#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/CGuardedUndo.h"
#include "layout/editor/CLayoutBuilder.h"
#include "layout/editor/CLayoutReader.h"
#include "layout/editor/CLayoutRebuild.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/undo/CUndoCommandBase.h"
#include "platform/widgets/CMessageBox.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

#include <algorithm>

CCabinetGraphicsScene::CCabinetGraphicsScene(const IPortStates &ports, QObject *parent)
    : CGraphicsScene(parent)
    , m_portStates(ports)
    , m_recorder([this] { return m_selection.uuids(); })
    , m_operations(*this, m_selection, m_recorder)
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

// ---- records
// ---------------------------------------------------------------------------------------------------

void CCabinetGraphicsScene::setLayoutData(const ProcessorTree::ProcessorNode &processor,
                                          const LayoutData &data, const QList<QUuid> &selected, bool undoable)
{
    if (processor.uuid.isNull() || data.processor != processor.uuid)
        return;
    cancelGesture();
    const CEditBatch batch(*this);
    if (undoable && m_processor == data.processor && hasSamePorts(data.layout))
        rebuildUndoable(data);
    else
        buildAnew(data);
    setCanvasSize(data.canvas);
    updateContentRect();
    selectOnly(selected);
}

bool CCabinetGraphicsScene::hasSamePorts(const CabinetLayout &layout) const
{
    return std::equal(
        m_ports.begin(), m_ports.end(), layout.ports.begin(), layout.ports.end(),
        [](const CGraphicsPortItem *item, const auto &record) { return item->port() == record.index; });
}

void CCabinetGraphicsScene::rebuildUndoable(const LayoutData &data)
{
    const CUndoMacro macro(m_recorder, QStringLiteral("Reset"), QStringLiteral("Reset"));
    CLayoutRebuild rebuild(*this, m_recorder, m_nextOrdinal);
    for (CGraphicsPortItem *port : qAsConst(m_ports))
        rebuild.empty(*port);
    for (int i = 0; i < m_ports.size(); ++i)
        rebuild.fill(*m_ports.at(i), data.layout.ports.at(i));
    m_nextOrdinal = rebuild.nextOrdinal();
}

void CCabinetGraphicsScene::buildAnew(const LayoutData &data)
{
    clearLayout();
    m_processor = data.processor;
    reserveItems(data.layout.cabinetCount());
    CLayoutBuilder builder(*this, m_portStates, m_nextOrdinal);
    for (const CabinetLayout::CabinetPort &record : data.layout.ports) {
        CGraphicsPortItem *port = builder.build(record);
        m_ports << port;
        addItem(port);
    }
    std::stable_sort(
        m_ports.begin(), m_ports.end(),
        [](const CGraphicsPortItem *a, const CGraphicsPortItem *b) { return a->port() < b->port(); });
    m_nextOrdinal = builder.nextOrdinal();
    for (CGraphicsPortItem *port : qAsConst(m_ports))
        port->takeNote();
    m_pending = CPendingEdits(); // what is shown anew is no edit
    m_pending.noteSelection();
}

void CCabinetGraphicsScene::clearLayout()
{
    cancelGesture();
    const CEditBatch batch(*this);
    clearSelection(); // items that die selected would each announce it
    forgetItems();
    m_records.clear();
    m_ports.clear();
    m_processor = QUuid();
    m_canvas = QSize();
    clear();
    updateContentRect();
}

void CCabinetGraphicsScene::getLayoutData(CabinetLayout &layout, const QUuid &processor) const
{
    layout = CabinetLayout();
    if (processor != m_processor)
        return;
    layout.processor = m_processor;
    layout.ports.reserve(m_ports.size());
    for (const CGraphicsPortItem *port : m_ports) {
        auto record = m_records.find(port->port());
        if (record == m_records.end())
            record = m_records.insert(port->port(), CLayoutReader::read(*port));
        layout.ports << *record;
    }
}

CGraphicsPortItem *CCabinetGraphicsScene::portItem(int port) const
{
    const auto found =
        std::lower_bound(m_ports.begin(), m_ports.end(), port,
                         [](const CGraphicsPortItem *item, int index) { return item->port() < index; });
    return found == m_ports.end() || (*found)->port() != port ? nullptr : *found;
}

CGraphicsItemBase *CCabinetGraphicsScene::editedItem(const QUuid &uuid) const
{
    return static_cast<CGraphicsItemBase *>(itemOf(uuid)); // only cabinets and groups are entered
}

void CCabinetGraphicsScene::enterEdited(CGraphicsItemBase &item)
{
    enterItem(item);
}

void CCabinetGraphicsScene::leaveEdited(CGraphicsItemBase &item)
{
    item.setSelected(false); // Qt drops it from the selection without a word otherwise
    leaveItem(item);
}

// ---- edits
// -----------------------------------------------------------------------------------------------------

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

void CCabinetGraphicsScene::groupSelected()
{
    cancelGesture();
    m_operations.group(m_nextOrdinal++);
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

void CCabinetGraphicsScene::exchangeReceivers(int, const QUuid &cabinet, int)
{
    m_operations.exchangeReceivers(cabinet);
}

void CCabinetGraphicsScene::selectAllItem()
{
    const CEditBatch batch(*this);
    for (const CGraphicsPortItem *port : qAsConst(m_ports)) {
        for (CGraphicsItemBase *item : port->topItems())
            item->setSelected(true);
    }
}

void CCabinetGraphicsScene::selectedItemMoveUp()
{
    cancelGesture();
    m_operations.nudge(QPointF(0, -1));
}

void CCabinetGraphicsScene::selectedItemMoveDown()
{
    cancelGesture();
    m_operations.nudge(QPointF(0, 1));
}

void CCabinetGraphicsScene::selectedItemMoveLeft()
{
    cancelGesture();
    m_operations.nudge(QPointF(-1, 0));
}

void CCabinetGraphicsScene::selectedItemMoveRight()
{
    cancelGesture();
    m_operations.nudge(QPointF(1, 0));
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
    for (CGraphicsPortItem *port : qAsConst(m_ports))
        port->refreshState();
    if (const CUndoCommandBase *own = getChildUndoCommand(command))
        selectOnly(undoing ? own->selectionBefore() : own->selectionAfter());
}

void CCabinetGraphicsScene::selectOnly(const QList<QUuid> &uuids)
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

// ---- batches
// ---------------------------------------------------------------------------------------------------

void CCabinetGraphicsScene::beginBatch()
{
    ++m_batchDepth;
}

void CCabinetGraphicsScene::endBatch()
{
    if (m_batchDepth == 1)
        finishBatch();
    --m_batchDepth;
}

void CCabinetGraphicsScene::finishBatch()
{
    if (m_pending.isEmpty())
        return;
    const CPendingEdits work = std::exchange(m_pending, CPendingEdits());
    work.finish(*this);
    polishNewItems();
    for (const int index : work.ports()) {
        m_records.remove(index);
        if (CGraphicsPortItem *port = portItem(index))
            port->takeNote();
    }
    m_pending = CPendingEdits(); // what finishing noted has been done with it
    updateContentRect();
    if (work.isSelectedMoved())
        Q_EMIT notifySelectedItemGeometryChanged();
    const bool edited = !work.ports().isEmpty() && !m_gestures.isDragging(); // a drag is an edit when it ends
    if (work.isSelectionChanged() || edited)
        tellSelection();
    if (edited)
        Q_EMIT notifySceneChanged();
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
    m_selection.note(item, selected);
}

// ---- gestures
// --------------------------------------------------------------------------------------------------

void CCabinetGraphicsScene::setToolMode(EToolMode mode, bool on)
{
    cancelGesture();
    if (on)
        m_toolModes.insert(mode);
    else
        m_toolModes.remove(mode);
}

void CCabinetGraphicsScene::beginMove(const QPointF &scenePos)
{
    if (m_toolModes.isEmpty())
        m_gestures.beginMove(scenePos);
}

void CCabinetGraphicsScene::beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos)
{
    if (m_toolModes.isEmpty() && item.canResize())
        m_gestures.beginScale(item, handle, scenePos);
}

void CCabinetGraphicsScene::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    cancelGesture();
    CGraphicsScene::mousePressEvent(event);
    if (event->isAccepted() || event->button() != Qt::LeftButton || !m_toolModes.isEmpty())
        return;
    m_gestures.beginBand(event->scenePos(), event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
    event->accept();
}

void CCabinetGraphicsScene::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (m_gestures.hasBand())
        m_gestures.continueBand(event->scenePos());
    else
        CGraphicsScene::mouseMoveEvent(event);
}

void CCabinetGraphicsScene::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (m_gestures.hasBand())
        m_gestures.endBand();
    else
        CGraphicsScene::mouseReleaseEvent(event);
}

// ---- what the host says
// ----------------------------------------------------------------------------------------

void CCabinetGraphicsScene::setCabinetLocked(int port, bool locked)
{
    cancelGesture();
    if (CGraphicsPortItem *item = portItem(port)) {
        item->setShownLocked(locked);
        m_records.remove(port);
        update(item->boundingRect());
    }
    onSelectionChanged();
}

void CCabinetGraphicsScene::setCanvasSize(const QSize &size)
{
    m_canvas = size;
    updateContentRect();
    update();
}

void CCabinetGraphicsScene::onNotifyProcessorStateChanged()
{
    for (CGraphicsPortItem *port : qAsConst(m_ports))
        port->refreshState();
    m_records.clear();
    update();
}

void CCabinetGraphicsScene::onNotifyCabinetColorChanged(int port, const QColor &color)
{
    if (CGraphicsPortItem *item = portItem(port)) {
        item->setColor(color);
        m_records.remove(port);
        update(item->boundingRect());
    }
}

void CCabinetGraphicsScene::updateContentRect()
{
    QRectF content(QPointF(0, 0), QSizeF(m_canvas));
    for (const CGraphicsPortItem *port : qAsConst(m_ports))
        content |= port->boundingRect();
    setContentRect(content);
}

void CCabinetGraphicsScene::drawBackground(QPainter *painter, const QRectF &rect)
{
    painter->fillRect(rect, CLayoutPainter::surroundings());
    if (!m_canvas.isEmpty())
        CLayoutPainter::paintCanvas(*painter, QRectF(QPointF(0, 0), QSizeF(m_canvas)));
}

void CCabinetGraphicsScene::drawForeground(QPainter *painter, const QRectF &)
{
    m_gestures.paint(*painter);
}
