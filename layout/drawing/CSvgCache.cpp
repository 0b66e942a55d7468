// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CSvgCache.h"

#include <QCoreApplication>
#include <QHash>
#include <QPointer>
#include <QSvgRenderer>

QSvgRenderer &CSvgCache::renderer(const QString &resource)
{
    static QHash<QString, QPointer<QSvgRenderer>>
        renderers; // pointers only: they outlive the application object
    QPointer<QSvgRenderer> &renderer = renderers[resource];
    if (!renderer)
        renderer = new QSvgRenderer(resource, QCoreApplication::instance());
    return *renderer;
}

QSvgRenderer &CSvgCache::lock()
{
    static const QString picture = QStringLiteral(":/Image/Layout/PortList/lock_checked.svg");
    return renderer(picture);
}

QSvgRenderer &CSvgCache::redundancy()
{
    static const QString picture = QStringLiteral(":/Image/Layout/PortList/Menu/backup.svg");
    return renderer(picture);
}
