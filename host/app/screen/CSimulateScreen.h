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
    /// @p picture must outlive the window.
    explicit CSimulateScreen(CScreenPicture &picture);

    /// Frameless and top-level, except a sub-window on the one system whose window manager cannot handle
    /// that. The arguments are the values of QSysInfo.
    static Qt::WindowFlags flagsFor(const QString &productType, const QString &productVersion);
    /// Sets the flags of a screen window (raster or OpenGL) for this system; closing it never ends the
    /// application.
    static void setUpWindow(QWidget &window);
    /// Whether this display supports OpenGL; tested once.
    static bool isOpenGlUsable();

protected:
    void paintGL() override;

private:
    CScreenPicture &m_picture;
};
