// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CMappingCommands.h"

#include "layout/api/ILayoutInterfaceHandler.h"
#include "layout/api/access/CHostAccess.h"
#include "layout/data/CLayoutData.h"
#include "layout/panels/CLayoutSidePanel.h"
#include "platform/widgets/CMessageBox.h"

#include <QPointer>

CMappingCommands::CMappingCommands(CLayoutData &store, CLayoutSidePanel &panel, QWidget &messageParent)
    : m_store(store)
    , m_panel(panel)
    , m_messageParent(messageParent)
{
    connect(&panel, &CLayoutSidePanel::notifyReadMapping, this, &CMappingCommands::read);
    connect(&panel, &CLayoutSidePanel::notifySaveMapping, this, &CMappingCommands::save);
}

void CMappingCommands::read(ReadSaveMappingRole role, const SMappingOptions &options)
{
    m_store.syncLayoutData(true); // the host compares what it reads with what the editor shows
    m_panel.setMappingBusy(true);
    CHostAccess::handler()->readMapping(
        role, options, [self = QPointer<CMappingCommands>(this)](const SDeviceOutcome &outcome) {
            if (self)
                self->endRead(outcome);
        });
}

void CMappingCommands::save(ReadSaveMappingRole role)
{
    m_store.syncLayoutData(true);
    m_panel.setMappingBusy(true);
    CHostAccess::handler()->saveMapping(
        role, m_store.layoutData(), [self = QPointer<CMappingCommands>(this)](const SDeviceOutcome &outcome) {
            if (self)
                self->endSave(outcome);
        });
}

void CMappingCommands::endRead(const SDeviceOutcome &outcome)
{
    m_panel.setMappingBusy(false);
    report(outcome, tr("Read mapping successful."), tr("Read mapping failed."));
}

void CMappingCommands::endSave(const SDeviceOutcome &outcome)
{
    m_panel.setMappingBusy(false);
    m_store.takeSavedMapping(); // also of a failure, of which the current processor may not be part
    if (outcome.isDone())
        m_panel.reportMappingSaved();
    report(outcome, tr("Save mapping successful."), tr("Save mapping failed."));
}

void CMappingCommands::report(const SDeviceOutcome &outcome, const QString &success, const QString &failure)
{
    switch (outcome.result) {
    case SDeviceOutcome::Done:
        CMessageBox::information(&m_messageParent, success);
        break;
    case SDeviceOutcome::Failed:
        CMessageBox::information(&m_messageParent, failure, outcome.text);
        break;
    case SDeviceOutcome::Cancelled:
        break;
    }
}
