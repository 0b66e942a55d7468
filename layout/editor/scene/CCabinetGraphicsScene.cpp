// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/scene/CCabinetGraphicsScene.h"

#include "layout/api/access/IPortStates.h"
#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/items/CFarPorts.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/undo/CUndoCommandBase.h"
#include "platform/widgets/CMessageBox.h"

#include <QPainter>

CCabinetGraphicsScene::CCabinetGraphicsScene(const IPortStates &ports, QObject *parent)
    : CGraphicsScene(parent)
    , m_portStates(ports)
    , m_content(*this, *this, ports)
    , m_batches(*this, [this](const CPendingEdits &work) { finishBatch(work); })
    , m_picks(*this, *this, m_content, m_selection)
    , m_recorder([this] { return m_selection.uuids(); })
    , m_operations(*this, m_selection, m_recorder)
    , m_shape(*this, m_selection, m_recorder)
    , m_placing(*this, *this, ports, m_content, m_selection, m_recorder)
    , m_gestures(*this, *this, m_selection, m_recorder)
    , m_input(*this, m_gestures, m_placing)
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
        const CUndoMacro macro(m_recorder, QStringLiteral("Reset"), QStringLiteral("Reset"));
        m_content.rebuild(data, m_recorder);
        m_picks.only(selected.toVector()); // what redo selects, too
    } else {
        m_recorder.setOperationName(QStringLiteral("Reset"));
        clearLayout();
        reserveItems(data.layout.cabinetCount());
        m_content.build(data);
        for (const CGraphicsPortItem *port : portItems())
            connect(port, &CGraphicsPortItem::childItemPosChanged, this,
                    [this] { m_portAreaChanged = true; });
        m_batches.forget();
        m_batches.noteSelection();
        m_picks.only(selected.toVector());
    }
    updateContentRect();
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

CSceneOperations &CCabinetGraphicsScene::operations()
{
    cancelGesture();
    return m_operations;
}

CSelectionShape &CCabinetGraphicsScene::selectionShape()
{
    cancelGesture();
    return m_shape;
}

void CCabinetGraphicsScene::breakPortWiring(int port)
{
    if (CGraphicsPortItem *item = portItem(port))
        operations().breakPortWiring(*item);
}

void CCabinetGraphicsScene::askToClearTopology(QWidget *parent, int port)
{
    const CGraphicsPortItem *item = portItem(port);
    const QUuid asked = m_content.processor();
    if (!item || item->isLocked() ||
        CMessageBox::question(parent, tr("Are you sure you want to clear topology for the output port?")) !=
            0)
        return;
    if (m_content.processor() == asked)
        breakPortWiring(port);
    else
        CMessageBox::information(parent, tr("Set failed."), tr("The processor is no longer in view."));
}

void CCabinetGraphicsScene::cutSelected()
{
    if (m_selection.touchesLockedPort())
        return;
    copySelected();
    deleteSelected();
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

void CCabinetGraphicsScene::backupPort(int, int backup, bool back)
{
    cancelGesture(); // the state of ports has changed
    CGraphicsPortItem *item = portItem(backup);
    if (item && back)
        m_operations.prepareBackup(*item);
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
        m_picks.only(undoing ? own->selectionBefore() : own->selectionAfter());
}

void CCabinetGraphicsScene::finishBatch(const CPendingEdits &work)
{
    work.finish(*this);
    polishNewItems();
    for (const int index : work.ports()) {
        m_content.forgetRecord(index);
        if (CGraphicsPortItem *port = portItem(index)) {
            port->takeNote();
            port->updateEdges();
        }
    }
    m_batches.forget(); // what finishing noted has been done with it
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
    if (!m_gestures.isDragging())
        m_selection.raise(portItems());
    Q_EMIT notifySelectedChanged(m_selection.ports(), m_selection.canGroup(), m_selection.canBreakGroup());
    Q_EMIT notifySelectedCabinetInfos(m_selection.records());
}

void CCabinetGraphicsScene::noteHighlighted(CGraphicsCabinetItem &cabinet, bool highlighted)
{
    m_highlights.note(cabinet, highlighted);
    m_batches.noteHighlight();
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
    updateViews(); // handles come or go
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
    if (!m_input.openMenu(*event))
        CGraphicsScene::contextMenuEvent(event);
}

void CCabinetGraphicsScene::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!m_input.press(*event))
        CGraphicsScene::mousePressEvent(event);
}

void CCabinetGraphicsScene::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (!m_input.move(*event))
        CGraphicsScene::mouseMoveEvent(event);
}

void CCabinetGraphicsScene::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (!m_input.release(*event))
        CGraphicsScene::mouseReleaseEvent(event);
}

void CCabinetGraphicsScene::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    if (!m_input.doubleClick(*event))
        CGraphicsScene::mouseDoubleClickEvent(event);
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
    Q_EMIT notifyLookChanged();
}

void CCabinetGraphicsScene::setCanvasSize(const QSize &size)
{
    m_content.setCanvas(size);
    updateContentRect();
    updateViews();
    Q_EMIT notifyLookChanged();
}

void CCabinetGraphicsScene::onNotifyProcessorStateChanged()
{
    for (CGraphicsPortItem *port : portItems())
        port->refreshState();
    m_content.forgetRecords();
    updateViews();
    Q_EMIT notifyLookChanged();
}

void CCabinetGraphicsScene::onBackgroundChanged(const SBackgroundInfo &newInfo, const SBackgroundInfo &,
                                                bool sceneSizeChange)
{
    m_fill.set(newInfo);
    if (sceneSizeChange)
        updateContentRect();
    updateViews();
    Q_EMIT notifyLookChanged();
}

void CCabinetGraphicsScene::onNotifyCabinetColorChanged(int port, const QColor &color)
{
    if (CGraphicsPortItem *item = portItem(port)) {
        item->setColor(color);
        m_content.forgetRecord(port);
        update(item->boundingRect());
        Q_EMIT notifyLookChanged();
    }
}

void CCabinetGraphicsScene::updateContentRect()
{
    setContentRect(m_content.bounds());
}

void CCabinetGraphicsScene::renderPicture(QPainter &painter, const QRectF &target, const QRectF &source)
{
    const auto drawUnder = [this, &painter, &source] { drawBackground(&painter, source); };
    if (!CFarPorts::drawPicture(portItems(), painter, target, source, drawUnder))
        CGraphicsScene::renderPicture(painter, target, source);
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
