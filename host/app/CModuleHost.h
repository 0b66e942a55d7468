// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/app/CHostControl.h"

class CModuleFrame;
class ILayoutInterface;

/// Places the Layout module in the window, provides the facilities that it needs, and loads and stops it. GUI
/// thread.
class CModuleHost final : public QObject
{
    Q_OBJECT

public:
    /// @p subject must outlive this object.
    CModuleHost(std::shared_ptr<IAbstractInterfaceHandler> handler, CSubject &subject);
    ~CModuleHost() override;

    /// The widgets to place: the module below its title bar, and its side panel, and what it says in the
    /// status bar. The caller takes ownership.
    CModuleFrame *frame() const { return m_frame; }
    QWidget *rightBar() const { return m_rightBar; }
    QWidget *statusBar() const { return m_statusBar; }

    /// Loads the module; if that fails, the frame says why. Call once.
    void load(const QString &file);
    ILayoutInterface *layoutModule() const { return m_layout; } ///< null: not loaded
    void setCollapsed(bool collapsed);
    bool isCollapsed() const { return m_collapsed; }

    /// Stops the module, which removes its widgets from the window. A second call does nothing.
    void stop();

private:
    void connectSignals();
    void onRightBarWidgetAdded(UiOrvo::EnModule module, QWidget *widget);
    void onLockToggled(bool locked);
    void onCollapseToggled(bool collapsed);

    CHostControl m_control;
    CModuleFrame *m_frame = nullptr;
    QWidget *m_rightBar = nullptr;
    QWidget *m_statusBar = nullptr;
    ILayoutInterface *m_layout = nullptr;
    bool m_collapsed = false;
    bool m_stopped = false;
};
