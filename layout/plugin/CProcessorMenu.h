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

/// Fills a menu with the commands of one processor. Lives while it fills; the actions live as long as the
/// menu and call the commands, which must outlive them.
class CProcessorMenu final
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorMenu)

public:
    using Cabinets = QList<CabinetLayout::CabinetPort::Cabinet>;

    /// @p editable is false while the host blocks editing; @p selected are cabinets of the current processor.
    CProcessorMenu(QMenu &menu, CProcessorCommands &commands, const QUuid &processor, bool editable,
                   const Cabinets &selected);

    void fill();

private:
    void addMappingEntries();
    void addStatusLed();
    void addPortCounts();
    void addRedundancy();
    void addCabinetParameters();
    void addCabinetInformation();
    /// Why what is done with the current processor cannot be done with this one; empty: it can.
    QString currentReason() const;
    void addRedundancyView();
    /// A submenu of all other processors; those in fibre optic transceiver mode cannot be chosen.
    QMenu *addOtherProcessors(const QString &text, const QString &icon,
                              const std::function<void(const QUuid &)> &chosen);
    /// @p reason, or that @p others is empty, or nothing.
    static QString reasonFor(const QMenu &others, const QString &reason);
    QMenu *addSubmenu(QMenu &menu, const QString &text, const QString &icon = {});
    QAction *addEntry(QMenu &menu, const QString &text, const std::function<void()> &chosen,
                      const QString &icon = {});

    QMenu &m_menu;
    CProcessorCommands &m_commands;
    const ProcessorTree::ProcessorNode m_processor;
    const Cabinets m_selected;
    const QString m_modeReason; // why nothing can be done but leaving the mode; empty: it can
    const QString m_editReason; // why its layout cannot be replaced; empty: it can
};
