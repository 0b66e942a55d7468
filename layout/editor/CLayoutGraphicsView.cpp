// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CLayoutGraphicsView.h"

#include "layout/data/IPortStates.h"
#include "layout/editor/CCabinetGraphicsScene.h"
#include "layout/editor/CEditorStrip.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "platform/widgets/CMessageBox.h"

#include <QKeyEvent>

#include <algorithm>

namespace {

constexpr int StripPlace = 8; // from the edges of the canvas

/// The keys of the commands that no button of another window takes.
struct SCanvasKey
{
    QKeySequence key;
    void (CCabinetGraphicsScene::*command)();
};

const QVector<SCanvasKey> &canvasKeys()
{
    using Scene = CCabinetGraphicsScene;
    static const QVector<SCanvasKey> keys = {
        {Qt::Key_Up, &Scene::selectedItemMoveUp},
        {Qt::Key_Down, &Scene::selectedItemMoveDown},
        {Qt::Key_Left, &Scene::selectedItemMoveLeft},
        {Qt::Key_Right, &Scene::selectedItemMoveRight},
        {Qt::Key_Delete, &Scene::deleteSelected},
        {QKeySequence(Qt::CTRL | Qt::Key_A), &Scene::selectAllItem},
        {QKeySequence(Qt::CTRL | Qt::Key_G), &Scene::groupSelected},
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_G), &Scene::ungroupSelected},
    };
    return keys;
}

} // namespace

CLayoutGraphicsView::CLayoutGraphicsView(const IPortStates &ports, QWidget *parent)
    : CGraphicsView(parent)
    , m_scene(new CCabinetGraphicsScene(ports, this))
    , m_strip(new CEditorStrip(this))
{
    setScene(m_scene);
    setAccessibleName(tr("Layout canvas"));
    connectStrip();
    applyTool();
}

CLayoutGraphicsView::~CLayoutGraphicsView()
{
    delete m_scene; // while the view can still be told of what goes
}

void CLayoutGraphicsView::connectStrip()
{
    using Scene = CCabinetGraphicsScene;
    connect(m_strip, &CEditorStrip::undoClicked, m_scene, [this] { m_scene->undo(this); });
    connect(m_strip, &CEditorStrip::redoClicked, m_scene, [this] { m_scene->redo(this); });
    connect(m_strip, &CEditorStrip::toolClicked, this, &CLayoutGraphicsView::setTool);
    connect(m_strip, &CEditorStrip::patternClicked, m_scene,
            [this](int p) { m_scene->topologyWiring(uint(p)); });
    connect(m_strip, &CEditorStrip::clearTopologyClicked, this, &CLayoutGraphicsView::clearTopology);
    connect(m_strip, &CEditorStrip::groupClicked, m_scene, &Scene::groupSelected);
    connect(m_strip, &CEditorStrip::ungroupClicked, m_scene, &Scene::ungroupSelected);
    connect(m_strip, &CEditorStrip::deleteClicked, m_scene, &Scene::deleteSelected);
    connect(m_strip, &CEditorStrip::redundancyClicked, this, &CLayoutGraphicsView::notifySetPortRedundancy);
    connect(m_strip, &CEditorStrip::lockClicked, this,
            [this](bool locked) { Q_EMIT notifyLockPorts(m_scene->selection().ports(), locked); });
    connect(m_scene, &Scene::notifyCanUndoChanged, m_strip, &CEditorStrip::setCanUndo);
    connect(m_scene, &Scene::notifyCanRedoChanged, m_strip, &CEditorStrip::setCanRedo);
    connect(m_scene, &Scene::notifySelectedChanged, m_strip, &CEditorStrip::showSelection);
    connect(m_scene, &Scene::notifySelectedChanged, m_strip,
            [this] { m_strip->showLocked(m_scene->selection().touchesLockedPort()); });
    connect(m_scene, &Scene::notifyExitCurrentOperate, this, [this] { setTool(Arrow); });
}

void CLayoutGraphicsView::showLayout(const ProcessorTree::ProcessorNode &processor, const LayoutData &layout)
{
    const bool another = processor.uuid != m_processor;
    m_processor = processor.uuid;
    const bool inPlace = !another && m_scene->canRebuild(layout);
    QUndoStack *stack = m_scene->undoStack();
    if (!inPlace && stack)
        stack->clear(); // its steps belong to what is shown no more
    m_scene->setLayoutData(processor, layout, {}, inPlace);
    QList<int> ports;
    for (const CGraphicsPortItem *port : m_scene->portItems())
        ports << port->port();
    m_strip->setPorts(ports);
    if (another)
        fitContent();
}

void CLayoutGraphicsView::clearLayout()
{
    m_processor = QUuid();
    if (QUndoStack *stack = m_scene->undoStack())
        stack->clear();
    m_scene->clearLayout();
}

void CLayoutGraphicsView::setTool(Tool tool)
{
    m_tool = tool;
    applyTool();
    Q_EMIT toolChanged(tool);
}

void CLayoutGraphicsView::setEditingBlocked(bool blocked)
{
    m_blocked = blocked;
    m_strip->setVisible(!blocked);
    setTool(blocked ? Hand : Arrow);
}

void CLayoutGraphicsView::applyTool()
{
    m_scene->setToolMode(IEditorScene::ManualWiring, m_tool == Pen);
    m_scene->setToolMode(IEditorScene::HeadToTailExchange, m_tool == HeadToTailExchange);
    if (m_tool == Pen)
        m_scene->clearSelection();
    setDragMode(m_tool == Hand ? ScrollHandDrag : NoDrag);
    setInteractive(m_tool != Hand && !m_blocked);
    if (m_tool == Pen || m_tool == HeadToTailExchange) {
        const QString picture = m_tool == Pen ? QStringLiteral("manual-wiring-mouse")
                                              : QStringLiteral("head-to-tail-exchange_mouse");
        viewport()->setCursor(QPixmap(QStringLiteral(":/Image/Layout/ToolBar/%1.svg").arg(picture)));
    } else if (m_tool == Arrow) {
        viewport()->setCursor(Qt::ArrowCursor);
    }
    m_strip->showTool(m_tool);
}

void CLayoutGraphicsView::clearTopology()
{
    if (m_scene->selection().isEmpty())
        m_scene->askToClearTopology(this, m_scene->portStates().currentPort());
    else
        m_scene->breakSelectedWiring();
}

void CLayoutGraphicsView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        m_scene->cancelGesture();
        setTool(m_blocked ? Hand : Arrow);
        return;
    }
    const QKeySequence pressed(event->key() | int(event->modifiers() & ~Qt::KeypadModifier));
    const bool canEdit = !m_blocked;
    if (canEdit && pressed == QKeySequence(Qt::CTRL | Qt::Key_Z))
        m_scene->undo(this);
    else if (canEdit && pressed == QKeySequence(Qt::CTRL | Qt::Key_Y))
        m_scene->redo(this);
    else if (const SCanvasKey *key = std::find_if(canvasKeys().begin(), canvasKeys().end(),
                                                  [&](const SCanvasKey &k) { return k.key == pressed; });
             canEdit && key != canvasKeys().end())
        (m_scene->*key->command)();
    else
        CGraphicsView::keyPressEvent(event);
}

void CLayoutGraphicsView::resizeEvent(QResizeEvent *event)
{
    CGraphicsView::resizeEvent(event);
    m_strip->adjustSize();
    m_strip->move(StripPlace, StripPlace);
}
