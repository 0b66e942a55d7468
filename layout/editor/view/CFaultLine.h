// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/drawing/CLayoutPainter.h"

#include <QHash>
#include <QWidget>

class CLayoutGraphicsView;
class QToolButton;

/// Tells in one line how many cabinets overlap, lie outside the canvas or are not wired; a click selects
/// them. GUI thread.
class CFaultLine final : public QWidget
{
    Q_OBJECT

public:
    /// @p view must outlive it.
    explicit CFaultLine(CLayoutGraphicsView &view);

private:
    void addButton(CabinetFault fault);
    void showCounts();
    void select(CabinetFault fault);
    static QString text(CabinetFault fault, int count);

    CLayoutGraphicsView &m_view;
    QHash<int, QToolButton *> m_buttons; // by fault
};
