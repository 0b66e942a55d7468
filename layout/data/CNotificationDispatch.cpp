// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CNotificationDispatch.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/data/CLayoutHandOver.h"
#include "layout/data/CProcessorStates.h"
#include "layout/data/CStoreOptions.h"
#include "platform/control/CSubject.h"

#include <QMetaObject>

#include <algorithm>

namespace {

using Host = ILayoutInterfaceHandler;
using StorePort = CabinetLayout::CabinetPort;
using Announced = IStoreEvents::Announced;

bool sameCabinets(const QVector<StorePort> &a, const QVector<StorePort> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const StorePort &x, const StorePort &y) {
        return x.index == y.index && LayoutData::comparePortData(x, y, true);
    });
}

} // namespace

CNotificationDispatch::CNotificationDispatch(IStoreEvents &events, CProcessorStates &states,
                                             CStoreOptions &options, CLayoutHandOver &handOver)
    : m_events(events)
    , m_states(states)
    , m_options(options)
    , m_handOver(handOver)
{
}

void CNotificationDispatch::dispatch(CSubject &subject)
{
    if (const Handling handling = handlingOf(subject.code()))
        (this->*handling)(subject);
    m_worker.ActivateThread();
}

void CNotificationDispatch::post(int key, std::function<void()> work)
{
    m_worker.AppendEvent({key, std::move(work)}, true);
    m_worker.ActivateThread();
}

void CNotificationDispatch::stop()
{
    m_worker.ThreadExit();
    m_worker.wait();
}

CNotificationDispatch::Handling CNotificationDispatch::handlingOf(int code)
{
    using D = CNotificationDispatch;
    switch (static_cast<LayoutNotification>(code)) {
    case LayoutNotification::DetectFinished:
        return &D::onDetectFinished;
    case LayoutNotification::WorkModeChanged:
        return &D::onWorkModeChanged;
    case LayoutNotification::PortBackupChanged:
        return &D::onPortBackupChanged;
    case LayoutNotification::TypeLibraryChanged:
        return &D::onTypeLibraryChanged;
    case LayoutNotification::ProcessorRemoved:
        return &D::onProcessorRemoved;
    case LayoutNotification::ProcessorsRemoved:
        return &D::onProcessorsRemoved;
    case LayoutNotification::LayoutReplaced:
        return &D::onLayoutReplaced;
    case LayoutNotification::LayoutsReplaced:
        return &D::onLayoutsReplaced;
    case LayoutNotification::BackgroundChanged:
        return &D::onBackgroundChanged;
    case LayoutNotification::CanvasSizeChanged:
        return &D::onCanvasSizeChanged;
    case LayoutNotification::ProcessorStateChanged:
        return &D::onProcessorStateChanged;
    case LayoutNotification::PortLoadsChanged:
        return &D::onPortLoadsChanged;
    case LayoutNotification::PortCountChanged:
        return &D::onPortCountChanged;
    case LayoutNotification::CurrentProcessorChanged:
        return &D::onCurrentProcessorChanged;
    case LayoutNotification::SelectedNodeChanged:
        return &D::onSelectedNodeChanged;
    case LayoutNotification::ReadbackFinished:
        return &D::onReadbackFinished;
    case LayoutNotification::UnsavedEditsChanged:
        return &D::onUnsavedEditsChanged;
    }
    return nullptr;
}

void CNotificationDispatch::onDetectFinished(CSubject &)
{
    post(LayoutNotification::DetectFinished, [this] {
        m_states.suspendCurrentPort();
        m_events.currentPortMayDiffer();
        updatePairsWith({}); // a search numbers processors anew, and the notes name the numbers
        m_events.detectFinished();
        const QUuid current = m_states.current();
        const QSize canvas = CHostAccess::call<&Host::getCanvasSize>();
        if (CHostAccess::call<&Host::currentProcessorNode>().uuid != current)
            return; // of another processor: its own notification is on the way
        m_states.setCanvas(current, canvas);
        m_events.canvasSizeChanged(canvas);
    });
}

void CNotificationDispatch::onWorkModeChanged(CSubject &)
{
    post(LayoutNotification::WorkModeChanged, [this] { invoke("onPrcWorkModeChanged"); });
}

