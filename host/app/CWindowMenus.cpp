// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CWindowMenus.h"

#include "host/app/CModuleHost.h"
#include "host/app/start/CAppSettings.h"
#include "host/devices/services/CDeviceTable.h"
#include "layout/api/ILayoutInterface.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPoint>

CWindowMenus::CWindowMenus(const SMainActions &actions, CModuleHost &module, const CAppSettings &settings,
                           const CDeviceTable &table, QWidget *window)
    : QObject(window)
    , m_actions(actions)
    , m_module(module)
    , m_settings(settings)
    , m_table(table)
    , m_window(window)
{
    connect(m_actions.recentProjects, &QMenu::aboutToShow, this, &CWindowMenus::fillRecentMenu);
    connect(m_actions.edit, &QMenu::aboutToShow, this, &CWindowMenus::fillEditMenu);
    connect(m_actions.view, &QMenu::aboutToShow, this, &CWindowMenus::fillViewMenu);
    connect(m_actions.processor, &QMenu::aboutToShow, this, &CWindowMenus::fillProcessorMenu);
}

void CWindowMenus::showProcessorMenu(const QUuid &processor, const QPoint &position)
{
    QMenu menu(m_window);
    menu.setToolTipsVisible(true);
    if (ILayoutInterface *layout = m_module.layoutModule())
        layout->fillProcessorMenu(menu, processor);
    if (m_table.isProject(processor)) {
        menu.addSeparator();
        menu.addAction(m_actions.saveProject);
        menu.addAction(m_actions.saveProjectAs);
        menu.addAction(m_actions.closeProject);
    }
    menu.exec(position);
}

void CWindowMenus::fillProcessorMenu()
{
    m_actions.processor->clear();
    if (ILayoutInterface *layout = m_module.layoutModule())
        layout->fillProcessorMenu(*m_actions.processor, m_processor);
}

void CWindowMenus::fillEditMenu()
{
    m_actions.edit->clear();
    if (ILayoutInterface *layout = m_module.layoutModule())
        layout->fillEditMenu(*m_actions.edit);
}

void CWindowMenus::fillViewMenu()
{
    QMenu &menu = *m_actions.view;
    menu.clear();
    if (ILayoutInterface *layout = m_module.layoutModule())
        layout->fillViewMenu(menu);
    menu.addSeparator();
    QAction *panel = menu.addAction(tr("Side p&anel"));
    panel->setCheckable(true);
    panel->setChecked(!m_module.isCollapsed());
    connect(panel, &QAction::triggered, &m_module, [this](bool shown) { m_module.setCollapsed(!shown); });
}

void CWindowMenus::fillRecentMenu()
{
    QMenu &menu = *m_actions.recentProjects;
    menu.clear();
    int number = 0;
    for (const QString &file : m_settings.recentProjects()) {
        QString name = QFileInfo(file).fileName();
        name.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction *action = menu.addAction(tr("&%1 %2").arg(++number % 10).arg(name));
        action->setToolTip(QDir::toNativeSeparators(file));
        connect(action, &QAction::triggered, this, [this, file] { Q_EMIT notifyRecentChosen(file); });
    }
    menu.addSeparator();
    connect(menu.addAction(tr("&Clear list")), &QAction::triggered, this, &CWindowMenus::notifyRecentCleared);
}
