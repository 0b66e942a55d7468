// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CPortCommands.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/data/CLayoutData.h"
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/items/CRefusal.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/redundancy/CPortBackupDialog.h"
#include "layout/settings/CCanvasCommands.h"
#include "layout/settings/CProcessorInView.h"
#include "platform/widgets/CMessageBox.h"

#include <QFileDialog>
#include <QFileInfo>

namespace {

using Host = ILayoutInterfaceHandler;

QString portFilter()
{
    return CPortCommands::tr("Port Project File(*.pprj)");
}

} // namespace

CPortCommands::CPortCommands(CLayoutData &store, CCanvasCommands &canvas, CLayoutGraphicsView &view)
    : m_store(store)
    , m_canvas(canvas)
    , m_view(view)
{
}

void CPortCommands::importMapping(int port)
{
    const QUuid processor = m_store.currentProcessor();
    const QString file =
        QFileDialog::getOpenFileName(&m_view, tr("Import..."), m_store.mappingFolder(), portFilter());
    if (file.isEmpty())
        return;
    m_store.setMappingFolder(QFileInfo(file).absolutePath());
    const bool overwrite = m_store.isPortLocked(port);
    if (overwrite &&
        CMessageBox::question(
            &m_view, tr("The output port has been locked in the current layout, want to overwrite?")) != 0)
        return;
    if (!CProcessorInView::isStill(processor, &m_view, tr("Import mapping failed.")))
        return;
    report(CHostAccess::call<&Host::importPortMapping>(processor, port, file, overwrite),
           tr("Import mapping successful."), tr("Import mapping failed."));
}

void CPortCommands::exportMapping(int port)
{
    const QUuid processor = m_store.currentProcessor();
    QFileDialog dialog(&m_view, tr("Export..."), m_store.mappingFolder(), portFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pprj"));
    dialog.selectFile(QStringLiteral("New.pprj"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString file = dialog.selectedFiles().value(0);
    m_store.setMappingFolder(QFileInfo(file).absolutePath());
    report(CHostAccess::call<&Host::exportPortMapping>(processor, port, file),
           tr("Export mapping successful."), tr("Export mapping failed."));
}

void CPortCommands::setRedundancy(int primary, int backup)
{
    const QUuid processor = m_store.currentProcessor();
    const bool holdsCabinets = m_store.port(backup).cabinetCount() > 0;
    const QStringList asked = holdsCabinets ? QStringList{tr("Port %1").arg(backup + 1)} : QStringList();
    if (!CPortBackupDialog::mayDissolve(&m_view, asked) || !CProcessorInView::isStill(processor, &m_view))
        return;
    report(CHostAccess::call<&Host::setPortRedundancy>(primary, backup), tr("Set successful."),
           tr("Set failed."));
}

void CPortCommands::cancelRedundancy(int port)
{
    report(CHostAccess::call<&Host::cancelPortRedundancy>(port), tr("Set successful."), tr("Set failed."));
}

bool CPortCommands::isWhollySelected(int port) const
{
    return m_view.cabinetScene().backend().picks().isWhole(port);
}

void CPortCommands::tellRefusal(int port)
{
    CSceneBackend &backend = m_view.cabinetScene().backend();
    CRefusal::isTold(backend.batches(), backend.content().portItem(port));
}

void CPortCommands::pairPorts()
{
    CPortBackupDialog dialog(&m_view);
    QObject::connect(&dialog, &CBackupDialog::notifyApplied, &dialog, [&dialog](const QString &refusal) {
        if (refusal.isEmpty())
            CMessageBox::information(&dialog, tr("Set successful."));
        else
            CMessageBox::warning(&dialog, tr("Set failed."), refusal);
    });
    dialog.exec();
}

void CPortCommands::adjustCurrentGain()
{
    m_canvas.adjustCurrentGain();
}

void CPortCommands::report(bool done, const QString &success, const QString &failure)
{
    if (done)
        CMessageBox::information(&m_view, success);
    else
        CMessageBox::warning(&m_view, failure, CHostAccess::call<&Host::lastError>());
}
