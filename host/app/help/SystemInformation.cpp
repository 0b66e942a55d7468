// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/help/SystemInformation.h"

#include <QApplication>
#include <QFontInfo>
#include <QLocale>
#include <QScreen>
#include <QStringList>
#include <QSysInfo>
#include <QThread>

namespace {

QString screenText(const QScreen &screen)
{
    return QStringLiteral("Screen: %1 x %2 at %3, %4; scale %5, %6 dpi, %7 Hz")
        .arg(screen.size().width())
        .arg(screen.size().height())
        .arg(screen.geometry().x())
        .arg(screen.geometry().y())
        .arg(screen.devicePixelRatio())
        .arg(screen.logicalDotsPerInch())
        .arg(screen.refreshRate());
}

} // namespace

QString SystemInformation::text()
{
    QStringList lines{
        QStringLiteral("Orvo %1").arg(QCoreApplication::applicationVersion()),
        QStringLiteral("Qt: %1, built with %2")
            .arg(QLatin1String(qVersion()), QStringLiteral(QT_VERSION_STR)),
        QStringLiteral("System: %1, %2 %3")
            .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion()),
        QStringLiteral("Processor: %1, %2 threads")
            .arg(QSysInfo::currentCpuArchitecture())
            .arg(QThread::idealThreadCount()),
        QStringLiteral("Platform: %1").arg(QGuiApplication::platformName()),
        QStringLiteral("Locale: %1").arg(QLocale::system().name())};
    const QFontInfo font(QApplication::font());
    lines << QStringLiteral("Font: %1, %2 pt").arg(font.family()).arg(font.pointSizeF());
    for (const QScreen *screen : QGuiApplication::screens())
        lines << screenText(*screen);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}
