// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CMappingCommands.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/data/CLayoutData.h"
#include "layout/panels/ports/SOverload.h"
#include "platform/widgets/CMessageBox.h"

#include <QPointer>

#include <utility>

namespace {

using Host = ILayoutInterfaceHandler;

/// Whether "all processors" concerns the one that @p node describes: projects and what does not answer are
/// left out.
bool isAmongAll(const ProcessorTree::ProcessorNode &node)
{
    return node.online && !node.fiberTransceiver && node.address != 0;
}

} // namespace

CMappingCommands::CMappingCommands(CLayoutData &store, QWidget &messageParent)
    : m_store(store)
    , m_messageParent(messageParent)
{
    connect(&store, &CLayoutData::notifyDetectFinished, this, &CMappingCommands::endUnanswered);
}

QString CMappingCommands::refusalForAll() const
{
    int online = CHostAccess::call<&Host::getDetectedProcessorCount>();
    for (const ProcessorTree::ProcessorNode &node : CHostAccess::call<&Host::processors>())
        online -= node.online && node.fiberTransceiver ? 1 : 0; // they have no mapping
    return online > 0 ? QString() : tr("No processor is online.");
}

void CMappingCommands::readMapping(ReadSaveMappingRole role, const SMappingOptions &options, Ended ended)
{
    const auto done = whenDone({ended, tr("Read mapping successful."), tr("Read mapping failed.")});
    Q_EMIT notifyStarted();
    // The host compares what it reads with what the editor shows.
    if (!CHostAccess::call<&Host::readMapping>(role, options, done))
        done({SDeviceOutcome::Failed, {}});
}

void CMappingCommands::saveMapping(ReadSaveMappingRole role, Ended ended)
{
    if (!mayBeOverloaded(role)) {
        ended(false);
        return;
    }
    const auto done = whenDone({ended, tr("Save mapping successful."), tr("Save mapping failed.")});
    Q_EMIT notifyStarted();
    const auto save = [this, role, done](Host &host) { host.saveMapping(role, m_store.layoutData(), done); };
    if (!CHostAccess::call(save))
        done({SDeviceOutcome::Failed, {}});
}

bool CMappingCommands::mayBeOverloaded(ReadSaveMappingRole role)
{
    QList<ProcessorTree::ProcessorNode> nodes;
    if (role == ReadSaveMappingRole::All)
        nodes = CHostAccess::call<&Host::processors>();
    else
        nodes << CHostAccess::call<&Host::currentProcessorNode>();
    QStringList overloads;
    for (const ProcessorTree::ProcessorNode &node : qAsConst(nodes)) {
        if (role == ReadSaveMappingRole::All && !isAmongAll(node))
            continue;
        const SOverload overload = SOverload::asked(CHostAccess::call<&Host::layoutData>(node.uuid).layout);
        if (!overload.isEmpty())
            overloads << QStringLiteral("%1: %2").arg(node.displayText(), overload.text());
    }
    return overloads.isEmpty() ||
           CMessageBox::confirm(&m_messageParent, tr("The mapping exceeds what can be driven. Save it?"),
                                overloads.join(QLatin1Char('\n')));
}

std::function<void(const SDeviceOutcome &)> CMappingCommands::whenDone(const SAsked &asked)
{
    const int number = ++m_lastNumber;
    m_asked.emplace(number, asked);
    return [self = QPointer<CMappingCommands>(this), number](const SDeviceOutcome &outcome) {
        if (self)
            self->end(number, outcome);
    };
}

void CMappingCommands::end(int number, const SDeviceOutcome &outcome)
{
    const auto found = m_asked.find(number);
    if (found == m_asked.end())
        return; // was answered before
    const SAsked asked = found->second;
    m_asked.erase(found);
    asked.ended(outcome.isDone());
    report(outcome, asked.success, asked.failure);
}

void CMappingCommands::endUnanswered()
{
    if (m_asked.empty())
        return;
    QList<QUuid> processors;
    for (const ProcessorTree::ProcessorNode &node : CHostAccess::call<&Host::processors>())
        processors << node.uuid;
    if (CHostAccess::call<&Host::areProcessorsBusy>(processors))
        return;
    const std::map<int, SAsked> unanswered = std::exchange(m_asked, {});
    for (const auto &asked : unanswered)
        asked.second.ended(false);
    report({SDeviceOutcome::Failed, tr("There was no answer.")}, {}, unanswered.begin()->second.failure);
}

void CMappingCommands::report(const SDeviceOutcome &outcome, const QString &success, const QString &failure)
{
    switch (outcome.result) {
    case SDeviceOutcome::Done:
        CMessageBox::information(&m_messageParent, success, outcome.text);
        break;
    case SDeviceOutcome::Failed:
        CMessageBox::warning(&m_messageParent, failure, outcome.text);
        break;
    case SDeviceOutcome::Cancelled:
        if (!outcome.text.isEmpty())
            CMessageBox::warning(&m_messageParent, failure,
                                 tr("%1\nThe rest was cancelled.").arg(outcome.text));
        break;
    }
}
