// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/ILayoutSource.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/drawing/CCanvasFill.h"
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CHighlights.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/gestures/CSceneGestures.h"
#include "layout/editor/gestures/CSceneInput.h"
#include "layout/editor/items/IEditorScene.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/operations/CSelectionShape.h"
#include "layout/editor/placing/CPasteContent.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/recording/CGuardedUndo.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "platform/widgets/CGraphicsScene.h"

#include <QSet>

class IEditorCommands;
class IPortStates;

/// The scene of the layout editor: a port item for each output port of the processor in view, with its
/// cabinets, groups and wiring lines. Turns records into items and items back into records, and carries out
/// the user's edits, each as one undo step with one round of signals. GUI thread.
class CCabinetGraphicsScene final : public CGraphicsScene, public ILayoutSource, public IEditorScene
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
    /// Whether @p data can be shown as a change that can be undone.
    bool canRebuild(const LayoutData &data) const { return m_content.canRebuild(data); }
    /// Removes all items, for when no processor is in view.
    void clearLayout();

    /// What is being dragged lies where the drag began.
    void getLayoutData(CabinetLayout &layout, const QUuid &processor) const override
    {
        m_content.read(layout, processor);
    }
    /// The processor has saved @p mapping: the cabinets take their places in it. No edit.
    void takeMappingIndices(const CabinetLayout &mapping) { m_content.takeMappingIndices(mapping); }

    /// The records of the selected cabinets, those in selected groups included.
    QList<CabinetLayout::CabinetPort::Cabinet> selectedCabinets() const { return m_selection.records(); }
    /// In ascending port index.
    const QVector<CGraphicsPortItem *> &portItems() const override { return m_content.ports(); }
    CGraphicsPortItem *portItem(int port) const override { return m_content.port(port); }
    CGraphicsItemBase *editedItem(const QUuid &uuid) const override;
    const IPortStates &portStates() const { return m_portStates; }
    const CSceneSelection &selection() const { return m_selection; }
    /// Why the fill image of the canvas is not drawn; empty when it is.
    const QString &fillProblem() const { return m_fill.problem(); }

    /// What the menus offer beyond the scene's own edits; null: nothing. @p commands stays owned by the
    /// caller.
    void setCommands(IEditorCommands *commands) { m_commands = commands; }
    IEditorCommands *commands() const { return m_commands; }

    /// The scene's own stack unless another was set; null after setUndoStack(nullptr).
    QUndoStack *undoStack() const { return m_recorder.stack(); }
    /// Records on @p stack, which stays owned by the caller and must outlive its use here; with null edits
    /// apply but cannot be undone.
    void setUndoStack(QUndoStack *stack);
    const QString &operationName() const { return m_recorder.operationName(); }
    /// The first of the editor's own commands in @p command, which may be a macro; null without one.
    const CUndoCommandBase *getChildUndoCommand(const QUndoCommand *command) const
    {
        return CGuardedUndo::ownCommand(command);
    }

    // Edits of the selection. A locked port among those concerned makes them do nothing.
    /// Wires the selected cabinets of each port by a snake pattern.
    void topologyWiring(uint pattern) { operations().wireByPattern(pattern); }
    void breakSelectedWiring() { operations().breakSelectedWiring(); }
    /// Clears the whole topology of a port.
    void breakPortWiring(int port);
    /// Clears it when the user, asked over @p parent, says so.
    void askToClearTopology(QWidget *parent, int port);
    void groupSelected() { operations().group(m_content.takeOrdinal()); }
    void ungroupSelected() { operations().ungroup(); }
    void deleteSelected() { operations().remove(); }
    void cutSelected();
    /// Gives the selection a place, a size, an arrangement or a type in figures.
    CSelectionShape &selectionShape();
    /// Selects all cabinets of its port that have the type of the given one; without a type, those of its
    /// size that have none either. Of a group the first cabinet counts.
    void selectSameType(const QUuid &uuid) { m_picks.sameType(uuid); }

    /// Keeps the selection for pasting, also for other programs.
    void copySelected() { m_placing.copy(); }
    void getPasteCache(PasteCache &cache) const { cache = CPasteContent::copyOf(m_selection); }
    /// What is pasted.
    const PasteCache &pasteCache() const { return m_placing.cache(); }
    /// Pastes into the current port, its corner at @p scenePos or, when that is exactly the origin, under the
    /// cursor. Refusals are told over @p parent.
    void pasteItems(const QPointF &scenePos, QWidget *parent);
    /// From now on the next press places cabinets of @p size in @p port, as many as a drag covers; they are
    /// wired on. @p type may be empty.
    void beginAppend(const CScenePlacing::TypeInfo &type, int port, const QSize &size);
    void endAppend()
    {
        if (isAppending())
            m_placing.endAppend();
    }
    /// Cabinets that wait to be placed come into @p port instead.
    void moveAppendTo(int port) { m_placing.moveAppendTo(port); }
    void renderPicture(QPainter &painter, const QRectF &target, const QRectF &source) override;
    bool isAppending() const { return m_placing.isAppending(); }

    /// Selects what a port holds, or no longer.
    void selectPort(int port, bool selected) { m_picks.port(port, selected); }

    /// The cabinets that the user has made stand out.
    QList<CabinetLayout::CabinetPort::Cabinet> highlightedCabinets() const { return m_highlights.records(); }
    /// As a press on @p cabinet does with the tool that highlights; with @p adding others stand out as well.
    void pressHighlight(CGraphicsCabinetItem &cabinet, bool adding);
    void clearHighlights();
    /// Reverses the order in which the signal runs through a cabinet's receivers.
    void exchangeReceivers(const QUuid &cabinet) { m_operations.exchangeReceivers(cabinet); }

    void setToolMode(EToolMode mode, bool on);
    bool isToolModeSet(EToolMode mode) const { return m_toolModes.contains(mode); }
    /// Leaves the mode that the view has set, and an append that waits.
    void leaveOperation();
    /// Puts a drag, a stroke or a rubber band that is in progress back to where it began.
    void cancelGesture();

    // IEditorScene
    void beginBatch() override { m_batches.begin(); }
    void endBatch() override { m_batches.end(); }
    void enterEdited(CGraphicsItemBase &item) override;
    void leaveEdited(CGraphicsItemBase &item) override;
    bool isSingleSelection() const override { return m_selection.count() == 1; }
    bool offersHandles() const override { return isSingleSelection() && m_toolModes.isEmpty(); }
    bool hasRubberBand() const override { return m_gestures.hasBand(); }
    IMouseMode &mouseMode() override { return m_input.mode(); }
    void beginMove(const QPointF &scenePos) override;
    void beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos) override;
    void continueDrag(const QPointF &scenePos) override { m_gestures.continueDrag(scenePos); }
    bool endDrag(const QPointF &scenePos) override;
    void showCabinetMenu(CGraphicsItemBase &item, QWidget *widget, const QPoint &screenPos) override
    {
        m_input.openCabinetMenu(item, widget, screenPos);
    }
    void noteCabinetMoved(CGraphicsCabinetItem &cabinet) override { m_batches.noteCabinetMoved(cabinet); }
    void noteMembersChanged(CGraphicsGroupItem &group) override { m_batches.noteMembersChanged(group); }
    void notePortChanged(CGraphicsPortItem &port) override { m_batches.notePortChanged(port); }
    void noteWiringChanged(CGraphicsPortItem &) override { m_batches.noteSelection(); }
    void noteSelected(CGraphicsItemBase &item, bool selected) override { m_selection.note(item, selected); }
    void noteHighlighted(CGraphicsCabinetItem &cabinet, bool highlighted) override;

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
    void selectAllItem() { m_picks.all(); }
    void undo(QWidget *view) { runStep(view, true); }
    void redo(QWidget *view) { runStep(view, false); }
    void selectedItemMoveUp() { operations().nudge({0, -1}); }
    void selectedItemMoveDown() { operations().nudge({0, 1}); }
    void selectedItemMoveLeft() { operations().nudge({-1, 0}); }
    void selectedItemMoveRight() { operations().nudge({1, 0}); }
    void setCabinetLocked(int port, bool locked);
    void backupPort(int primary, int backup, bool back);
    void setCanvasSize(const QSize &size);
    /// Shows the fill image of @p newInfo; with @p sceneSizeChange the canvas has another size, too.
    void onBackgroundChanged(const SBackgroundInfo &newInfo, const SBackgroundInfo &oldInfo,
                             bool sceneSizeChange = false);
    void onSelectionChanged() { m_batches.noteSelection(); }
    void onNotifyProcessorStateChanged();
    void onNotifyCabinetColorChanged(int port, const QColor &color);

protected:
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;

private:
    /// With no gesture in progress any more.
    CSceneOperations &operations();
    void finishBatch(const CPendingEdits &work);
    void tellSelection();
    void updateContentRect();
    void runStep(QWidget *view, bool undoing);

    const IPortStates &m_portStates;
    CSceneContent m_content;
    CCanvasFill m_fill;
    CEditBatches m_batches;
    CSceneSelection m_selection;
    CSelectionPicks m_picks;
    CUndoRecorder m_recorder;
    CSceneOperations m_operations;
    CSelectionShape m_shape;
    CScenePlacing m_placing;
    QUndoStack m_ownStack;
    QSet<EToolMode> m_toolModes;
    CSceneGestures m_gestures;
    CSceneInput m_input;
    CHighlights m_highlights;
    IEditorCommands *m_commands = nullptr;
    bool m_portAreaChanged = false;
};
