// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/ports/IPortCommands.h"

#include <QCoreApplication>

class CCanvasCommands;
class CLayoutData;
class CLayoutGraphicsView;

/// Carries out what the port list asks: asks the user for what it needs, lets the host do it, and shows the
/// outcome. GUI thread.
class CPortCommands final : public IPortCommands
{
    Q_DECLARE_TR_FUNCTIONS(CPortCommands)

public:
    /// All must outlive the commands; questions and messages appear over @p view.
    CPortCommands(CLayoutData &store, CCanvasCommands &canvas, CLayoutGraphicsView &view);

    void importMapping(int port) override;
    void exportMapping(int port) override;
    void setRedundancy(int primary, int backup) override;
    void cancelRedundancy(int port) override;
    bool isWhollySelected(int port) const override;
    void tellRefusal(int port) override;
    void pairPorts() override;
    void adjustCurrentGain() override;

private:
    void report(bool done, const QString &success, const QString &failure);

    CLayoutData &m_store;
    CCanvasCommands &m_canvas;
    CLayoutGraphicsView &m_view;
};