void CNotificationDispatch::onPortBackupChanged(CSubject &subject)
{
    const auto change = subject.GetArgument<SPortBackupChange>();
    refreshCurrentPorts();
    m_events.portBackupChanged(change.primary, change.backup, change.on);
    post(LayoutNotification::PortBackupChanged, [this] { updateAllLoads(); });
}

void CNotificationDispatch::onTypeLibraryChanged(CSubject &)
{
    m_options.setTypeLibrary(CHostAccess::call<&Host::typeLibrary>());
}

void CNotificationDispatch::onProcessorRemoved(CSubject &subject)
{
    removeProcessor(subject.GetArgument<QUuid>());
}

void CNotificationDispatch::onProcessorsRemoved(CSubject &subject)
{
    const auto processors = subject.GetArgument<QList<QUuid>>();
    for (const QUuid &processor : processors)
        removeProcessor(processor);
}

void CNotificationDispatch::onLayoutReplaced(CSubject &subject)
{
    replaceLayout(subject.GetArgument<QUuid>());
}

void CNotificationDispatch::onLayoutsReplaced(CSubject &subject)
{
    const auto processors = subject.GetArgument<QList<QUuid>>();
    for (const QUuid &processor : processors)
        replaceLayout(processor);
}

void CNotificationDispatch::onBackgroundChanged(CSubject &subject)
{
    post(LayoutNotification::BackgroundChanged, [this, info = subject.GetArgument<SBackgroundInfo>()] {
        const SBackgroundInfo before = m_states.setBackground(info.processor, info);
        if (info.processor != m_states.current())
            return;
        const QSize canvas =
            CHostAccess::callUnflushed<&ILayoutInterfaceHandler::layoutData>(info.processor).canvas;
        const bool resized = canvas != m_states.canvas();
        m_states.setCanvas(info.processor, canvas);
        m_events.backgroundChanged(before, info, resized);
    });
}

void CNotificationDispatch::onCanvasSizeChanged(CSubject &subject)
{
    post(LayoutNotification::CanvasSizeChanged, [this, change = subject.GetArgument<SCanvasSizeChange>()] {
        m_states.setCanvas(change.processor, change.size);
        if (change.processor == m_states.current())
            m_events.canvasSizeChanged(change.size);
    });
}

void CNotificationDispatch::onProcessorStateChanged(CSubject &subject)
{
    const auto change = subject.GetArgument<SProcessorStateChange>();
    post(LayoutNotification::ProcessorStateChanged, [this, change] {
        updatePairsWith(change.processor); // the notes name it
        m_events.processorStateChanged();
        m_events.processorLoadMayDiffer(Announced::Always);
        invoke("OnCurrentProcessorStateChanged");
    });
}

void CNotificationDispatch::onPortLoadsChanged(CSubject &subject)
{
    post(LayoutNotification::PortLoadsChanged, [this, change = subject.GetArgument<SPortLoadChange>()] {
        if (change.processor != m_states.current())
            updatePairsWith(change.processor);
        else if (change.port == -1)
            updateAllLoads();
        else
            m_events.loadsMayDiffer({change.port});
    });
}

void CNotificationDispatch::onPortCountChanged(CSubject &)
{
    post(LayoutNotification::PortCountChanged, [this] {
        const ProcessorTree::ProcessorNode node =
            CHostAccess::call<&Host::getProcessorNode>(m_states.current());
        refreshCurrentPorts();
        updateAllLoads(Announced::Always);
        invoke("onCurrentProcessorPortCountChanged", Q_ARG(ProcessorTree::ProcessorNode, node));
    });
}

void CNotificationDispatch::onCurrentProcessorChanged(CSubject &subject)
{
    const auto processor = subject.GetArgument<QUuid>();
    if (processor.isNull())
        m_states.setCurrent(QUuid());
    else
        takeCurrent(processor);
    m_events.currentPortMayDiffer();
    post(LayoutNotification::CurrentProcessorChanged, [this] {
        updateAllLoads(Announced::Always);
        invoke("OnCurrentProcessorChanged");
    });
}

