// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/scene/CCabinetGraphicsScene.h"

#include "layout/api/access/IPortStates.h"
#include "layout/drawing/CGesturePainter.h"
#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CHighlights.h"
#include "layout/editor/content/CLayoutFaults.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/items/CFarPorts.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/operations/CGuardedUndo.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/placing/CPasteContent.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/scene/ISceneInput.h"
#include "layout/editor/undo/CUndoCommandBase.h"

#include <QMetaMethod>
#include <QPainter>

#include <algorithm>

CCabinetGraphicsScene::CCabinetGraphicsScene(const IPortStates &ports, QObject *parent)
    : CGraphicsScene(parent)
    , m_backend(std::make_unique<CSceneBackend>(
          *this, ports, [this](const CPendingEdits &work) { finishBatch(work); },
          [this](const QString &words) { Q_EMIT notifyWords(words); },
          [this] { Q_EMIT notifyFaultsChanged(); }))
{
    setUndoStack(&m_ownStack);
    connect(this, &QGraphicsScene::selectionChanged, this, &CCabinetGraphicsScene::onSelectionChanged);
}

CCabinetGraphicsScene::~CCabinetGraphicsScene()
{
    const QSignalBlocker silent(this); // no signals for items that are removed now
    setUndoStack(nullptr);
    clearLayout();
}

void CCabinetGraphicsScene::setLayoutData(const ProcessorTree::ProcessorNode &processor,
                                          const LayoutData &data, const PasteCache &pasteCache,
                                          const QList<QUuid> &selected, bool undoable)
{
    if (processor.uuid.isNull() || data.processor != processor.uuid)
        return;
    CSceneContent &content = m_backend->content();
    CUndoRecorder &recorder = m_backend->recorder();
    m_backend->placing().setCache(pasteCache);
    m_backend->batches().cancelGesture();
    const CEditBatch batch(m_backend->batches());
    if (undoable && content.canRebuild(data)) {
        const CUndoMacro macro(recorder, QStringLiteral("Reset"));
        content.rebuild(data, recorder);
        m_backend->faults().noteAll();                // the canvas may be another one
        m_backend->picks().only(selected.toVector()); // redo selects the same
    } else {
        recorder.setOperationName(QStringLiteral("Reset"));
        clearLayout();
        content.build(data);
        for (const CGraphicsPortItem *port : content.portItems())
            connect(port, &CGraphicsPortItem::childItemPosChanged, this,
                    [this] { m_portAreaChanged = true; });
        m_backend->faults().noteAll();
        m_backend->batches().forget();
        m_backend->batches().noteSelection();
        m_backend->picks().only(selected.toVector());
    }
    updateContentRect();
}

void CCabinetGraphicsScene::clearLayout()
{
    leaveOperation();
    const CEditBatch batch(m_backend->batches());
    clearSelection(); // otherwise each selected item that is deleted would announce it
    m_backend->highlights().clear();
    m_backend->content().clear();
    m_backend->faults().clear();
    updateContentRect();
}

void CCabinetGraphicsScene::getLayoutData(CabinetLayout &layout, const QUuid &processor) const
{
    m_backend->content().read(layout, processor);
}

const CSceneSelection &CCabinetGraphicsScene::selection() const
{
    return m_backend->selection();
}

void CCabinetGraphicsScene::setUndoStack(QUndoStack *stack)
{
    if (const QUndoStack *before = m_backend->recorder().stack())
        before->disconnect(this);
    m_backend->recorder().setStack(stack);
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
    m_backend->operations().wireByPattern(pattern);
}

void CCabinetGraphicsScene::breakSelectedWiring()
{
    m_backend->operations().breakSelectedWiring();
}

void CCabinetGraphicsScene::breakPortWiring(int port)
{
    m_backend->operations().breakPortWiring(port);
}

void CCabinetGraphicsScene::getPasteCache(PasteCache &cache) const
{
    cache = CPasteContent::copyOf(selection());
}

void CCabinetGraphicsScene::pasteItems(const QPointF &scenePos, QWidget *parent)
{
    m_backend->placing().paste(scenePos, parent);
}

void CCabinetGraphicsScene::leaveOperation()
{
    m_backend->batches().cancelGesture();
    m_backend->placing().endAppend();
    Q_EMIT notifyExitCurrentOperate();
}

