// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SHostRecords.h"

class QMenu;
class QWidget;

/// What menus and tools of the canvas offer beyond the scene's own edits: dialogs, files, the host. Whoever
/// carries it out knows the scene, its selection and its current port; the user is asked and told over @p
/// parent. GUI thread.
class IEditorCommands
{
public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    virtual ~IEditorCommands() = default;

    virtual void fillCurrentPort(QWidget *parent) = 0;
    virtual void resetFills(QWidget *parent) = 0;
    virtual void markCustomCabinets(bool marked) = 0;
    virtual void chooseType(QWidget *parent) = 0;
    virtual void saveParameters(const QList<Cabinet> &cabinets, QWidget *parent) = 0;
    virtual void showInformation(const QList<Cabinet> &cabinets, QWidget *parent) = 0;
    virtual void exportConfiguration(const Cabinet &cabinet, QWidget *parent) = 0;
    /// Why no configuration can be read back from the processor now; empty when one can.
    virtual QString readbackRefusal() const = 0;
    virtual void readBackConfiguration(const Cabinet &cabinet, QWidget *parent) = 0;

    virtual void setFrameRateAndColorDepth(QWidget *parent) = 0;
    virtual void setCanvasSize(QWidget *parent) = 0;
    virtual void setCanvasFill(QWidget *parent) = 0;
    virtual void adjustCurrentGain(QWidget *parent) = 0;
    /// Opens the dialog that pairs output ports, of all processors.
    virtual void pairPorts(QWidget *parent) = 0;

    virtual void openTypeLibrary(QWidget *parent) = 0;
    /// Fills the menu whose entries append cabinets to the current port. It stays empty without a port that
    /// takes some; of a full one the user is told.
    virtual void fillAppendMenu(QMenu &menu, QWidget *parent) = 0;
    /// Makes @p cabinets, and no others, stand out on the wall. Gives whether the processor does so.
    virtual bool highlight(const QList<Cabinet> &cabinets, CabinetHighlight kind, QWidget *parent) = 0;
};
