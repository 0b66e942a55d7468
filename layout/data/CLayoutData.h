// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/IEditSource.h"
#include "layout/api/access/IMappingFolder.h"
#include "layout/api/access/IPortStates.h"
#include "layout/api/access/ITypeLookup.h"
#include "layout/api/records/SHostRecords.h"
#include "layout/data/CLayoutHandOver.h"
#include "layout/data/CProcessorStates.h"
#include "layout/data/CRecentCabinets.h"
#include "layout/data/CStoreOptions.h"
#include "layout/data/IStoreEvents.h"
#include "platform/common/CSingleton.h"
#include "platform/common/CWorkThread.h"
#include "platform/control/CObserver.h"

#include <QObject>
#include <QUndoGroup>

#include <atomic>
#include <memory>
#include <optional>

class CNotificationDispatch;
class ILayoutSource;

/// The module's store of the layouts' state and its one observer of the host. Any thread, unless an operation
/// says otherwise; readers return copies. Signals come from the thread that made the change. Neither the host
/// nor a receiver is ever called under the lock.
class CLayoutData final : public QObject,
                          public CObserver,
                          public IPortStates,
                          public ITypeLookup,
                          public IMappingFolder,
                          public IEditSource,
                          private IStoreEvents
{
    Q_OBJECT

public:
    using Port = CabinetLayout::CabinetPort;
    using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    CLayoutData();
    ~CLayoutData() override;

    QUuid currentProcessor() const { return m_states.current(); } ///< null: none
    QVector<Port> ports() const { return m_states.ports(); }      ///< of the current processor
    Port port(int index) const { return m_states.port(index); }   ///< a default record if unknown
    int processorLoad() const { return m_states.processorLoad(); }
    QSize canvasSize() const override { return m_states.canvas(); }
    SBackgroundInfo background() const { return m_states.background(); }
    SLayoutOptions options() const { return m_options.layout(); }
    /// The pairs (primary, redundancy) of processors.
    QList<QPair<QUuid, QUuid>> processorRedundancies() const { return m_options.processorRedundancies(); }
    /// The processor whose redundancy @p processor is, so that it can be looked at only; null: none.
    QUuid primaryOf(const QUuid &processor) const;
    /// The current processor's layout as it was last handed over or loaded.
    LayoutData layoutData() const { return m_states.data(m_states.current()); }
    QVector<SSettings::TypeLibrary::STreeNode> typeLibrary() const override
    {
        return m_options.typeLibrary();
    }
    TypeInfo getTypeInfo(const SMD5 &key) const override;
    QString mappingFolder() const override { return m_mappingFolder; }

    SPortRedundancyNote portNote(int port) const { return m_states.note(port); } ///< of its pair

    bool isPortLocked(int port) const override { return m_states.port(port).locked; }
    Port::Redundancy portRedundancy(int port) const override { return m_states.port(port).redundancy; }
    std::pair<QUuid, int> portPartner(int port) const override;
    QColor portColor(int port) const override;
    int currentPort() const override { return m_states.currentPort(); }
    CanvasBlock canvasBlock() const override;
    bool resetsHighlightOnEdit() const override { return m_options.layout().resetHighlightOnEdit; }
    bool marksCustomCabinets() const override { return m_options.layout().markupCustomCabinets; }

    /// Makes @p port of the layout in the editor the current one. Ignored if there is no such port.
    void setCurrentPort(int port);
    /// Call when the editor continues to show its layout: the port that was current there becomes current
    /// again. GUI thread.
    void resumeCurrentPort();
    void setMappingFolder(const QString &folder) override { m_mappingFolder = folder; }
    CRecentCabinets &recentCabinets() { return m_recentCabinets; } ///< GUI thread
    void setOptions(const SLayoutOptions &options);
    /// Stores the pairs that the host has now.
    void setProcessorRedundancies(const QList<QPair<QUuid, QUuid>> &pairs);
    /// Locks or unlocks a port of the current processor (-1: every port). GUI thread.
    void setPortLocked(int port, bool locked);
    /// Returns whether every port of the current processor is locked; false without ports.
    bool isProcessorLocked() const;
    /// The same for all processors that have a layout. GUI thread.
    bool areAllProcessorsLocked() const;
    /// Locks or unlocks every port of every processor that has a layout. GUI thread.
    void setAllProcessorsLocked(bool locked);
    /// Gives a port of the current processor its colour; an invalid one restores the default. GUI thread.
    void setPortColor(int port, const QColor &color);

    /// Sets the editor, from which the layout is read on each synchronisation; null: none. GUI thread.
    void setLayoutSource(const ILayoutSource *source) { m_source = source; }
    /// Sets the object whose slots are invoked by name, queued; null: none.
    void setController(QObject *controller) { m_controller = controller; }
    /// Hands over pending edits, then returns the host's layout of @p processor for the editor to load; from
    /// now on the editor's layout belongs to that processor. GUI thread.
    LayoutData openProcessor(const QUuid &processor);
    /// Hands the edited layout to the host: at once, or deferred on a worker. Afterwards a worker asks for
    /// the loads of the ports that changed. At once, what was handed over is not handed over again. GUI
    /// thread.
    void syncLayoutData(bool atOnce);
    void flushEdits() override { syncLayoutData(true); }
    /// Whether an edit of @p processor came too late since the last call, because the host was replacing the
    /// layout.
    bool takeLostEdit(const QUuid &processor) { return m_states.takeLostEdit(processor); }
    /// What the host says of the unsaved edits of the layout in the editor; nothing while an edit waits for
    /// its hand-over, or the host has announced another layout that the editor does not show yet.
    std::optional<SUnsavedEdits> unsavedEdits() const;

    /// Asks the host for a port's load. If it changed, announces it for the port and its redundancy port,
    /// with @p withProcessor also the processor's load if that changed. Returns whether the port's changed.
    bool updatePortLoad(int port, bool withProcessor);
    /// Ends the highlight of the cabinets of a port of the current processor (-1: every port).
    void cancelCalibrate(int port);

    QUndoGroup &undoGroup() { return m_undoGroup; } ///< GUI thread

    void Update(CSubject &subject) override;

    /// Hands over pending edits and ends the workers. The store must no longer observe the host. GUI thread.
    void stop();

Q_SIGNALS:
    void notifyProcessorStateChanged();
    void notifyProcessorPortColorChanged(int port, const QColor &color);
    void notifyProcessorBackgroundChanged(const SBackgroundInfo &oldInfo, const SBackgroundInfo &newInfo,
                                          bool bcanvasSizeChanged = false);
    void notifyProcessorPortBackup(int primary, int backup, bool on);
    void notifyProcessorBackupChanged(); ///< the pairs of processors changed
    void notifyProcessorPortLocked(int port, bool locked);
    /// What the port's button says of the pair has changed, see portNote().
    void notifyProcessorPortNoteChanged(int port);
    void notifyProcessorPortPayloadChanged(int port, int payload); ///< percent
    void notifyProcessorPayloadChanged(int payload);               ///< percent
    void notifyProcessorCanvasSizeChanged(const QSize &size);      ///< pixels
    void notifyLayoutOptionChanged();
    void notifyDetectFinished();
    void notifyCancelCalibrate();
    /// The host has another layout of @p processor than the editor shows. The editor must load it again; its
    /// edits are ignored until then.
    void notifyLayoutReplaced(const QUuid &processor);
    void notifyUnsavedEditsMayDiffer(); ///< see unsavedEdits()
    /// The layout in the editor was compared: @p edited differs from what was @p known in @p changedPorts. On
    /// the GUI thread, right after each edit, undo and redo, before the layout is handed over.
    void notifyEdited(const CabinetLayout &known, const CabinetLayout &edited,
                      const QVector<int> &changedPorts);
    /// Another port is current. If two threads change it at the same time, @p port may be outdated; use
    /// currentPort() for anything that is kept.
    void notifyCurrentPortChanged(int port);

private:
    enum EWhen { AtOnce, Later };
    enum EWhat { Edits, Everything };
    void handOver(EWhen when, EWhat what);
    void notesMayDiffer(const QVector<int> &ports);

    // IStoreEvents, for what listens to the host
    void detectFinished() override;
    void processorStateChanged() override;
    void canvasSizeChanged(const QSize &size) override;
    void backgroundChanged(const SBackgroundInfo &before, const SBackgroundInfo &now,
                           bool canvasSizeChanged) override;
    void portBackupChanged(int primary, int backup, bool on) override;
    void layoutReplaced(const QUuid &processor) override;
    void unsavedEditsMayDiffer() override;
    void currentPortMayDiffer() override;
    void highlightEnded() override { cancelCalibrate(-1); }
    void loadsMayDiffer(const QVector<int> &ports, Announced processor = Announced::IfDifferent) override;
    void processorLoadMayDiffer(Announced when = Announced::IfDifferent) override;
    QObject *controller() const override { return m_controller; }

    CProcessorStates m_states; // first, with the options: everything below uses them
    CStoreOptions m_options;
    QUndoGroup m_undoGroup;
    QString m_mappingFolder;
    CRecentCabinets m_recentCabinets;
    const ILayoutSource *m_source = nullptr;
    std::atomic<QObject *> m_controller{nullptr};
    std::atomic<int> m_announcedPort{-1};
    std::unique_ptr<CNotificationDispatch> m_dispatch;
    CLayoutHandOver m_handOver;
};

ORVO_DECLARE_SINGLETON(CLayoutData)
