// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

/// Tells where pixels of the canvas lie on the real wall, along one axis. Where cabinets of different pixel
/// pitch lie side by side, their mean counts; where there is none, the mean of all.
class CMillimetreAxis final
{
public:
    /// A cabinet's extent on the axis.
    struct SSpan
    {
        int from = 0; ///< pixel
        int to = 0;   ///< pixel behind the last one
        double millimetres = 0;
    };

    explicit CMillimetreAxis(const QVector<SSpan> &spans);

    /// Millimetres from the first pixel of all spans to @p pixel, which must be an edge of a span.
    double at(int pixel) const;
    /// Place of that edge among those at which a span begins, from 1.
    int ordinal(int pixel) const;
    double length() const { return m_places.isEmpty() ? 0 : m_places.last(); }
    int count() const { return m_begins.size(); }

private:
    QVector<int> m_edges; ///< pixels, ascending, each once
    QVector<double> m_places;
    QVector<int> m_begins; ///< the edges at which a span begins
};
