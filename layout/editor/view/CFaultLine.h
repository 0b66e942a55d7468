// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/drawing/CLayoutPainter.h"

#include <QHash>
#include <QVector>
#include <QWidget>

class CLayoutGraphicsView;
class QToolButton;

/// Tells in one line which overload there is, and how many cabinets overlap, lie outside the canvas or are
/// not wired; a click selects them. GUI thread.
class CFaultLine final : public QWidget
{
    Q_OBJECT

public:
    /// @p view must outlive it.
    explicit CFaultLine(CLayoutGraphicsView &view);

    /// Tells that @p ports are overloaded; an empty @p text hides it.
    void showOverload(const QString &text, const QString &toolTip, const QVector<int> &ports);

Q_SIGNALS:
    /// The user wants the overloaded ports selected, and shown.
    void notifyPortsSought(const QVector<int> &ports);

private:
    QToolButton *makeButton(bool grave);
    void addButton(CabinetFault fault);
    void showCounts();
    void select(CabinetFault fault);
    /// With a sign of its own, as colours alone tell nothing to some.
    static QString text(CabinetFault fault, int count);

    CLayoutGraphicsView &m_view;
    QHash<int, QToolButton *> m_buttons; // by fault
    QToolButton *m_overload;
    QVector<int> m_overloaded; // ports
};
