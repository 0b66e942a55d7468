// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/control/IAbstractControlInterface.h"
#include "platform/control/UiOrvo.h"

#include <QObject>

#include <memory>
#include <mutex>

class QWidget;

/// The host as its modules see it: the facilities that they call by name, the handler and the notifications.
class CHostControl final : public QObject, public IAbstractControlInterface
{
    Q_OBJECT

public:
    /// @p subject must outlive this object.
    CHostControl(std::shared_ptr<IAbstractInterfaceHandler> handler, CSubject &subject);

    QObject *object() override { return this; }
    std::shared_ptr<IAbstractInterfaceHandler> handler() const override;
    CSubject *subject() override { return &m_subject; }
    /// From now on modules get no handler.
    void stop() override;

    /// Shows @p widget in the right bar, which takes ownership. GUI thread, as all below.
    Q_INVOKABLE void AddRightBarWidget(UiOrvo::EnModule module, QWidget *widget);
    /// Shows @p widget in the status bar, which takes ownership.
    Q_INVOKABLE void AddStatusBarWidget(UiOrvo::EnModule module, QWidget *widget);
    /// Shows @p widget beside the module's title, in whose bar there is room for 26 pixels; the bar takes
    /// ownership.
    Q_INVOKABLE void AddTitleBarWidget(UiOrvo::EnModule module, QWidget *widget);
    /// Adds the control that blocks editing to the module's title bar.
    Q_INVOKABLE void AddLock(UiOrvo::EnModule module);
    /// Adds the control that hides the right bar to the module's title bar.
    Q_INVOKABLE void AddCollapse(UiOrvo::EnModule module);

Q_SIGNALS:
    void notifyRightBarWidgetAdded(UiOrvo::EnModule module, QWidget *widget);
    void notifyStatusBarWidgetAdded(UiOrvo::EnModule module, QWidget *widget);
    void notifyTitleBarWidgetAdded(UiOrvo::EnModule module, QWidget *widget);
    void notifyLockAdded(UiOrvo::EnModule module);
    void notifyCollapseAdded(UiOrvo::EnModule module);

private:
    mutable std::mutex m_mutex; // guards the handler
    std::shared_ptr<IAbstractInterfaceHandler> m_handler;
    CSubject &m_subject;
};
