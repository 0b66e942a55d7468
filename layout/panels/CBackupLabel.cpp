// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CBackupLabel.h"

#include "layout/api/ILayoutInterfaceHandler.h"
#include "layout/api/access/CHostAccess.h"
#include "layout/api/records/EditRefusal.h"
#include "layout/data/CLayoutData.h"
#include "layout/panels/IMappingCommands.h"
#include "layout/panels/MappingRefusal.h"
#include "platform/widgets/CElidedLabel.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

namespace {

using Host = ILayoutInterfaceHandler;
using Port = CabinetLayout::CabinetPort;

constexpr int ShieldSize = 16;

QString portText(int port)
{
    return CBackupLabel::tr("%1 %2").arg(CBackupLabel::tr("Port")).arg(port + 1);
}

QHBoxLayout *plainRow(QWidget *parent = nullptr)
{
    auto *row = new QHBoxLayout(parent);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    return row;
}

} // namespace

CBackupLabel::CBackupLabel(const SUnitServices &services)
    : m_store(services.store)
    , m_commands(services.mapping)
{
    buildUi();
    showProcessor();
    showPorts();
}

void CBackupLabel::setEditingBlocked(bool locked, bool redundancy)
{
    m_block = EditRefusal::of(locked, redundancy);
    updateEnabled();
}

void CBackupLabel::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor)
{
    m_processor = processor;
    showProcessor();
    showPorts();
}

void CBackupLabel::onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor)
{
    onCurrentProcessorChanged(processor);
}

void CBackupLabel::onCurrentProcessorBackupChanged()
{
    showProcessor();
}

void CBackupLabel::onNotifyPortBackup(int, int, bool)
{
    showPorts();
}

void CBackupLabel::buildUi()
{
    SetTitle(tr("Processor redundancy"));
    m_primary = new CElidedLabel;
    m_primary->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto *primary = plainRow();
    primary->addWidget(new QLabel(tr("Primary processor")));
    primary->addWidget(m_primary, 1);
    contentLayout()->addLayout(primary);

    auto *heading = new QLabel(tr("Port redundancy"));
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    m_noPorts = new QLabel(tr("None"));
    m_noPorts->setEnabled(false); // in the dimmed colour of the theme
    auto *ports = plainRow();
    ports->addWidget(heading, 1);
    ports->addWidget(m_noPorts);
    contentLayout()->addLayout(ports);
    m_ports = new QWidget;
    auto *column = new QVBoxLayout(m_ports);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    contentLayout()->addWidget(m_ports);

    m_saveCurrent = addSaveButton(tr("Save current processor"), ReadSaveMappingRole::Current);
    m_saveAll = addSaveButton(tr("Save all processors"), ReadSaveMappingRole::All);
    auto *save = plainRow();
    save->addWidget(m_saveCurrent);
    save->addWidget(m_saveAll);
    contentLayout()->addLayout(save);
}

QPushButton *CBackupLabel::addSaveButton(const QString &text, ReadSaveMappingRole role)
{
    auto *button = new QPushButton(text);
    button->setStyleSheet(QStringLiteral("padding-left: 4px; padding-right: 4px;")); // two beside each other
    button->setFocusPolicy(Qt::TabFocus); // a click leaves the keys to the canvas
    connect(button, &QPushButton::clicked, this, [this, role] { save(role); });
    return button;
}

void CBackupLabel::save(ReadSaveMappingRole role)
{
    m_focus.hold({m_saveCurrent, m_saveAll});
    m_busy = true;
    updateEnabled();
    m_focus.noteMeanwhile();
    m_commands.saveMapping(role, [self = QPointer<CBackupLabel>(this)](bool done) {
        if (!self)
            return;
        self->m_busy = false;
        self->updateEnabled();
        self->m_focus.giveBack();
        if (done)
            Q_EMIT self->notifySaveMappingSuccessed();
    });
}

void CBackupLabel::showProcessor()
{
    const QUuid primary = m_store.primaryOf(m_processor.uuid);
    const bool standsIn = !primary.isNull();
    m_primary->setFullText(standsIn ? CHostAccess::call<&Host::getProcessorNode>(primary).displayText()
                                    : tr("None"));
    m_primary->setEnabled(standsIn); // otherwise in the dimmed colour of the theme
    updateEnabled();
}

/// Makes the rows anew only when they show other pairs than before.
void CBackupLabel::showPorts()
{
    QVector<Port> redundant;
    for (const Port &port : m_store.ports()) {
        if (port.redundancy != Port::Redundant)
            continue;
        Port shown;
        shown.index = port.index;
        shown.redundancyPort = port.redundancyPort;
        shown.redundancyProcessor = port.redundancyProcessor;
        redundant << shown;
    }
    if (redundant == m_shown && !redundant.isEmpty())
        return;
    m_shown = redundant;
    qDeleteAll(m_ports->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
    for (const Port &port : qAsConst(m_shown))
        addPortRow(port);
    m_ports->setVisible(!m_shown.isEmpty());
    m_noPorts->setVisible(m_shown.isEmpty());
    updateEnabled();
}

void CBackupLabel::addPortRow(const Port &port)
{
    auto *row = new QWidget;
    auto *line = plainRow(row);
    auto *shield = new QLabel;
    shield->setPixmap(QIcon(QStringLiteral(":/Image/Layout/PortList/Menu/backup.svg"))
                          .pixmap(QSize(ShieldSize, ShieldSize)));
    auto *cancel = new QPushButton(tr("Cancel redundancy"));
    cancel->setAccessibleName(QStringLiteral("%1, %2").arg(tr("Cancel redundancy"), portText(port.index)));
    cancel->setStyleSheet(QStringLiteral("padding-left: 6px; padding-right: 6px;"));
    connect(
        cancel, &QPushButton::clicked, this,
        [this, index = port.index] { Q_EMIT notifyCancelPortRedundancy(index); }, Qt::QueuedConnection);
    auto *primary = new CElidedLabel;
    primary->setFullText(primaryText(port));
    line->addWidget(shield);
    line->addWidget(new QLabel(portText(port.index)));
    line->addWidget(new QLabel(tr("Primary port")));
    line->addWidget(primary, 1);
    line->addWidget(cancel);
    m_ports->layout()->addWidget(row);
}

QString CBackupLabel::primaryText(const Port &port) const
{
    if (port.redundancyPort < 0)
        return tr("None");
    const QString text = portText(port.redundancyPort);
    if (port.redundancyProcessor.isNull() || port.redundancyProcessor == m_processor.uuid)
        return text;
    const QString processor =
        CHostAccess::call<&Host::getProcessorNode>(port.redundancyProcessor).displayText();
    return processor.isEmpty() ? text : QStringLiteral("%1, %2").arg(text, processor);
}

void CBackupLabel::updateEnabled()
{
    enable(*m_saveCurrent, MappingRefusal::of(m_processor));
    enable(*m_saveAll, m_commands.refusalForAll());
    m_ports->setEnabled(m_block.isEmpty());
    m_ports->setToolTip(m_block);
}

/// An empty @p refusal enables; any other tells why not.
void CBackupLabel::enable(QPushButton &button, const QString &refusal)
{
    button.setEnabled(refusal.isEmpty() && !m_busy);
    button.setToolTip(refusal);
}
