// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineF>
#include <QRect>
#include <QVector>

/// The lines that show where the receivers of a cabinet lie. Any thread.
class CReceiverBorders final
{
public:
    /// Between receivers that tile a cabinet of @p size their common borders; otherwise, since gaps are to be
    /// seen, all borders inside the cabinet. Relative to the cabinet's corner.
    static QVector<QLineF> lines(const QVector<QRect> &receivers, const QSize &size);
    /// Whether so many lines can be told apart on a cabinet that covers @p area device pixels.
    static bool canBeToldApart(int lines, qreal area);
};
