// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/screen/CSimulateScreen.h"

#include "host/app/screen/CScreenPicture.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QPainter>
#include <QSysInfo>

namespace {

bool probeOpenGl()
{
    const QStringList without = {QStringLiteral("offscreen"), QStringLiteral("minimal"),
                                 QStringLiteral("vnc")};
    if (without.contains(QGuiApplication::platformName()) || qgetenv("QT_XCB_GL_INTEGRATION") == "none")
        return false; // trying would only cause warnings
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    return surface.isValid() && context.create() && context.makeCurrent(&surface);
}

} // namespace

CSimulateScreen::CSimulateScreen(CScreenPicture &picture)
    : m_picture(picture)
{
    setUpWindow(*this);
    connect(&m_picture, &CScreenPicture::notifyChanged, this, qOverload<>(&QWidget::update));
}

Qt::WindowFlags CSimulateScreen::flagsFor(const QString &productType, const QString &productVersion)
{
    const bool subWindow = productType == QLatin1String("kylin") && productVersion == QLatin1String("4.0.2");
    return Qt::WindowFlags(subWindow ? Qt::SubWindow : Qt::Window) | Qt::FramelessWindowHint;
}

void CSimulateScreen::setUpWindow(QWidget &window)
{
    window.setWindowFlags(flagsFor(QSysInfo::productType(), QSysInfo::productVersion()));
    window.setAttribute(Qt::WA_QuitOnClose, false);
}

bool CSimulateScreen::isOpenGlUsable()
{
    static const bool usable = probeOpenGl();
    return usable;
}

void CSimulateScreen::paintGL()
{
    QPainter painter(this);
    m_picture.paint(painter, rect());
}
