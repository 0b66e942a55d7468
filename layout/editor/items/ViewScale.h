// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsScene>
#include <QGraphicsView>

/// Screen pixels per canvas pixel in the scene's first view; 1 if it has no view.
inline qreal viewScale(const QGraphicsScene &scene)
{
    const QList<QGraphicsView *> views = scene.views();
    return views.isEmpty() ? 1 : views.first()->transform().m11();
}
