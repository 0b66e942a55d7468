// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/CProcessorState.h"
#include "layout/data/CurrentPortRule.h"
#include "platform/common/CReadWriteLock.h"

#include <QHash>
#include <QSet>

#include <map>
#include <memory>
#include <optional>
#include <utility>

/// What the store knows of the processors, protected by one lock. Every operation takes the lock once, copies
/// values in or out, and calls nobody. Any thread. Operations with a null key do nothing.
///
/// Two processors matter: the current one is in view in the host; the edited one is loaded in the editor.
/// They differ while the editor has not yet followed a change.
class CProcessorStates final
{
public:
    using Port = CabinetLayout::CabinetPort;

    /// The result of takeEdit().
    struct SEdit
    {
        LayoutData data;
        CabinetLayout known;       ///< the layout that the edited one was compared with
        QVector<int> changedPorts; ///< ports whose cabinets changed
    };
    /// Which port to ask the host for, to get a port's load.
    struct SLoadQuestion
    {
        QUuid processor; ///< the current processor when loadQuestion() was called
        Port bearer;     ///< the port to ask for
    };

    QUuid current() const;
    QVector<Port> ports() const; ///< of the current processor; empty without one
    Port port(int index) const;  ///< of the current processor; a default record for an unknown one
    int processorLoad() const;   ///< of the current processor, percent
    /// The same if it must be announced: it differs from what was taken last, or is of another processor.
    std::optional<int> takeProcessorLoad();
    QSize canvas() const; ///< of the current processor
    SBackgroundInfo background() const;
    QVector<Port> portsOf(const QUuid &processor) const; ///< empty for an unknown processor
    LayoutData data(const QUuid &processor) const;       ///< empty for an unknown processor

    int currentPort() const;
    void choosePort(int port); ///< a port of the layout in the editor; others are ignored
    void suspendCurrentPort(); ///< until showWall()
    /// Call when the editor shows the layout of its processor; @p another: of another one than before.
    void showWall(bool another);

    /// Makes @p processor the current one; null: none.
    void setCurrent(const QUuid &processor);
    /// Stores the host's layout of a processor. Keeps the loads of known ports; with @p keepEdits also their
    /// cabinets, locks and colours.
    void takeFromHost(const QUuid &processor, const QVector<Port> &ports, bool keepEdits);
    void setCanvas(const QUuid &processor, const QSize &canvas);
    /// Returns the previous background.
    SBackgroundInfo setBackground(const QUuid &processor, const SBackgroundInfo &background);
    void remove(const QUuid &processor);
    void clear();

    QUuid edited() const;
    void setEdited(const QUuid &processor); ///< ends outdateEdits()
    /// The editor's layout of @p processor is outdated: ignores its edits until it is loaded again.
    void outdateEdits(const QUuid &processor);
    /// An edit of @p processor will not reach the host, because the host has replaced the layout.
    void loseEdit(const QUuid &processor);
    bool takeLostEdit(const QUuid &processor); ///< whether there was one since this was called last
    /// The processor whose edits are accepted; null: none.
    QUuid editable() const;
    /// Stores the cabinets of the edited layout, except those of ports that no longer exist. Empty if edits
    /// of that processor are not accepted.
    std::optional<SEdit> takeEdit(const CabinetLayout &edited);

    /// Locks or unlocks @p port (-1: all). Returns the indices of the ports that changed.
    QVector<int> setLocked(int port, bool locked);
    bool setColor(int port, const QColor &color); ///< false: no such port, or unchanged
    /// Removes the highlight numbers of the cabinets of a port (-1: of all); touches only ports that have
    /// some. Returns false if there is no such port.
    bool resetCalibration(int port);
    std::optional<SLoadQuestion> loadQuestion(int port) const;
    /// Returns false if @p processor is not the current one any more, has no such port, or the load is
    /// unchanged.
    bool setLoad(const QUuid &processor, int port, qint64 load);
    int loadFollower(int port) const;         ///< see PortLoads::loadFollower()
    SPortRedundancyNote note(int port) const; ///< of the current processor
    /// Returns false if @p processor is not the current one any more, or the note is unchanged.
    bool setNote(const QUuid &processor, int port, const SPortRedundancyNote &note);

private:
    CProcessorState &stateOf(const QUuid &processor) ORVO_REQUIRES(m_lock);
    const CProcessorState *find(const QUuid &processor) const ORVO_REQUIRES_SHARED(m_lock);
    const CabinetLayout &currentLayout() const ORVO_REQUIRES_SHARED(m_lock);
    Port *currentPortRecord(int index) ORVO_REQUIRES(m_lock);
    /// The indices of the ports of the layout in the editor.
    QVector<int> wallPorts() const ORVO_REQUIRES_SHARED(m_lock);

    mutable CReadWriteLock m_lock;
    std::map<QUuid, std::unique_ptr<CProcessorState>> m_states ORVO_GUARDED_BY(m_lock);
    QUuid m_current ORVO_GUARDED_BY(m_lock);
    QUuid m_edited ORVO_GUARDED_BY(m_lock);
    bool m_editsOutdated ORVO_GUARDED_BY(m_lock) = false;
    QSet<QUuid> m_lostEdits ORVO_GUARDED_BY(m_lock); // by processor
    SCurrentPort m_currentPort ORVO_GUARDED_BY(m_lock);
    std::optional<std::pair<QUuid, int>> m_takenLoad ORVO_GUARDED_BY(m_lock); // with its processor
};
