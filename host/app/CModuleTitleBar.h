// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFrame>

class QHBoxLayout;
class QToolButton;

/// The bar above a module: its title and the controls that it asked for. GUI thread.
class CModuleTitleBar final : public QFrame
{
    Q_OBJECT

public:
    explicit CModuleTitleBar(const QString &title, QWidget *parent = nullptr);

    void showBesideTitle(QWidget *widget); ///< takes ownership
    void showLock();                       ///< the control that blocks editing
    void showCollapse();                   ///< the control that hides the right bar
    void setCollapsed(bool collapsed);

Q_SIGNALS:
    void notifyLockToggled(bool locked);
    void notifyCollapseToggled(bool collapsed);

private:
    void buildUi(const QString &title);
    void connectSignals();
    QToolButton *addButton(const char *objectName, const char *icon);
    void onLockToggled(bool locked);
    void onCollapseToggled(bool collapsed);

    QHBoxLayout *m_besideTitle = nullptr;
    QToolButton *m_lock = nullptr;
    QToolButton *m_collapse = nullptr;
};
