// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/app/SMainActions.h"

#include <QObject>
#include <QUuid>

class CAppSettings;
class CDeviceTable;
class CModuleHost;
class QPoint;
class QWidget;

/// Fills the menus of the window that change: those that the module has entries for, and the recent projects.
/// GUI thread.
class CWindowMenus final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the menus; @p window is the parent of context menus.
    CWindowMenus(const SMainActions &actions, CModuleHost &module, const CAppSettings &settings,
                 const CDeviceTable &table, QWidget *window);

    /// The processor that the menu "Current processor" is about; null: none.
    void setProcessor(const QUuid &processor) { m_processor = processor; }
    /// Opens the context menu of a processor at the screen position @p position.
    void showProcessorMenu(const QUuid &processor, const QPoint &position);

Q_SIGNALS:
    void notifyRecentChosen(const QString &file);
    void notifyRecentCleared();

private:
    void fillProcessorMenu();
    void fillEditMenu();
    void fillViewMenu();
    void fillRecentMenu();

    const SMainActions m_actions;
    CModuleHost &m_module;
    const CAppSettings &m_settings;
    const CDeviceTable &m_table;
    QWidget *m_window;
    QUuid m_processor;
};
