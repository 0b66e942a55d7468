// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QOpenGLWidget>

class CScreenPicture;

/// The window that simulates the wall, drawn by OpenGL. GUI thread.
class CSimulateScreen final : public QOpenGLWidget
{
    Q_OBJECT

public:
    /// @p picture stays owned by the caller and outlives the window.
    explicit CSimulateScreen(CScreenPicture &picture);

    /// Frameless and top-level, but a sub-window on the one system whose window manager cannot cope with
    /// that. The arguments are those that QSysInfo tells.
    static Qt::WindowFlags flagsFor(const QString &productType, const QString &productVersion);
    /// Gives a screen window, whatever draws it, its flags for this system; closing it never ends the
    /// application.
    static void setUpWindow(QWidget &window);
    /// Whether this display can draw by OpenGL; tried once.
    static bool isOpenGlUsable();

protected:
    void paintGL() override;

private:
    CScreenPicture &m_picture;
};
