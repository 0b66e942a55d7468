// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CProcessorCommands.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/data/CLayoutData.h"
#include "layout/plugin/CParameterCheck.h"
#include "layout/redundancy/CProcessorBackupDialog.h"
#include "layout/settings/CCabinetInformation.h"
#include "layout/settings/CCabinetParaSave.h"
#include "platform/widgets/CMessageBox.h"

#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

namespace {
using Host = ILayoutInterfaceHandler;
}

CProcessorCommands::CProcessorCommands(CLayoutData &store, QWidget &messageParent)
    : m_store(store)
    , m_messageParent(messageParent)
{
}

void CProcessorCommands::importMapping(const QUuid &processor)
{
    const QString file = QFileDialog::getOpenFileName(
        &m_messageParent, tr("Import..."), m_store.mappingFolder(), tr("Processor Project File(*.sprj)"));
    if (file.isEmpty())
        return;
    rememberFolder(file);
    const bool overwrite = mayOverwriteLocked(processor);
    report(CHostAccess::call<&Host::importProcessorMapping>(processor, file, overwrite),
           tr("Import mapping successful."), tr("Import mapping failed."));
}

void CProcessorCommands::exportMapping(const QUuid &processor)
{
    QFileDialog dialog(&m_messageParent, tr("Export..."), m_store.mappingFolder(),
                       tr("Processor Project File(*.sprj)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("sprj"));
    dialog.selectFile(QStringLiteral("New.sprj"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString file = dialog.selectedFiles().value(0);
    rememberFolder(file);
    report(CHostAccess::call<&Host::exportProcessorMapping>(processor, file),
           tr("Export mapping successful."), tr("Export mapping failed."));
}

void CProcessorCommands::copyMapping(const QUuid &from, const QUuid &to)
{
    const bool overwrite = mayOverwriteLocked(to);
    report(CHostAccess::call<&Host::copyProcessorMapping>(from, to, overwrite),
           tr("Import mapping successful."), tr("Import mapping failed."));
}

void CProcessorCommands::setStatusLed(bool on)
{
    reportSet(CHostAccess::call<&Host::setCabinetStatusLed>(on));
}

void CProcessorCommands::setPortCount(const QUuid &processor, int count)
{
    // The host refuses if a port that would be removed still holds cabinets.
    reportSet(CHostAccess::call<&Host::setOutputPortCount>(processor, count));
}

void CProcessorCommands::setRedundancyFor(const QUuid &primary, const QUuid &redundancy)
{
    reportSet(CHostAccess::call<&Host::setProcessorRedundancy>(primary, redundancy));
}

void CProcessorCommands::cancelRedundancy(const QUuid &processor)
{
    reportSet(CHostAccess::call<&Host::cancelProcessorRedundancy>(processor));
}

void CProcessorCommands::showRedundancy()
{
    CProcessorBackupDialog dialog(&m_messageParent);
    connect(&dialog, &CBackupDialog::notifyApplied, this, [this, &dialog](const QString &refusal) {
        takeRedundancies();
        if (refusal.isEmpty())
            CMessageBox::information(&dialog, tr("Set successful."));
        else
            CMessageBox::warning(&dialog, tr("Set failed."), refusal);
    });
    dialog.exec();
}

void CProcessorCommands::saveParameters()
{
    const CResult<QList<CParameterCheck::Cabinet>> checked = CParameterCheck(m_store).run();
    if (checked)
        CCabinetParaSave(checked.value(), m_store.typeLibrary(), &m_messageParent).exec();
    else
        CMessageBox::warning(&m_messageParent, checked.error());
}

void CProcessorCommands::showInformation(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets)
{
    const auto typeOf = [this](const SMD5 &key) { return m_store.getTypeInfo(key); };
    CCabinetInformation(cabinets, typeOf, &m_messageParent).exec();
}

void CProcessorCommands::setVideoProcessorMode()
{
    setWorkMode(ProcessorWorkMode::VideoProcessor);
}

void CProcessorCommands::setBypassMode()
{
    setWorkMode(ProcessorWorkMode::Bypass);
}

void CProcessorCommands::setWorkMode(ProcessorWorkMode mode)
{
    const QUuid current = CHostAccess::call<&Host::currentProcessorNode>().uuid;
    reportSet(CHostAccess::call<&Host::setWorkMode>(current, mode));
}

void CProcessorCommands::setCustomMarkup(bool on)
{
    SLayoutOptions options = m_store.options();
    options.markupCustomCabinets = on;
    m_store.setOptions(options);
}

bool CProcessorCommands::customMarkup() const
{
    return m_store.options().markupCustomCabinets;
}

bool CProcessorCommands::mayOverwriteLocked(const QUuid &processor)
{
    const QVector<CabinetLayout::CabinetPort> ports =
        CHostAccess::call<&Host::layoutData>(processor).layout.ports;
    const bool locked = std::any_of(ports.begin(), ports.end(),
                                    [](const CabinetLayout::CabinetPort &port) { return port.locked; });
    return locked &&
           CMessageBox::question(
               &m_messageParent,
               tr("The output port has been locked in the current layout, want to overwrite?")) == 0;
}

void CProcessorCommands::rememberFolder(const QString &file)
{
    m_store.setMappingFolder(QFileInfo(file).absolutePath());
}

void CProcessorCommands::report(bool done, const QString &success, const QString &failure)
{
    if (done)
        CMessageBox::information(&m_messageParent, success);
    else
        CMessageBox::warning(&m_messageParent, failure, CHostAccess::call<&Host::lastError>());
}

void CProcessorCommands::takeRedundancies()
{
    m_store.setProcessorRedundancies(CHostAccess::call<&Host::processorRedundancies>());
}

void CProcessorCommands::reportSet(bool done)
{
    report(done, tr("Set successful."), tr("Set failed."));
}
