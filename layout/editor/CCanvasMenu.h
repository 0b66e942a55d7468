// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/records/SHostRecords.h"

#include <QCoreApplication>

class CCabinetGraphicsScene;
class QMenu;
class QWidget;

/// Fills the menu that a right click on the canvas opens. GUI thread.
class CCanvasMenu final
{
    Q_DECLARE_TR_FUNCTIONS(CCanvasMenu)

public:
    /// The commands act on @p scene; @p currentPort (-1: none) is the one whose topology can be cleared, and
    /// @p block what keeps the canvas size from being changed. @p parent is for questions.
    static void fill(QMenu &menu, CCabinetGraphicsScene &scene, int currentPort, CanvasBlock block,
                     QWidget *parent);

    /// Why the canvas size cannot be changed, in brackets; empty when it can.
    static QString reason(CanvasBlock block);

private:
    static void addHistory(QMenu &menu, CCabinetGraphicsScene &scene, QWidget *parent);
    static void addDialogEntry(QMenu &menu, const QString &text);
};
