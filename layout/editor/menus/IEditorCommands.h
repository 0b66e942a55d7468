// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SHostRecords.h"

class QMenu;
class QWidget;

/// What menus and tools of the canvas offer beyond edits of the scene: dialogs, files, calls of the host. The
/// implementation knows the scene, its selection and the current port. Questions and messages appear over
/// @p parent. GUI thread.
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
    /// The reason why the configuration of @p cabinet cannot be exported; empty if it can.
    virtual QString exportRefusal(const Cabinet &cabinet) const = 0;
    virtual void exportConfiguration(const Cabinet &cabinet, QWidget *parent) = 0;
    /// The reason why nothing can be sent to the cabinets of the processor in view, or read from them; empty
    /// if it can.
    virtual QString connectionRefusal() const = 0;
    /// The same for @p cabinets, which must also be in the processor's saved mapping.
    virtual QString connectionRefusal(const QList<Cabinet> &cabinets) const = 0;
    virtual void readBackConfiguration(const Cabinet &cabinet, QWidget *parent) = 0;

    virtual void setFrameRateAndColorDepth(QWidget *parent) = 0;
    virtual void setCanvasSize(QWidget *parent) = 0;
    virtual void setCanvasFill(QWidget *parent) = 0;
    virtual void adjustCurrentGain(QWidget *parent) = 0;

    virtual void openTypeLibrary(QWidget *parent) = 0;
    /// Opens the print dialog.
    virtual void print(QWidget *parent) = 0;
    /// Fills the menu whose entries append cabinets to the current port. It stays empty if there is no
    /// current port that accepts cabinets: the status bar says why, and if the port is full a message.
    virtual void fillAppendMenu(QMenu &menu, QWidget *parent) = 0;
    /// Highlights exactly @p cabinets on the wall. Returns whether the processor accepted that.
    virtual bool highlight(const QList<Cabinet> &cabinets, CabinetHighlight kind, QWidget *parent) = 0;
};
