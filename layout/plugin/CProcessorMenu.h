// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/ProcessorTree.h"

#include <QCoreApplication>

#include <functional>

class CProcessorCommands;
class QAction;
class QMenu;

/// Fills a menu with the commands of one processor. Needed only for filling: the actions belong to the menu
/// and call @p commands, which must outlive them.
class CProcessorMenu final
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorMenu)

public:
    using Cabinets = QList<CabinetLayout::CabinetPort::Cabinet>;

    /// @p block: why the processor's layout may not be edited, empty if it may; @p selected are cabinets of
    /// the current processor.
    CProcessorMenu(QMenu &menu, CProcessorCommands &commands, const QUuid &processor, const QString &block,
                   const Cabinets &selected);

    void fill();

private:
    void addMappingEntries();
    void addStatusLed();
    void addPortCounts();
    void addRedundancy();
    void addCabinetParameters();
    void addCabinetInformation();
    /// Why commands for the current processor are disabled for this one; empty: they are not.
    QString currentReason() const;
    /// Why nothing can be sent to this processor; empty if it can.
    QString connectionReason() const;
    void addRedundancyView();
    using Chosen = std::function<void(const QUuid &)>;
    /// The reason why a processor cannot be chosen; empty if it can.
    using Obstacle = std::function<QString(const ProcessorTree::ProcessorNode &)>;
    /// Adds a submenu of all other processors; those in fibre optic transceiver mode, and those with an
    /// @p obstacle, are disabled.
    QMenu *addOtherProcessors(const QString &text, const QString &icon, const Chosen &chosen,
                              const Obstacle &obstacle = {});
    void addCancelRedundancy();
    /// @p reason; if that is empty: that there are no @p others, or nothing.
    static QString reasonFor(const QMenu &others, const QString &reason);
    QMenu *addSubmenu(QMenu &menu, const QString &text, const QString &icon = {});
    QAction *addEntry(QMenu &menu, const QString &text, const std::function<void()> &chosen,
                      const QString &icon = {});

    QMenu &m_menu;
    CProcessorCommands &m_commands;
    const ProcessorTree::ProcessorNode m_processor;
    const Cabinets m_selected;
    const QString m_modeReason; // why only leaving the mode is possible; empty: not so
    const QString m_editReason; // why its layout cannot be replaced; empty: it can be
};
