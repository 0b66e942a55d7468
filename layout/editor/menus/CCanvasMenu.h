// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SHostRecords.h"

#include <QCoreApplication>
#include <QPointF>

class CCabinetGraphicsScene;
class QMenu;
class QWidget;

/// Fills the menu that a right click on the canvas opens. GUI thread.
class CCanvasMenu final
{
    Q_DECLARE_TR_FUNCTIONS(CCanvasMenu)

public:
    /// The entries act on @p scene and its current port; what is pasted comes to lie at @p scenePos. Without
    /// commands of the scene there are no entries that open dialogs. @p parent is for questions.
    static void fill(QMenu &menu, CCabinetGraphicsScene &scene, const QPointF &scenePos, QWidget *parent);

    /// Why the canvas size cannot be changed, in brackets; empty when it can.
    static QString reason(CanvasBlock block);

private:
    static void addDialogs(QMenu &menu, CCabinetGraphicsScene &scene, QWidget *parent);
};
