// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CLayoutData.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/access/ILayoutSource.h"
#include "layout/api/records/RecordMetaTypes.h"
#include "layout/data/BearerLoad.h"
#include "layout/data/CNotificationDispatch.h"
#include "layout/data/PortLoads.h"
#include "layout/data/TypeLibrarySearch.h"
#include "layout/drawing/CPortColors.h"

#include <QSet>

#include <algorithm>

namespace {

using Host = ILayoutInterfaceHandler;

bool areLocked(const QVector<CabinetLayout::CabinetPort> &ports)
{
    return !ports.isEmpty() &&
           std::all_of(ports.begin(), ports.end(),
                       [](const CabinetLayout::CabinetPort &port) { return port.locked; });
}

} // namespace

ORVO_DEFINE_SINGLETON(CLayoutData)

CLayoutData::CLayoutData()
    : m_dispatch(std::make_unique<CNotificationDispatch>(static_cast<IStoreEvents &>(*this), m_states,
                                                         m_options, m_handOver))
    , m_handOver([this] { return m_options.layout().followUp; }, [this] { unsavedEditsMayDiffer(); })
{
    registerRecordMetaTypes();
    CHostAccess::setEdits(this);
}

CLayoutData::~CLayoutData()
{
    if (CHostAccess::edits() == this)
        CHostAccess::setEdits(nullptr);
    m_states.clear();
    m_dispatch->stop();
    m_dispatch.reset();
    m_handOver.stop();
}

CLayoutData::TypeInfo CLayoutData::getTypeInfo(const SMD5 &key) const
{
    TypeInfo info;
    TypeLibrarySearch::find(m_options.typeLibrary(), key, info);
    return info;
}

CanvasBlock CLayoutData::canvasBlock() const
{
    return CHostAccess::call<&Host::canvasBlock>();
}

std::pair<QUuid, int> CLayoutData::portPartner(int port) const
{
    const Port state = m_states.port(port);
    return {state.redundancyProcessor, state.redundancyPort};
}

QColor CLayoutData::portColor(int port) const
{
    const QColor color = m_states.port(port).color;
    return color.isValid() ? color : CPortColors::fill(port);
}

void CLayoutData::setCurrentPort(int port)
{
    m_states.choosePort(port);
    currentPortMayDiffer();
}

void CLayoutData::resumeCurrentPort()
{
    m_states.showWall(false);
    currentPortMayDiffer();
}

void CLayoutData::setOptions(const SLayoutOptions &options)
{
    if (m_options.setLayout(options))
        Q_EMIT notifyLayoutOptionChanged();
}

void CLayoutData::setProcessorRedundancies(const QList<QPair<QUuid, QUuid>> &pairs)
{
    if (m_options.setProcessorRedundancies(pairs))
        Q_EMIT notifyProcessorBackupChanged();
}

QUuid CLayoutData::primaryOf(const QUuid &processor) const
{
    for (const auto &[primary, redundancy] : m_options.processorRedundancies()) {
        if (redundancy == processor && !processor.isNull())
            return primary;
    }
    return {};
}

void CLayoutData::setPortLocked(int port, bool locked)
{
    const QVector<int> changed = m_states.setLocked(port, locked);
    for (const int index : changed)
        Q_EMIT notifyProcessorPortLocked(index, locked);
    if (changed.isEmpty())
        return;
    CHostAccess::call<&Host::setPortLocked>(m_states.current(), port, locked); // whatever its layout is now
    handOver(AtOnce, Everything);
}

bool CLayoutData::isProcessorLocked() const
{
    return areLocked(m_states.ports());
}

bool CLayoutData::areAllProcessorsLocked() const
{
    // The locks of the current processor may not be handed over yet.
    const PortLocks others = CHostAccess::call<&Host::locksBeside>(currentProcessor());
    const QVector<Port> own = m_states.ports();
    return others != PortLocks::NotAll && (own.isEmpty() ? others == PortLocks::All : areLocked(own));
}

void CLayoutData::setAllProcessorsLocked(bool locked)
{
    setPortLocked(-1, locked);
    syncLayoutData(true); // what waits of another processor would bring its old locks back
    for (const ProcessorTree::ProcessorNode &node : CHostAccess::call<&Host::processors>()) {
        if (node.uuid != currentProcessor())
            CHostAccess::call<&Host::setPortLocked>(node.uuid, -1, locked);
    }
}

void CLayoutData::setPortColor(int port, const QColor &color)
{
    if (!m_states.setColor(port, color))
        return;
    Q_EMIT notifyProcessorPortColorChanged(port, portColor(port));
    CHostAccess::call<&Host::setPortColor>(m_states.current(), port, color);
    handOver(AtOnce, Everything);
}

LayoutData CLayoutData::openProcessor(const QUuid &processor)
{
    if (m_handOver.isPending(m_states.edited()))
        syncLayoutData(true);
    const bool another = processor != m_states.edited();
    // Before the host is asked, so that whatever it announces from now on counts. The host is asked in any
    // case, because its earlier notifications may still be pending.
    m_states.setEdited(processor);
    if (!processor.isNull()) {
        const LayoutData data = CHostAccess::callUnflushed<&Host::layoutData>(processor);
        m_states.takeFromHost(processor, data.layout.ports, false);
        m_states.setCanvas(processor, data.canvas);
        m_states.setBackground(processor, CHostAccess::call<&Host::background>(processor));
    }
    m_states.showWall(another);
    currentPortMayDiffer();
    return m_states.data(processor);
}

void CLayoutData::syncLayoutData(bool atOnce)
{
    handOver(atOnce ? AtOnce : Later, Edits);
}

