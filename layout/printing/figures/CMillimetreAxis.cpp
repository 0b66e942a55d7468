// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/figures/CMillimetreAxis.h"

#include <algorithm>

namespace {

void makeUnique(QVector<int> &values)
{
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
}

int placeOf(const QVector<int> &values, int value)
{
    return int(std::lower_bound(values.begin(), values.end(), value) - values.begin());
}

} // namespace

CMillimetreAxis::CMillimetreAxis(const QVector<SSpan> &spans)
{
    double millimetres = 0;
    double pixels = 0;
    for (const SSpan &span : spans) {
        m_edges << span.from << span.to;
        m_begins << span.from;
        millimetres += span.millimetres;
        pixels += span.to - span.from;
    }
    makeUnique(m_edges);
    makeUnique(m_begins);

    QVector<double> sums(m_edges.size(), 0); // of what the spans say of the stretch behind each edge
    QVector<int> counts(m_edges.size(), 0);
    for (const SSpan &span : spans) {
        for (int i = placeOf(m_edges, span.from); m_edges.at(i) < span.to; ++i) {
            const int stretch = m_edges.at(i + 1) - m_edges.at(i);
            sums[i] += stretch * span.millimetres / (span.to - span.from);
            ++counts[i];
        }
    }
    double place = 0;
    for (int i = 0; i < m_edges.size(); ++i) {
        m_places << place;
        if (i + 1 < m_edges.size())
            place += counts.at(i) > 0 ? sums.at(i) / counts.at(i)
                                      : (m_edges.at(i + 1) - m_edges.at(i)) * millimetres / pixels;
    }
}

double CMillimetreAxis::at(int pixel) const
{
    return m_places.value(placeOf(m_edges, pixel));
}

int CMillimetreAxis::ordinal(int pixel) const
{
    return placeOf(m_begins, pixel) + 1;
}
