// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CHostControl.h"

#include "platform/control/IAbstractInterfaceHandler.h"

#include <utility>

CHostControl::CHostControl(std::shared_ptr<IAbstractInterfaceHandler> handler, CSubject &subject)
    : m_handler(std::move(handler))
    , m_subject(subject)
{
}

std::shared_ptr<IAbstractInterfaceHandler> CHostControl::handler() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_handler;
}

void CHostControl::stop()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_handler.reset();
}

void CHostControl::AddRightBarWidget(UiOrvo::EnModule module, QWidget *widget)
{
    Q_EMIT notifyRightBarWidgetAdded(module, widget);
}

void CHostControl::AddStatusBarWidget(UiOrvo::EnModule module, QWidget *widget)
{
    Q_EMIT notifyStatusBarWidgetAdded(module, widget);
}

void CHostControl::AddTitleBarWidget(UiOrvo::EnModule module, QWidget *widget)
{
    Q_EMIT notifyTitleBarWidgetAdded(module, widget);
}

void CHostControl::AddLock(UiOrvo::EnModule module)
{
    Q_EMIT notifyLockAdded(module);
}

void CHostControl::AddCollapse(UiOrvo::EnModule module)
{
    Q_EMIT notifyCollapseAdded(module);
}
