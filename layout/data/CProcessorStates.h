// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"
#include "layout/data/CProcessorState.h"
#include "layout/data/CurrentPortRule.h"
#include "platform/common/CReadWriteLock.h"

#include <map>
#include <memory>
#include <optional>

/// What the user has chosen for the canvas.
struct SLayoutOptions
{
    bool followUp = true;              ///< handed-over layouts are followed up by the host
    bool markupCustomCabinets = false; ///< custom-defined cabinets are marked
    bool resetHighlightOnEdit = true;  ///< editing cabinets without a type ends their highlight

    friend bool operator==(const SLayoutOptions &a, const SLayoutOptions &b)
    {
        return a.followUp == b.followUp && a.markupCustomCabinets == b.markupCustomCabinets &&
               a.resetHighlightOnEdit == b.resetHighlightOnEdit;
    }
    friend bool operator!=(const SLayoutOptions &a, const SLayoutOptions &b) { return !(a == b); }
};

/// The store's data behind its one lock. Every operation takes the lock once, copies values in or out, calls
/// nobody and may be called from any thread. Setting something of a null key does nothing.
///
/// Two processors matter: the current one is in view in the host; the edited one is loaded in the editor.
/// They differ for as long as the editor has not yet followed a change.
class CProcessorStates final
{
public:
    using Port = CabinetLayout::CabinetPort;

    /// What became of the editor's layout.
    struct SEdit
    {
        LayoutData data;
        QVector<int> changedPorts; ///< those whose cabinets differ from before
    };
    /// Where a port's load comes from.
    struct SLoadQuestion
    {
        QUuid processor; ///< the one current when the question was made
        Port bearer;     ///< the port to ask the host for
    };

    QUuid current() const;
    QVector<Port> ports() const; ///< of the current processor; empty without one
    Port port(int index) const;  ///< of the current processor; a default record for an unknown one
    int processorLoad() const;   ///< of the current processor, percent
    QSize canvas() const;        ///< of the current processor
    SBackgroundInfo background() const;
    QVector<Port> portsOf(const QUuid &processor) const; ///< empty for an unknown processor
    LayoutData data(const QUuid &processor) const;       ///< empty for an unknown processor

    int currentPort() const;
    void choosePort(int port); ///< a port of the wall in the editor; others are left alone
    void suspendCurrentPort(); ///< until the editor tells that it shows its wall
    /// The editor shows the wall of its processor, @p another one than before or the same.
    void showWall(bool another);
    SLayoutOptions options() const;
    bool setOptions(const SLayoutOptions &options); ///< false: they were set already
    QList<QPair<QUuid, QUuid>> processorRedundancies() const;
    bool setProcessorRedundancies(const QList<QPair<QUuid, QUuid>> &pairs); ///< false: they were known
    QVector<SSettings::TypeLibrary::STreeNode> typeLibrary() const;
    void setTypeLibrary(QVector<SSettings::TypeLibrary::STreeNode> library);

    /// Makes a processor, or with a null key none, the current one.
    void setCurrent(const QUuid &processor);
    /// Takes the host's layout of a processor. Loads of known ports are kept; with @p keepEdits also their
    /// cabinets, locks and colours.
    void takeFromHost(const QUuid &processor, const QVector<Port> &ports, bool keepEdits);
    void setCanvas(const QUuid &processor, const QSize &canvas);
    /// Gives the background that was set before.
    SBackgroundInfo setBackground(const QUuid &processor, const SBackgroundInfo &background);
    void remove(const QUuid &processor);
    void clear();

    QUuid edited() const;
    void setEdited(const QUuid &processor); ///< ends outdateEdits()
    /// What the editor shows of a processor no longer counts: refuses its edits until it is loaded again.
    void outdateEdits(const QUuid &processor);
    /// The processor whose edits count; null without one.
    QUuid editable() const;
    /// Takes the cabinets of the edited layout; ports that no longer exist are left out. Nothing when its
    /// edits do not count (any more).
    std::optional<SEdit> takeEdit(const CabinetLayout &edited);

    /// The indices of the ports that match @p port (-1: all) and whose lock was another one.
    QVector<int> setLocked(int port, bool locked);
    bool setColor(int port, const QColor &color); ///< false: no such port, or its colour already
    /// Ends the highlight numbers of the cabinets of a port (-1: of all); costs the ports that have some.
    /// False when no port matches.
    bool resetCalibration(int port);
    std::optional<SLoadQuestion> loadQuestion(int port) const;
    /// False: @p processor is no longer the current one, has no such port, or that is the port's load
    /// already.
    bool setLoad(const QUuid &processor, int port, qint64 load);
    int loadFollower(int port) const; ///< see PortLoads::loadFollower()

private:
    CProcessorState &stateOf(const QUuid &processor) ORVO_REQUIRES(m_lock);
    const CProcessorState *find(const QUuid &processor) const ORVO_REQUIRES_SHARED(m_lock);
    const CabinetLayout &currentLayout() const ORVO_REQUIRES_SHARED(m_lock);
    Port *currentPortRecord(int index) ORVO_REQUIRES(m_lock);
    /// The indices of the ports of the wall in the editor.
    QVector<int> wallPorts() const ORVO_REQUIRES_SHARED(m_lock);

    mutable CReadWriteLock m_lock;
    QVector<SSettings::TypeLibrary::STreeNode> m_typeLibrary ORVO_GUARDED_BY(m_lock);
    std::map<QUuid, std::unique_ptr<CProcessorState>> m_states ORVO_GUARDED_BY(m_lock);
    QUuid m_current ORVO_GUARDED_BY(m_lock);
    QUuid m_edited ORVO_GUARDED_BY(m_lock);
    bool m_editsOutdated ORVO_GUARDED_BY(m_lock) = false;
    SCurrentPort m_currentPort ORVO_GUARDED_BY(m_lock);
    SLayoutOptions m_options ORVO_GUARDED_BY(m_lock);
    QList<QPair<QUuid, QUuid>> m_processorPairs ORVO_GUARDED_BY(m_lock);
};
