// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMenu>
#include <QUuid>

#include <functional>

class CDeviceCommands;
class CDeviceTable;
class CStatus;
struct SProcessorSettings;

/// The menu for work mode, 3D and low latency of the selected processor; entries are checked while they are
/// on. GUI thread.
class CWorkModeMenu final : public QMenu
{
    Q_OBJECT

public:
    CWorkModeMenu(const CDeviceTable &table, CDeviceCommands &commands, QWidget *parent = nullptr);

    /// Sets the processor of the menu; for null, a project or an offline processor, the entries are disabled.
    void setProcessor(const QUuid &processor);

private:
    struct SEntry
    {
        QAction *action;
        std::function<bool(const SProcessorSettings &)> isOn;
    };
    void createActions();
    void addEntry(const QString &text, const char *name, std::function<bool(const SProcessorSettings &)> isOn,
                  std::function<CStatus(bool on)> set);
    void updateActions();

    const CDeviceTable &m_table;
    CDeviceCommands &m_commands;
    QUuid m_processor;
    QVector<SEntry> m_entries;
};