void CCabinetGraphicsScene::finishBatch(const CPendingEdits &work)
{
    CSceneContent &content = m_backend->content();
    work.finish(content);
    polishNewItems();
    for (const int index : work.ports()) {
        content.forgetRecord(index);
        if (CGraphicsPortItem *port = content.portItem(index)) {
            port->takeNote();
            port->updateLabel();
        }
    }
    m_backend->batches().forget(); // what was reported meanwhile is done already
    if (work.isRepaint())
        updateViews();
    if (std::exchange(m_portAreaChanged, false))
        updateContentRect();
    if (work.isSelectedMoved())
        Q_EMIT notifySelectedItemGeometryChanged();
    // A drag becomes an edit when it ends.
    const bool edited = !work.ports().isEmpty() && !m_backend->isDragging();
    if (work.isSelectionChanged() || edited)
        tellSelection();
    if (edited) {
        m_backend->faults().notePorts(work.ports());
        Q_EMIT notifySceneChanged();
    }
    if (work.isHighlightChanged())
        Q_EMIT notifyHighlightChanged();
}

void CCabinetGraphicsScene::tellSelection()
{
    const CSceneSelection &selected = selection();
    if (!m_backend->isDragging())
        selected.raise(m_backend->content().portItems());
    Q_EMIT notifySelectedChanged(selected.ports(), selected.canGroup(), selected.canBreakGroup());
    static const QMetaMethod infos =
        QMetaMethod::fromSignal(&CCabinetGraphicsScene::notifySelectedCabinetInfos);
    if (isSignalConnected(infos)) // building the records costs a walk over the selection
        Q_EMIT notifySelectedCabinetInfos(selected.records());
}

void CCabinetGraphicsScene::selectAllItem()
{
    m_backend->picks().all();
}

void CCabinetGraphicsScene::undo(QWidget *view)
{
    m_backend->history().undo(view);
}

void CCabinetGraphicsScene::redo(QWidget *view)
{
    m_backend->history().redo(view);
}

void CCabinetGraphicsScene::selectedItemMoveUp()
{
    m_backend->operations().nudge({0, -1});
}

void CCabinetGraphicsScene::selectedItemMoveDown()
{
    m_backend->operations().nudge({0, 1});
}

void CCabinetGraphicsScene::selectedItemMoveLeft()
{
    m_backend->operations().nudge({-1, 0});
}

void CCabinetGraphicsScene::selectedItemMoveRight()
{
    m_backend->operations().nudge({1, 0});
}

void CCabinetGraphicsScene::setCabinetLocked(int port, bool locked)
{
    m_backend->batches().cancelGesture();
    if (CGraphicsPortItem *item = m_backend->content().portItem(port)) {
        item->setShownLocked(locked);
        item->updateLabel();
        m_backend->content().forgetRecord(port);
        update(item->boundingRect());
    }
    onSelectionChanged();
    Q_EMIT notifyLookChanged();
}

void CCabinetGraphicsScene::backupPort(int, int backup, bool back)
{
    m_backend->batches().cancelGesture(); // the state of ports has changed
    if (back)
        m_backend->operations().prepareBackup(backup);
}

void CCabinetGraphicsScene::onBackgroundChanged(const SBackgroundInfo &newInfo, const SBackgroundInfo &,
                                                bool sceneSizeChange)
{
    m_fill.set(newInfo);
    if (sceneSizeChange) {
        m_backend->content().setCanvas(m_backend->states().canvasSize());
        m_backend->faults().noteAll();
        updateContentRect();
    }
    updateViews();
    Q_EMIT notifyLookChanged();
}

void CCabinetGraphicsScene::onSelectionChanged()
{
    m_backend->batches().noteSelection();
}

void CCabinetGraphicsScene::onNotifyProcessorStateChanged()
{
    for (CGraphicsPortItem *port : m_backend->content().portItems()) {
        port->refreshState();
        port->updateLabel();
    }
    m_backend->faults().noteAll(); // what is redundant now has none
    m_backend->content().forgetRecords();
    updateViews();
    Q_EMIT notifyLookChanged();
}

