// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/ILayoutSource.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/PasteCache.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/SBackgroundInfo.h"
#include "layout/drawing/CCanvasFill.h"
#include "platform/graphics/CGraphicsScene.h"

#include <QUndoStack>

#include <memory>

class CPendingEdits;
class CSceneBackend;
class CSceneSelection;
class CUndoCommandBase;
class IPortStates;
class ISceneInput;

/// The scene of the layout editor: a port item for each output port of the processor in view, with its
/// cabinets, groups and wiring lines. Turns records into items and items back into records, announces what
/// edits change, and passes mouse and menu events to the installed input. GUI thread.
class CCabinetGraphicsScene final : public CGraphicsScene, public ILayoutSource
{
    Q_OBJECT

public:
    /// @p ports must outlive the scene.
    explicit CCabinetGraphicsScene(const IPortStates &ports, QObject *parent = nullptr);
    ~CCabinetGraphicsScene() override;

    /// Rebuilds all items from @p data, the layout of @p processor, keeps @p pasteCache for pasting, and
    /// selects the items whose keys are in @p selected. A layout of another processor changes nothing. With
    /// @p undoable the change is recorded as an undo step, if the ports are the same as before; otherwise the
    /// undo stack is not touched.
    void setLayoutData(const ProcessorTree::ProcessorNode &processor, const LayoutData &data,
                       const PasteCache &pasteCache = {}, const QList<QUuid> &selected = {},
                       bool undoable = false);
    /// Removes all items. Called when no processor is in view.
    void clearLayout();
    /// Items being dragged are returned as they were before the drag.
    void getLayoutData(CabinetLayout &layout, const QUuid &processor) const override;

    const CSceneSelection &selection() const;
    /// The parts that hold and edit the content of the scene.
    CSceneBackend &backend() const { return *m_backend; }

    /// Records on @p stack from now on, instead of on the scene's own; null: edits cannot be undone. The
    /// caller keeps ownership, and must set another stack before deleting this one.
    void setUndoStack(QUndoStack *stack);
    /// The first of the editor's own commands in @p command, which may be a macro; null if there is none.
    const CUndoCommandBase *getChildUndoCommand(const QUndoCommand *command) const;

    // Edits. They do nothing if a port concerned is locked.
    /// Wires the selected cabinets of each port by a snake pattern.
    void topologyWiring(uint pattern);
    void breakSelectedWiring();
    /// Clears the whole topology of a port.
    void breakPortWiring(int port);
    void getPasteCache(PasteCache &cache) const; ///< returns the selection as it would be copied
    /// Pastes into the current port, with the upper left corner at @p scenePos, or under the cursor if that
    /// is exactly the origin. A refusal is shown in a message box over @p parent.
    void pasteItems(const QPointF &scenePos, QWidget *parent);

    /// Leaves the mode set by the view, and ends a pending append.
    void leaveOperation();

    /// The reason why the fill image of the canvas is not drawn; empty if it is.
    const QString &fillProblem() const { return m_fill.problem(); }

Q_SIGNALS:
    void notifyExitCurrentOperate();
    void notifyCanUndoChanged(bool canUndo);
    void notifyCanRedoChanged(bool canRedo);
    void notifySelectedItemGeometryChanged();
    void notifySelectedCabinetInfos(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets);
    void notifySelectedChanged(const QList<int> &ports, bool canGroup, bool canBreakGroup);
    void notifySceneChanged();
    void notifyHighlightChanged(); ///< other cabinets are highlighted now
    void notifyLookChanged();      ///< same content, other look
    void notifyFaultsChanged();    ///< other cabinets overlap, lie outside the canvas or are not wired
    void notifyWords(const QString &words); ///< for the status bar

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
    /// Shows the fill image of @p newInfo; with @p sceneSizeChange also adopts the canvas size of the port
    /// states.
    void onBackgroundChanged(const SBackgroundInfo &newInfo, const SBackgroundInfo &oldInfo,
                             bool sceneSizeChange = false);
    void onSelectionChanged();
    void onNotifyProcessorStateChanged();
    void onNotifyCabinetColorChanged(int port, const QColor &color);
    void setCanvasSize(const QSize &size);
    void setPortLoad(int port, int load); ///< percent of the port's capacity

protected:
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;
    void renderPicture(QPainter &painter, const QRectF &target, const QRectF &source) override;

private:
    ISceneInput *input() const;
    void finishBatch(const CPendingEdits &work);
    void tellSelection();
    void updateContentRect();
    void paintLabels(QPainter &painter, const QRectF &exposed) const;

    std::unique_ptr<CSceneBackend> m_backend;
    CCanvasFill m_fill;
    QUndoStack m_ownStack;
    bool m_portAreaChanged = false;
};