void CNotificationDispatch::onSelectedNodeChanged(CSubject &subject)
{
    const auto change = subject.GetArgument<SSelectedNodeChange>();
    if (change.type != PrcTreeNodeType::Other)
        m_events.highlightEnded();
    post(LayoutNotification::SelectedNodeChanged, [this, change] {
        invoke("OnCurrentSelectedNodeChanged", Q_ARG(PrcTreeNodeType, change.type),
               Q_ARG(ProcessorBoundingRects, change.rects));
    });
}

void CNotificationDispatch::onReadbackFinished(CSubject &subject)
{
    post(LayoutNotification::ReadbackFinished, [this, result = subject.GetArgument<SReadbackResult>()] {
        invoke("onReadbackMappingFinished", Q_ARG(QUuid, result.processor), Q_ARG(bool, result.same));
    });
}

void CNotificationDispatch::onUnsavedEditsChanged(CSubject &subject)
{
    if (subject.GetArgument<QUuid>() == m_states.editable())
        m_events.unsavedEditsMayDiffer();
}

void CNotificationDispatch::removeProcessor(const QUuid &processor)
{
    m_handOver.drop(processor);
    const bool current = processor == m_states.current();
    m_states.remove(processor);
    if (!current) {
        post(LayoutNotification::ProcessorRemoved, [this, processor] { updatePairsWith(processor); });
        return;
    }
    m_events.currentPortMayDiffer();
    m_events.processorStateChanged();
    m_events.processorLoadMayDiffer();
}

void CNotificationDispatch::replaceLayout(const QUuid &processor)
{
    // Before the host is asked, because edits made meanwhile belong to the old layout.
    m_states.outdateEdits(processor);
    if (m_handOver.drop(processor))
        m_states.loseEdit(processor);
    const LayoutData data = CHostAccess::callUnflushed<&Host::layoutData>(processor);
    m_states.takeFromHost(processor, data.layout.ports, false);
    m_states.setCanvas(processor, data.canvas);
    m_events.currentPortMayDiffer();
    m_events.layoutReplaced(processor);
    post(LayoutNotification::LayoutReplaced, [this, processor] {
        if (processor == m_states.current())
            updateAllLoads();
        else
            updatePairsWith(processor);
    });
}

void CNotificationDispatch::refreshCurrentPorts()
{
    const QUuid current = m_states.current();
    m_states.takeFromHost(current, CHostAccess::callUnflushed<&Host::layoutData>(current).layout.ports,
                          m_handOver.isPending(current));
    m_events.currentPortMayDiffer();
}

void CNotificationDispatch::takeCurrent(const QUuid &processor)
{
    const LayoutData data = CHostAccess::callUnflushed<&Host::layoutData>(processor);
    const bool differs = !sameCabinets(m_states.portsOf(processor), data.layout.ports);
    m_states.setCurrent(processor);
    m_states.takeFromHost(processor, data.layout.ports, m_handOver.isPending(processor));
    m_states.setCanvas(processor, data.canvas);
    m_states.setBackground(processor, CHostAccess::call<&Host::background>(processor));
    if (m_options.typeLibrary().isEmpty()) // the host's first processor; changes are announced
        m_options.setTypeLibrary(CHostAccess::call<&Host::typeLibrary>());
    if (differs)
        m_events.highlightEnded();
}

void CNotificationDispatch::updateAllLoads(Announced processor)
{
    QVector<int> indices;
    const QVector<StorePort> ports = m_states.ports();
    for (const StorePort &port : ports)
        indices << port.index;
    m_events.loadsMayDiffer(indices, processor);
}

void CNotificationDispatch::updatePairsWith(const QUuid &other)
{
    QVector<int> paired;
    const QVector<StorePort> ports = m_states.ports();
    for (const StorePort &port : ports) {
        const bool concerned = port.redundancyProcessor == other || other.isNull();
        if (port.redundancy != StorePort::NoRedundancy && !port.redundancyProcessor.isNull() && concerned)
            paired << port.index;
    }
    if (!paired.isEmpty())
        m_events.loadsMayDiffer(paired);
}

void CNotificationDispatch::invoke(const char *slot, QGenericArgument first, QGenericArgument second)
{
    if (QObject *controller = m_events.controller())
        QMetaObject::invokeMethod(controller, slot, Qt::QueuedConnection, first, second);
}
