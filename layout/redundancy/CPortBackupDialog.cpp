// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/CPortBackupDialog.h"

#include "layout/api/access/CHostAccess.h"
#include "platform/widgets/CMessageBox.h"

#include <algorithm>

namespace {

using Host = ILayoutInterfaceHandler;

/// The key of a port's entry: always the same for a port.
QUuid entryKey(const SPortKey &port)
{
    return QUuid::createUuidV5(port.processor, QByteArray::number(port.port));
}

} // namespace

CPortBackupDialog::CPortBackupDialog(QWidget *parent)
    : CPortBackupDialog(new CPortBackupTable, parent)
{
}

CPortBackupDialog::CPortBackupDialog(CPortBackupTable *table, QWidget *parent)
    : CBackupDialog(tr("Port redundancy"), tr("Output ports"), table, parent)
    , m_portTable(table)
{
    table->setRefusal([this] {
        return !m_processors.isEmpty() && CHostAccess::call<&Host::areProcessorsOnline>(m_processors) &&
               CHostAccess::call<&Host::areProcessorsBusy>(m_processors);
    });
    refill();
}

bool CPortBackupDialog::mayDissolve(QWidget *parent, const QStringList &ports)
{
    return ports.isEmpty() ||
           CMessageBox::question(parent,
                                 tr("A redundancy port loses the groups and the wiring of its cabinets. "
                                    "Continue?"),
                                 tr("These output ports hold cabinets:") + QLatin1Char('\n') +
                                     ports.join(QLatin1Char('\n'))) == 0;
}

QList<SBackupEntry> CPortBackupDialog::readEntries()
{
    m_ports.clear();
    m_names.clear();
    m_processors.clear();
    QSet<SPortKey> redundancies;
    const QList<SPortPair> known = CHostAccess::call<&Host::portRedundancies>();
    for (const SPortPair &pair : known)
        redundancies.insert(pair.second);
    QList<ProcessorTree::ProcessorNode> processors = CHostAccess::call<&Host::processors>();
    const QUuid current = CHostAccess::call<&Host::currentProcessorNode>().uuid;
    std::stable_partition(processors.begin(), processors.end(),
                          [&current](const auto &processor) { return processor.uuid == current; });
    QList<SBackupEntry> entries;
    for (const ProcessorTree::ProcessorNode &processor : qAsConst(processors))
        readPorts(processor, redundancies, entries);
    m_portTable->setPorts(m_ports);
    return entries;
}

void CPortBackupDialog::readPorts(const ProcessorTree::ProcessorNode &processor,
                                  const QSet<SPortKey> &redundancies, QList<SBackupEntry> &entries)
{
    m_processors << processor.uuid;
    const CabinetLayout layout = CHostAccess::call<&Host::layoutData>(processor.uuid).layout;
    for (const CabinetLayout::CabinetPort &port : layout.ports) {
        const SPortKey key{processor.uuid, port.index};
        const SBackupEntry entry{
            entryKey(key), tr("Port %1, %2").arg(port.index + 1).arg(processor.displayText()),
            QStringLiteral(":/Image/Target/Port/%1.svg")
                .arg(redundancies.contains(key) ? QStringLiteral("backup-port") : QStringLiteral("port")),
            CHostAccess::call<&Host::portPairRefusal>(key)};
        m_ports.insert(entry.key, {key, port.cabinetCount(), PortPairs::mirrorOf(port)});
        m_names.insert(entry.key, entry.text);
        entries << entry;
    }
}

QList<SBackupPair> CPortBackupDialog::readPairs()
{
    QList<SBackupPair> pairs;
    const QList<SPortPair> known = CHostAccess::call<&Host::portRedundancies>();
    for (const SPortPair &pair : known)
        pairs << SBackupPair(entryKey(pair.first), entryKey(pair.second));
    return pairs;
}

bool CPortBackupDialog::confirm(const QList<SBackupPair> &pairs)
{
    QStringList losing;
    const QList<SBackupPair> before = readPairs();
    for (const SBackupPair &pair : pairs) {
        if (!before.contains(pair) && m_ports.value(pair.second).cabinets > 0)
            losing << m_names.value(pair.second);
    }
    return mayDissolve(this, losing);
}

QString CPortBackupDialog::apply(const QList<SBackupPair> &pairs)
{
    QList<SPortPair> ports;
    for (const SBackupPair &pair : pairs)
        ports << SPortPair(m_ports.value(pair.first).key, m_ports.value(pair.second).key);
    return CHostAccess::call<&Host::applyPortRedundancy>(m_processors, ports)
               ? QString()
               : CHostAccess::call<&Host::lastError>();
}
