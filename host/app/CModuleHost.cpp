// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CModuleHost.h"

#include "host/app/CModuleFrame.h"
#include "host/app/CModuleLoader.h"
#include "host/app/CModuleTitleBar.h"
#include "layout/api/ILayoutInterface.h"

#include <QVBoxLayout>

CModuleHost::CModuleHost(std::shared_ptr<IAbstractInterfaceHandler> handler, CSubject &subject)
    : m_control(std::move(handler), subject)
    , m_frame(new CModuleFrame(tr("Layout")))
    , m_rightBar(new QWidget)
    , m_statusBar(new QWidget)
{
    m_rightBar->setObjectName(QStringLiteral("RightBar"));
    m_rightBar->setVisible(false); // until the module fills it
    auto *row = new QHBoxLayout(m_statusBar);
    row->setContentsMargins(0, 0, 0, 0);
    auto *column = new QVBoxLayout(m_rightBar);
    column->setContentsMargins(0, 0, 0, 0);
    connectSignals();
}

CModuleHost::~CModuleHost() = default;

void CModuleHost::connectSignals()
{
    CModuleTitleBar *bar = &m_frame->titleBar();
    connect(&m_control, &CHostControl::notifyRightBarWidgetAdded, this, &CModuleHost::onRightBarWidgetAdded);
    connect(&m_control, &CHostControl::notifyStatusBarWidgetAdded, m_statusBar,
            [this](UiOrvo::EnModule, QWidget *widget) { m_statusBar->layout()->addWidget(widget); });
    connect(&m_control, &CHostControl::notifyTitleBarWidgetAdded, bar,
            [bar](UiOrvo::EnModule, QWidget *widget) { bar->showBesideTitle(widget); });
    connect(&m_control, &CHostControl::notifyLockAdded, bar, &CModuleTitleBar::showLock);
    connect(&m_control, &CHostControl::notifyCollapseAdded, bar, &CModuleTitleBar::showCollapse);
    connect(bar, &CModuleTitleBar::notifyLockToggled, this, &CModuleHost::onLockToggled);
    connect(bar, &CModuleTitleBar::notifyCollapseToggled, this, &CModuleHost::onCollapseToggled);
}

void CModuleHost::load(const QString &file)
{
    const CResult<ILayoutInterface *> loaded = CModuleLoader::loadLayout(file, m_control, m_frame);
    if (loaded) {
        m_layout = loaded.value();
        m_frame->showModule(*m_layout);
    } else {
        qWarning("%s", qPrintable(loaded.error()));
        m_frame->showProblem(loaded.error());
    }
}

void CModuleHost::setCollapsed(bool collapsed)
{
    m_frame->titleBar().setCollapsed(collapsed);
}

void CModuleHost::stop()
{
    if (m_stopped)
        return;
    m_stopped = true;
    if (m_layout)
        m_layout->stop();
    m_control.stop();
    m_layout = nullptr;
}

void CModuleHost::onRightBarWidgetAdded(UiOrvo::EnModule module, QWidget *widget)
{
    if (module != UiOrvo::ModuleLayout || !widget)
        return;
    m_rightBar->layout()->addWidget(widget);
    widget->show();
    m_rightBar->setVisible(!m_collapsed);
}

void CModuleHost::onLockToggled(bool locked)
{
    if (m_layout)
        m_layout->setEditingBlocked(locked);
}

void CModuleHost::onCollapseToggled(bool collapsed)
{
    m_collapsed = collapsed;
    m_rightBar->setVisible(!collapsed);
}
