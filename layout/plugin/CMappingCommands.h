// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ReadSaveMappingRole.h"
#include "layout/api/records/SHostRecords.h"

#include <QObject>

class CLayoutData;
class CLayoutSidePanel;
class QWidget;

/// Reads and saves the mapping when the side panel asks for it, and tells how it ended. The host works in the
/// background; until it has ended, the panel starts nothing else. GUI thread.
class CMappingCommands final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the commands.
    CMappingCommands(CLayoutData &store, CLayoutSidePanel &panel, QWidget &messageParent);

private:
    void read(ReadSaveMappingRole role, const SMappingOptions &options);
    void save(ReadSaveMappingRole role);
    void endRead(const SDeviceOutcome &outcome);
    void endSave(const SDeviceOutcome &outcome);
    void report(const SDeviceOutcome &outcome, const QString &success, const QString &failure);

    CLayoutData &m_store;
    CLayoutSidePanel &m_panel;
    QWidget &m_messageParent;
};