void CLayoutData::handOver(EWhen when, EWhat what)
{
    const QUuid processor = m_states.edited();
    if (!m_source || processor.isNull())
        return;
    std::optional<CProcessorStates::SEdit> edit;
    CabinetLayout edited;
    if (m_states.editable() == processor) {
        m_source->getLayoutData(edited, processor);
        edit = m_states.takeEdit(edited);
    }
    if (!edit) {
        if (when == Later) // else somebody only asks for what waits, or the host has it already
            m_states.loseEdit(processor);
        return;
    }
    Q_EMIT notifyEdited(edit->known, edited, edit->changedPorts);
    const bool changed = !edit->changedPorts.isEmpty();
    const bool any = what == Everything || changed || m_handOver.isPending(processor);
    if (when == AtOnce && !any)
        return; // the host may have another layout already, which it has not announced yet
    if (when == AtOnce)
        m_handOver.handOverNow(edit->data, changed);
    else
        m_handOver.handOverLater(edit->data, changed);
    if (changed)
        m_dispatch->post(CNotificationDispatch::PortLoadsKey,
                         [this, ports = edit->changedPorts] { loadsMayDiffer(ports); });
}

std::optional<SUnsavedEdits> CLayoutData::unsavedEdits() const
{
    const QUuid processor = m_states.editable();
    if (processor.isNull() || m_handOver.isPending(processor))
        return {};
    const auto edits = CHostAccess::callUnflushed<&Host::unsavedEdits>(processor);
    return edits.unannounced ? std::nullopt : std::make_optional(edits);
}

bool CLayoutData::updatePortLoad(int port, bool withProcessor)
{
    if (port < 0 || port >= m_states.ports().size())
        return false;
    const auto question = m_states.loadQuestion(port);
    if (!question)
        return false;
    const auto elsewhere = BearerLoad::elsewhere(question->processor, question->bearer);
    const int load = elsewhere ? elsewhere->percent
                               : CHostAccess::call<&Host::portLoad>(question->bearer, question->bearer.index);
    if (!m_states.setLoad(question->processor, port, load))
        return false;
    Q_EMIT notifyProcessorPortPayloadChanged(port, load);
    const int follower = m_states.loadFollower(port);
    if (m_states.setLoad(question->processor, follower, load))
        Q_EMIT notifyProcessorPortPayloadChanged(follower, load);
    if (withProcessor)
        processorLoadMayDiffer();
    return true;
}

void CLayoutData::cancelCalibrate(int port)
{
    if (m_states.resetCalibration(port))
        Q_EMIT notifyCancelCalibrate();
}

void CLayoutData::Update(CSubject &subject)
{
    m_dispatch->dispatch(subject);
}

void CLayoutData::stop()
{
    if (m_handOver.isPending(m_states.edited()))
        syncLayoutData(true);
    m_source = nullptr;
    m_dispatch->stop();
    m_handOver.stop();
    m_controller = nullptr;
}

void CLayoutData::detectFinished()
{
    Q_EMIT notifyDetectFinished();
}

void CLayoutData::processorStateChanged()
{
    Q_EMIT notifyProcessorStateChanged();
}

void CLayoutData::canvasSizeChanged(const QSize &size)
{
    Q_EMIT notifyProcessorCanvasSizeChanged(size);
}

void CLayoutData::backgroundChanged(const SBackgroundInfo &before, const SBackgroundInfo &now,
                                    bool canvasSizeChanged)
{
    Q_EMIT notifyProcessorBackgroundChanged(before, now, canvasSizeChanged);
}

void CLayoutData::portBackupChanged(int primary, int backup, bool on)
{
    Q_EMIT notifyProcessorPortBackup(primary, backup, on);
}

void CLayoutData::layoutReplaced(const QUuid &processor)
{
    Q_EMIT notifyLayoutReplaced(processor);
}

void CLayoutData::unsavedEditsMayDiffer()
{
    Q_EMIT notifyUnsavedEditsMayDiffer();
}

void CLayoutData::currentPortMayDiffer()
{
    const int port = m_states.currentPort();
    if (m_announcedPort.exchange(port) != port)
        Q_EMIT notifyCurrentPortChanged(port);
}

void CLayoutData::loadsMayDiffer(const QVector<int> &ports, Announced processor)
{
    for (const int port : ports)
        updatePortLoad(port, false);
    processorLoadMayDiffer(processor);
    notesMayDiffer(ports);
}

/// A note is about a pair, so an edit of the primary concerns its redundancy port.
void CLayoutData::notesMayDiffer(const QVector<int> &ports)
{
    const CabinetLayout layout = m_states.data(m_states.current()).layout;
    const auto layoutOf = [](const QUuid &processor) {
        return CHostAccess::callUnflushed<&Host::layoutData>(processor).layout;
    };
    const auto nodeOf = [](const QUuid &processor) {
        return CHostAccess::call<&Host::getProcessorNode>(processor);
    };
    QSet<int> concerned;
    for (const int port : ports)
        concerned << port << PortLoads::loadFollower(layout, port);
    for (const int port : qAsConst(concerned)) {
        if (m_states.setNote(layout.processor, port, SPortRedundancyNote::of(layout, port, layoutOf, nodeOf)))
            Q_EMIT notifyProcessorPortNoteChanged(port);
    }
}

void CLayoutData::processorLoadMayDiffer(Announced when)
{
    const std::optional<int> load = m_states.takeProcessorLoad();
    if (load || when == Announced::Always)
        Q_EMIT notifyProcessorPayloadChanged(load.value_or(m_states.processorLoad()));
}
