// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/ILayoutSource.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/PasteCache.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/SBackgroundInfo.h"
#include "layout/drawing/CCanvasFill.h"
#include "layout/editor/scene/ToolMode.h"
#include "platform/graphics/CGraphicsScene.h"

#include <QUndoStack>

#include <memory>

class CGraphicsPortItem;
class CPendingEdits;
class CSceneBackend;
class CSceneSelection;
class CUndoCommandBase;
class IPortStates;
class ISceneInput;

/// The scene of the layout editor: a port item for each output port of the processor in view, with its
/// cabinets, groups and wiring lines. Turns records into items and items back into records, announces what
/// edits change, and hands mouse and menus on to the input that is installed. GUI thread.
class CCabinetGraphicsScene final : public CGraphicsScene, public ILayoutSource
{
    Q_OBJECT

public:
    /// @p ports must outlive the scene.
    explicit CCabinetGraphicsScene(const IPortStates &ports, QObject *parent = nullptr);
    ~CCabinetGraphicsScene() override;

    /// Rebuilds all items from @p data, the layout of @p processor, keeps @p pasteCache for pasting, and
    /// selects the items whose keys are in @p selected. A layout of another processor changes nothing. With
    /// @p undoable the change is recorded, for which the ports must be the same; otherwise what was recorded
    /// before stays as it is.
    void setLayoutData(const ProcessorTree::ProcessorNode &processor, const LayoutData &data,
                       const PasteCache &pasteCache = {}, const QList<QUuid> &selected = {},
                       bool undoable = false);
    /// Removes all items, for when no processor is in view.
    void clearLayout();
    /// What is being dragged lies where the drag began.
    void getLayoutData(CabinetLayout &layout, const QUuid &processor) const override;

    /// In ascending port index.
    const QVector<CGraphicsPortItem *> &portItems() const;
    CGraphicsPortItem *portItem(int port) const; ///< null for an unknown index
    const CSceneSelection &selection() const;
    /// The parts that hold and edit what the scene shows.
    CSceneBackend &backend() { return *m_backend; }

    /// The scene's own stack unless another was set; null after setUndoStack(nullptr).
    QUndoStack *undoStack() const;
    /// Records on @p stack, which stays owned by the caller and must outlive its use here; with null edits
    /// apply but cannot be undone.
    void setUndoStack(QUndoStack *stack);
    /// The first of the editor's own commands in @p command, which may be a macro; null without one.
    const CUndoCommandBase *getChildUndoCommand(const QUndoCommand *command) const;

    // Edits. A locked port among those concerned makes them do nothing.
    /// Wires the selected cabinets of each port by a snake pattern.
    void topologyWiring(uint pattern);
    void breakSelectedWiring();
    /// Clears the whole topology of a port.
    void breakPortWiring(int port);
    void getPasteCache(PasteCache &cache) const; ///< the selection as it would be copied
    /// Pastes into the current port, its corner at @p scenePos or, when that is exactly the origin, under the
    /// cursor. Refusals are told over @p parent.
    void pasteItems(const QPointF &scenePos, QWidget *parent);

    void setToolMode(ToolMode mode, bool on);
    bool isToolModeSet(ToolMode mode) const;
    /// Leaves the mode that the view has set, and an append that waits.
    void leaveOperation();

    /// Why the fill image of the canvas is not drawn; empty when it is.
    const QString &fillProblem() const { return m_fill.problem(); }
    void renderPicture(QPainter &painter, const QRectF &target, const QRectF &source) override;

Q_SIGNALS:
    void notifyExitCurrentOperate();
    void notifyCanUndoChanged(bool canUndo);
    void notifyCanRedoChanged(bool canRedo);
    void notifySelectedItemGeometryChanged();
    void notifySelectedCabinetInfos(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets);
    void notifySelectedChanged(const QList<int> &ports, bool canGroup, bool canBreakGroup);
    void notifySceneChanged();
    void notifyHighlightChanged(); ///< other cabinets stand out now
    void notifyLookChanged();      ///< the same is there, but looks otherwise

public Q_SLOTS:
    void selectAllItem();
    void undo(QWidget *view);
    void redo(QWidget *view);
    void selectedItemMoveUp();
    void selectedItemMoveDown();
    void selectedItemMoveLeft();
    void selectedItemMoveRight();
    void setCabinetLocked(int port, bool locked);
    void backupPort(int primary, int backup, bool back);
    /// Shows the fill image of @p newInfo; with @p sceneSizeChange the canvas has another size, too.
    void onBackgroundChanged(const SBackgroundInfo &newInfo, const SBackgroundInfo &oldInfo,
                             bool sceneSizeChange = false);
    void onSelectionChanged();
    void onNotifyProcessorStateChanged();
    void onNotifyCabinetColorChanged(int port, const QColor &color);
    void setCanvasSize(const QSize &size);

protected:
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;

private:
    ISceneInput *input() const;
    void finishBatch(const CPendingEdits &work);
    void tellSelection();
    void updateContentRect();

    std::unique_ptr<CSceneBackend> m_backend;
    CCanvasFill m_fill;
    QUndoStack m_ownStack;
    bool m_portAreaChanged = false;
};
