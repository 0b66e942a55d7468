// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/IEditSource.h"
#include "layout/api/access/IPortStates.h"
#include "layout/data/CLayoutHandOver.h"
#include "layout/data/CProcessorStates.h"
#include "layout/data/CRecentCabinets.h"
#include "layout/data/IStoreEvents.h"
#include "platform/common/CSingleton.h"
#include "platform/common/CWorkThread.h"
#include "platform/control/CObserver.h"

#include <QObject>
#include <QUndoGroup>

#include <atomic>
#include <memory>

class CNotificationDispatch;
class ILayoutSource;

/// The module's store of the layouts' state and its one observer of the host. Readers copy values out and may
/// be called from any thread, as may operations that do not say otherwise; signals come from the thread that
/// made the change. Neither the host nor a receiver is ever called under the lock.
class CLayoutData final : public QObject,
                          public CObserver,
                          public IPortStates,
                          public IEditSource,
                          private IStoreEvents
{
    Q_OBJECT

public:
    using Port = CabinetLayout::CabinetPort;
    using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    CLayoutData();
    ~CLayoutData() override;

    QUuid currentProcessor() const { return m_states.current(); } ///< null without one
    QVector<Port> ports() const { return m_states.ports(); }      ///< of the current processor
    Port port(int index) const { return m_states.port(index); }   ///< a default record for an unknown one
    int processorLoad() const { return m_states.processorLoad(); }
    QSize canvasSize() const { return m_states.canvas(); } ///< of the current processor, pixels
    SBackgroundInfo background() const { return m_states.background(); }
    SLayoutOptions options() const { return m_states.options(); }
    /// The pairs (primary, redundancy) of processors.
    QList<QPair<QUuid, QUuid>> processorRedundancies() const { return m_states.processorRedundancies(); }
    /// The current processor's layout as it was last handed over or loaded.
    LayoutData layoutData() const { return m_states.data(m_states.current()); }
    QVector<SSettings::TypeLibrary::STreeNode> typeLibrary() const { return m_states.typeLibrary(); }
    /// What the type library tells of a type; an empty record for an unknown key.
    TypeInfo getTypeInfo(const SMD5 &key) const;
    QString mappingFolder() const { return m_mappingFolder; } ///< where files were last kept; GUI thread

    bool isPortLocked(int port) const override { return m_states.port(port).locked; }
    Port::Redundancy portRedundancy(int port) const override { return m_states.port(port).redundancy; }
    QColor portColor(int port) const override;
    int currentPort() const override { return m_states.currentPort(); }
    CanvasBlock canvasBlock() const override;
    bool resetsHighlightOnEdit() const override { return m_states.options().resetHighlightOnEdit; }
    bool marksCustomCabinets() const override { return m_states.options().markupCustomCabinets; }

    /// Makes @p port of the wall in the editor the current one; one that does not exist changes nothing.
    void setCurrentPort(int port);
    /// The editor goes on showing its wall: the port that was current there is so again. GUI thread.
    void resumeCurrentPort();
    void setMappingFolder(const QString &folder) { m_mappingFolder = folder; }
    CRecentCabinets &recentCabinets() { return m_recentCabinets; } ///< GUI thread
    void setOptions(const SLayoutOptions &options);
    /// Takes the pairs that the host now has.
    void setProcessorRedundancies(const QList<QPair<QUuid, QUuid>> &pairs);
    /// Locks or unlocks a port of the current processor (-1: every port). GUI thread.
    void setPortLocked(int port, bool locked);
    /// Gives a port of the current processor its colour; an invalid one restores the default. GUI thread.
    void setPortColor(int port, const QColor &color);

    /// The editor, asked whenever the layout is synchronised; null: none. GUI thread.
    void setLayoutSource(const ILayoutSource *source) { m_source = source; }
    /// The object whose slots are invoked by name, queued; null: none.
    void setController(QObject *controller) { m_controller = controller; }
    /// Hands over what is pending, then gives the host's layout of @p processor for the editor to load; from
    /// now on the editor's layout is that processor's. GUI thread.
    LayoutData openProcessor(const QUuid &processor);
    /// Hands the edited layout to the host: at once, or a moment later on a worker. The loads of the ports
    /// that changed are asked for afterwards, on a worker. GUI thread.
    void syncLayoutData(bool atOnce);
    void flushEdits() override { syncLayoutData(true); }

    /// Asks the host for a port's load and announces it, when it differs, for the port and for its redundancy
    /// port; with @p withProcessor also the processor's. Returns whether it differed.
    bool updatePortLoad(int port, bool withProcessor);
    /// Ends the highlight of the cabinets of a port of the current processor (-1: every port).
    void cancelCalibrate(int port);

    QUndoGroup &undoGroup() { return m_undoGroup; } ///< GUI thread

    void Update(CSubject &subject) override;

    /// Hands over what is pending and ends the workers. The host's subject must have been left before. GUI
    /// thread.
    void stop();

Q_SIGNALS:
    void notifyProcessorStateChanged();
    void notifyProcessorPortColorChanged(int port, const QColor &color);
    void notifyProcessorBackgroundChanged(const SBackgroundInfo &oldInfo, const SBackgroundInfo &newInfo,
                                          bool bcanvasSizeChanged = false);
    void notifyProcessorPortBackup(int primary, int backup, bool on);
    void notifyProcessorBackupChanged(); ///< other pairs of processors
    void notifyProcessorPortLocked(int port, bool locked);
    void notifyProcessorPortPayloadChanged(int port, int payload); ///< percent
    void notifyProcessorPayloadChanged(int payload);               ///< percent
    void notifyProcessorCanvasSizeChanged(const QSize &size);      ///< pixels
    void notifyLayoutOptionChanged();
    void notifyDetectFinished();
    void notifyCancelCalibrate();
    /// The host holds another layout of @p processor than the editor shows: the editor must load it again,
    /// its edits no longer count.
    void notifyLayoutReplaced(const QUuid &processor);
    /// Another port is current. When two threads change it at a time, @p port may be outdated: whoever keeps
    /// something of it asks currentPort().
    void notifyCurrentPortChanged(int port);

private:
    // IStoreEvents, for what listens to the host
    void detectFinished() override;
    void processorStateChanged() override;
    void canvasSizeChanged(const QSize &size) override;
    void backgroundChanged(const SBackgroundInfo &before, const SBackgroundInfo &now) override;
    void portBackupChanged(int primary, int backup, bool on) override;
    void layoutReplaced(const QUuid &processor) override;
    void currentPortMayDiffer() override;
    void highlightEnded() override { cancelCalibrate(-1); }
    void loadsMayDiffer(const QVector<int> &ports) override;
    void processorLoadKnown() override;
    QObject *controller() const override { return m_controller; }

    CProcessorStates m_states; // first: everything below uses it
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
