// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class CModuleTitleBar;
class ILayoutInterface;
class QVBoxLayout;

/// The middle of the window: a module below its title bar, or the reason why there is none. GUI thread.
class CModuleFrame final : public QWidget
{
    Q_OBJECT

public:
    explicit CModuleFrame(const QString &title, QWidget *parent = nullptr);

    CModuleTitleBar &titleBar() { return *m_titleBar; }
    /// Shows the module's widget, a child of this frame until the module is stopped.
    void showModule(ILayoutInterface &module);
    void showProblem(const QString &text);

private:
    CModuleTitleBar *m_titleBar = nullptr;
    QVBoxLayout *m_column = nullptr;
};
