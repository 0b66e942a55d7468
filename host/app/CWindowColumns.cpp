// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CWindowColumns.h"

#include "host/app/CModuleFrame.h"
#include "host/app/CModuleHost.h"
#include "host/app/CModuleTitleBar.h"
#include "host/app/start/CAppSettings.h"

namespace {

constexpr int TreeWidth = 196;
constexpr int NarrowTreeWidth = 160;
constexpr int PanelWidth = 364;
constexpr int WidthForTree = 1280;  ///< below, the tree is narrow
constexpr int WidthForPanel = 1040; ///< below, tree and panel are not both shown

} // namespace

CWindowColumns::CWindowColumns(QWidget &devices, CModuleHost &module)
    : m_devices(devices)
    , m_module(module)
{
    setChildrenCollapsible(false);
    m_devices.setMinimumWidth(NarrowTreeWidth);
    addWidget(&m_devices);
    addWidget(m_module.frame());
    addWidget(m_module.rightBar());
    setStretchFactor(0, 0);
    setStretchFactor(1, 1);
    setStretchFactor(2, 0);
    connect(this, &QSplitter::splitterMoved, this, [this] { m_usual = false; });
    connect(&m_module.frame()->titleBar(), &CModuleTitleBar::notifyCollapseToggled, this,
            &CWindowColumns::onPanelToggled);
}

void CWindowColumns::restore(const CAppSettings &settings)
{
    m_usual = !restoreState(settings.splitterState());
    share();
}

void CWindowColumns::foldPanel(const CAppSettings &settings)
{
    const bool folded = settings.isRightBarCollapsed();
    const bool narrow = window()->width() < WidthForPanel;
    m_module.setCollapsed(folded || narrow);
    m_foldedByWidth = narrow && !folded;
}

void CWindowColumns::save(CAppSettings &settings) const
{
    if (!m_usual)
        settings.setSplitterState(saveState());
    settings.setRightBarCollapsed(m_module.isCollapsed() && !m_foldedByWidth);
}

void CWindowColumns::resizeEvent(QResizeEvent *event)
{
    QSplitter::resizeEvent(event);
    share();
    showTree();
}

void CWindowColumns::share()
{
    const int whole = window()->width();
    const int tree = whole < WidthForTree ? NarrowTreeWidth : TreeWidth;
    if (m_usual && m_devices.width() != tree)
        setSizes({tree, whole - tree - PanelWidth, PanelWidth});
}

void CWindowColumns::showTree()
{
    m_devices.setVisible(m_module.isCollapsed() || window()->width() >= WidthForPanel);
}

void CWindowColumns::onPanelToggled(bool folded)
{
    m_foldedByWidth = m_foldedByWidth && folded;
    showTree();
}
