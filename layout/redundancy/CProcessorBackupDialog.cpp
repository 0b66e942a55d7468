// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/CProcessorBackupDialog.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/redundancy/CProcessorBackupTable.h"
#include "layout/redundancy/PairObstacle.h"
#include "platform/widgets/CMessageBox.h"

#include <algorithm>

namespace {

using Host = ILayoutInterfaceHandler;

QString iconOf(const ProcessorTree::ProcessorNode &processor, const QList<SBackupPair> &pairs)
{
    const bool backup = std::any_of(pairs.begin(), pairs.end(), [&processor](const SBackupPair &pair) {
        return pair.second == processor.uuid;
    });
    return QStringLiteral(":/Image/Target/Processor/%1%2_normal.svg")
        .arg(backup ? QStringLiteral("backup-") : QString(),
             processor.online ? QStringLiteral("online") : QStringLiteral("offline"));
}

} // namespace

CProcessorBackupDialog::CProcessorBackupDialog(QWidget *parent)
    : CProcessorBackupDialog(new CProcessorBackupTable, parent)
{
}

CProcessorBackupDialog::CProcessorBackupDialog(CProcessorBackupTable *table, QWidget *parent)
    : CBackupDialog(tr("Processor redundancy"), tr("Processors"), table, parent)
    , m_processorTable(table)
{
    table->setRefusal([this] {
        return !m_keys.isEmpty() && CHostAccess::call<&Host::areProcessorsOnline>(m_keys) &&
               CHostAccess::call<&Host::areProcessorsBusy>(m_keys);
    });
    refill();
}

QList<SBackupEntry> CProcessorBackupDialog::readEntries()
{
    m_keys.clear();
    QList<SBackupEntry> entries;
    QList<ProcessorTree::ProcessorNode> listed;
    const QList<SBackupPair> pairs = readPairs();
    const QList<ProcessorTree::ProcessorNode> processors = CHostAccess::call<&Host::processors>();
    for (const ProcessorTree::ProcessorNode &processor : processors) {
        if (processor.address == 0)
            continue; // a project, which cannot replace a processor
        m_keys << processor.uuid;
        listed << processor;
        const bool fiber = CHostAccess::call<&Host::isFiberTransceiverMode>(processor.uuid);
        entries << SBackupEntry{processor.uuid, processor.displayText(), iconOf(processor, pairs),
                                fiber ? tr("Fiber Optic Transceiver Mode is on") : QString()};
    }
    m_processorTable->setProcessors(listed);
    return entries;
}

QList<SBackupPair> CProcessorBackupDialog::readPairs()
{
    return CHostAccess::call<&Host::processorRedundancies>();
}

/// Here, so that what was entered stays in the table.
bool CProcessorBackupDialog::confirm(const QList<SBackupPair> &pairs)
{
    QStringList obstacles;
    const QList<SBackupPair> before = readPairs();
    for (const SBackupPair &pair : pairs) {
        if (!before.contains(pair))
            obstacles << PairObstacle::of(m_processorTable->processor(pair.first),
                                          m_processorTable->processor(pair.second));
    }
    obstacles.removeAll(QString());
    if (!obstacles.isEmpty())
        CMessageBox::information(this, tr("Invalid primary-redundancy settings."),
                                 obstacles.join(QLatin1Char('\n')));
    return obstacles.isEmpty();
}

QString CProcessorBackupDialog::apply(const QList<SBackupPair> &pairs)
{
    return CHostAccess::call<&Host::applyProcessorRedundancy>(m_keys, pairs)
               ? QString()
               : CHostAccess::call<&Host::lastError>();
}
