// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"
#include "layout/editor/menus/IEditorCommands.h"
#include "layout/plugin/CPrintCommand.h"
#include "layout/settings/CCanvasCommands.h"

#include <QCoreApplication>

class CLayoutData;
class CLayoutGraphicsView;

/// Carries out what menus and tools of the canvas offer beyond edits: connects the editor with the store, the
/// dialogs and the host. GUI thread.
class CEditorCommands final : public IEditorCommands
{
    Q_DECLARE_TR_FUNCTIONS(CEditorCommands)

public:
    using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    /// @p store and @p view must outlive the commands.
    CEditorCommands(CLayoutData &store, CLayoutGraphicsView &view);

    CCanvasCommands &canvas() { return m_canvas; }
    /// Lets the user place cabinets of a type in a port; a null key: of a size without a type.
    void append(const TypeInfo &type, int port, const QSize &size);

    void fillCurrentPort(QWidget *parent) override;
    void resetFills(QWidget *parent) override;
    void markCustomCabinets(bool marked) override;
    void chooseType(QWidget *parent) override;
    void saveParameters(const QList<Cabinet> &cabinets, QWidget *parent) override;
    void showInformation(const QList<Cabinet> &cabinets, QWidget *parent) override;
    QString exportRefusal(const Cabinet &cabinet) const override;
    void exportConfiguration(const Cabinet &cabinet, QWidget *parent) override;
    QString connectionRefusal() const override;
    QString connectionRefusal(const QList<Cabinet> &cabinets) const override;
    void readBackConfiguration(const Cabinet &cabinet, QWidget *parent) override;
    void setFrameRateAndColorDepth(QWidget *parent) override;
    void setCanvasSize(QWidget *parent) override;
    void setCanvasFill(QWidget *parent) override;
    void adjustCurrentGain(QWidget *parent) override;
    void openTypeLibrary(QWidget *parent) override;
    void print(QWidget *parent) override { CPrintCommand::run(parent); }
    void fillAppendMenu(QMenu &menu, QWidget *parent) override;
    bool highlight(const QList<Cabinet> &cabinets, CabinetHighlight kind, QWidget *parent) override;

private:
    QString typeName(const Cabinet &cabinet) const; ///< empty without a type

    CLayoutData &m_store;
    CLayoutGraphicsView &m_view;
    CCanvasCommands m_canvas;
};
