// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/ReadSaveMappingRole.h"
#include "layout/api/records/SHostRecords.h"
#include "platform/widgets/CUnitLabel.h"

class CMenuToolButton;
class QCheckBox;

/// The unit "Mapping": asks for the mapping to be read from, or saved to, the current or all processors. Who
/// carries that out reports back with setBusy() and reportMappingSaved(). GUI thread.
class CMappingLabel final : public CUnitLabel
{
    Q_OBJECT

public:
    explicit CMappingLabel(QWidget *parent = nullptr);

    /// While a read or save runs, no other can be started.
    void setBusy(bool busy);
    /// A read replaces the layout: it is refused while editing is locked.
    void setReadBlocked(bool blocked);
    /// A save that this unit asked for has succeeded.
    void reportMappingSaved();

Q_SIGNALS:
    void notifySaveMappingSuccessed();
    void notifyReadMapping(ReadSaveMappingRole role, const SMappingOptions &options);
    void notifySaveMapping(ReadSaveMappingRole role);

public Q_SLOTS:
    /// A null or offline processor, or one that works as fibre optic transceiver, leaves only "all" to be
    /// read and saved.
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor);
    void onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor);

private Q_SLOTS:
    void onReadTriggered(QAction *action);
    void onSaveTriggered(QAction *action);

private:
    void buildUi();
    void addReadSection();
    void addSaveSection();
    void addSectionRow(const QString &caption, CMenuToolButton *button);
    QCheckBox *addOption(const QString &text, const QString &toolTip, bool checked);
    void connectSignals();
    void enable(CMenuToolButton &button, const QString &reason);
    void updateEnabled();

    CMenuToolButton *m_read = nullptr;
    CMenuToolButton *m_save = nullptr;
    QCheckBox *m_numberMapping = nullptr;
    QCheckBox *m_realtime = nullptr;
    QCheckBox *m_fromProcessor = nullptr;
    QWidget *m_focusBefore = nullptr;    ///< the button that had the focus when the work began
    QWidget *m_focusMeanwhile = nullptr; ///< what had it then; only compared
    bool m_processorReady = false;
    bool m_busy = false;
    bool m_readBlocked = false;
};