void CCabinetGraphicsScene::onNotifyCabinetColorChanged(int port, const QColor &color)
{
    if (CGraphicsPortItem *item = m_backend->content().portItem(port)) {
        item->setColor(color);
        m_backend->content().forgetRecord(port);
        item->updateLabel();
        update(item->boundingRect());
        Q_EMIT notifyLookChanged();
    }
}

void CCabinetGraphicsScene::setCanvasSize(const QSize &size)
{
    m_backend->content().setCanvas(size);
    m_backend->faults().noteAll();
    updateContentRect();
    updateViews();
    Q_EMIT notifyLookChanged();
}

void CCabinetGraphicsScene::setPortLoad(int port, int load)
{
    if (CGraphicsPortItem *item = m_backend->content().portItem(port))
        item->setShownLoad(load);
}

ISceneInput *CCabinetGraphicsScene::input() const
{
    return m_backend->input();
}

void CCabinetGraphicsScene::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    if (!input() || !input()->openMenu(*event))
        CGraphicsScene::contextMenuEvent(event);
}

void CCabinetGraphicsScene::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!input() || !input()->press(*event))
        CGraphicsScene::mousePressEvent(event);
}

void CCabinetGraphicsScene::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (!input() || !input()->move(*event))
        CGraphicsScene::mouseMoveEvent(event);
}

void CCabinetGraphicsScene::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (!input() || !input()->release(*event))
        CGraphicsScene::mouseReleaseEvent(event);
}

void CCabinetGraphicsScene::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    if (!input() || !input()->doubleClick(*event))
        CGraphicsScene::mouseDoubleClickEvent(event);
}

void CCabinetGraphicsScene::updateContentRect()
{
    setContentRect(m_backend->content().bounds());
}

void CCabinetGraphicsScene::renderPicture(QPainter &painter, const QRectF &target, const QRectF &source)
{
    const auto drawUnder = [this, &painter, &source] { drawBackground(&painter, source); };
    if (!CFarPorts::drawPicture(m_backend->content().portItems(), painter, target, source, drawUnder))
        CGraphicsScene::renderPicture(painter, target, source);
}

void CCabinetGraphicsScene::drawBackground(QPainter *painter, const QRectF &rect)
{
    painter->fillRect(rect, CLayoutPainter::surroundings());
    const QSize canvas = m_backend->content().canvas();
    if (!canvas.isEmpty())
        CLayoutPainter::paintCanvas(*painter, QRectF(QPointF(0, 0), QSizeF(canvas)), m_fill);
}

void CCabinetGraphicsScene::paintLabels(QPainter &painter, const QRectF &exposed) const
{
    const qreal scale = painter.worldTransform().m11();
    const CSceneContent &content = m_backend->content();
    const QList<int> selected = selection().ports();
    QVector<SPortLook> looks;
    looks.reserve(content.portItems().size());
    for (const CGraphicsPortItem *port : content.portItems()) {
        looks << port->look();
        if (port->bounds().intersects(exposed) && !content.isHeld(port->port()))
            port->overview().paintEdge(painter, looks.last(), exposed, selected.contains(port->port()),
                                       scale);
    }
    for (const SPortLook &look : qAsConst(looks)) {
        if (!CPortLabel::mayReach(look, exposed, scale))
            continue;
        const QVector<QRectF> areas = CPortLabel::areas(look, scale);
        if (std::any_of(areas.begin(), areas.end(),
                        [&exposed](const QRectF &area) { return area.intersects(exposed); }))
            CPortLabel::paint(painter, look, scale);
    }
}

void CCabinetGraphicsScene::drawForeground(QPainter *painter, const QRectF &exposed)
{
    for (const CGraphicsPortItem *port : m_backend->content().portItems())
        port->overview().paintFrames(*painter, exposed, painter->worldTransform().m11());
    if (isPicturing())
        return;
    paintLabels(*painter, exposed);
    if (input())
        input()->paint(*painter);
    m_backend->placing().paint(*painter);
    if (const CGraphicsPortItem *port = m_backend->content().pointedOut()) {
        QVector<QRectF> cabinets;
        for (const CPortOverview::SPlace &place : port->overview().places()) {
            if (place.cabinet)
                cabinets << place.rect;
        }
        CGesturePainter::paintPointedOut(*painter, cabinets);
    }
}
