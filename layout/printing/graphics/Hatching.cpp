// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/Hatching.h"

#include <QPolygonF>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// Millimetres.
constexpr double Wide = 2.6;
constexpr double Fine = 1.1;
constexpr double Double = 3.4; // from pair to pair
constexpr double DotLength = 0.01;
constexpr double RingRadius = 0.65;

/// Parallel lines, perhaps broken: every second line is shifted by half a period.
struct SFamily
{
    int degrees;       // counter-clockwise from level
    double pitch;      // from line to line
    double offset;     // of the line next to the origin
    double period = 0; // from dash to dash; 0: unbroken
    double dash = 0;
    double start = 0; // of a dash
};

struct SPattern
{
    double width;
    QVector<SFamily> families;
    bool round = false;
    bool rings = false; // instead of dots
};

const QVector<SPattern> &patterns()
{
    static const QVector<SPattern> all = {
        {0.2, {}},
        {0.2, {{45, Wide, Wide / 2}}},
        {0.2, {{0, Fine, Fine / 2}}},
        {0.2, {{45, Wide, Wide / 2}, {-45, Wide, Wide / 2}}},
        {0.6, {{0, 1.1, 0.55, 2.2, DotLength, 0.55}}, true},
        {0.2, {{-45, Fine, Fine / 2}}},
        {0.2, {{-45, Wide, Wide / 2}}},
        {0.2, {{90, Fine, Fine / 2}}},
        {0.2, {{45, Double, 0.5}, {45, Double, 1.25}}},
        {0.32, {{0, 0.5, 0.25, 1, DotLength, 0.25}}, true},
        {0.25, {{0, 0.85, 0.43, 3.4, 2, 0}}},
        {0.22, {{0, 1.7, 0.85, 3.4, 1, 0.35}, {90, 1.7, 0.85, 3.4, 1, 2.05}}},
        {0.2, {{45, Fine, Fine / 2}}},
        {0.18, {{45, 1.3, 0.65}, {-45, 1.3, 0.65}}},
        {0.2, {{-45, Double, 0.5}, {-45, Double, 1.25}}},
        {0.2, {{0, 1.5, 0.75, 3, DotLength, 0.75}}, false, true},
    };
    return all;
}

double along(const QPointF &point, const QPointF &direction)
{
    return QPointF::dotProduct(point, direction);
}

/// A stretch of a line, as distances along it.
using Span = std::pair<double, double>;

/// Where one line of a family crosses the border of an area, and in which direction the border runs there.
struct SCrossing
{
    double place;
    int turn;
};

/// The stretches inside, by the number of the line.
QMap<int, QVector<Span>> spans(const QList<QPolygonF> &area, const SFamily &family, const QPointF &direction,
                               const QPointF &normal)
{
    QMap<int, QVector<SCrossing>> crossings;
    for (const QPolygonF &polygon : area) {
        for (int i = 0; i + 1 < polygon.size(); ++i) {
            const double from = (along(polygon[i], normal) - family.offset) / family.pitch;
            const double to = (along(polygon[i + 1], normal) - family.offset) / family.pitch;
            const int last = int(std::ceil(std::max(from, to)));
            for (int line = int(std::ceil(std::min(from, to))); line < last; ++line) {
                const double share = (line - from) / (to - from);
                const double begin = along(polygon[i], direction);
                crossings[line] << SCrossing{begin + share * (along(polygon[i + 1], direction) - begin),
                                             from < to ? 1 : -1};
            }
        }
    }
    QMap<int, QVector<Span>> inside;
    for (auto line = crossings.begin(); line != crossings.end(); ++line) {
        std::sort(line->begin(), line->end(),
                  [](const SCrossing &a, const SCrossing &b) { return a.place < b.place; });
        QVector<Span> &stretches = inside[line.key()];
        int depth = 0;
        double begin = 0;
        for (const SCrossing &crossing : qAsConst(*line)) {
            const int before = depth;
            depth += crossing.turn;
            if (before == 0)
                begin = crossing.place;
            else if (depth == 0 && !stretches.isEmpty() && begin - stretches.last().second < 1e-6)
                stretches.last().second = crossing.place; // from cabinet to cabinet
            else if (depth == 0)
                stretches << Span(begin, crossing.place);
        }
    }
    return inside;
}

/// Adds what a broken line shows of a stretch.
template <typename Add>
void breakUp(const Span &span, const SFamily &family, int line, double keepOff, Add add)
{
    const double start = family.start + (line % 2 == 0 ? 0 : family.period / 2);
    const double first = std::floor((span.first - start) / family.period);
    for (double dash = start + first * family.period; dash < span.second; dash += family.period) {
        const double begin = std::max(dash, span.first + keepOff);
        const double end = std::min(dash + family.dash, span.second - keepOff);
        if (end - begin > DotLength / 2)
            add(begin, end);
    }
}

} // namespace

Hatching::SStrokes Hatching::strokes(const QPainterPath &area, int number)
{
    const SPattern &pattern = patterns().at((std::max(number, 1) - 1) % Count);
    SStrokes strokes{{}, pattern.width, pattern.round};
    const QList<QPolygonF> polygons = area.toSubpathPolygons();
    const double keepOff = pattern.rings ? RingRadius : pattern.round ? pattern.width / 2 : 0;
    for (const SFamily &family : pattern.families) {
        const double angle = family.degrees * M_PI / 180;
        const QPointF direction(std::cos(angle), -std::sin(angle));
        const QPointF normal(std::sin(angle), std::cos(angle));
        const auto draw = [&](int line, double from, double to) {
            const QPointF foot = normal * (family.offset + line * family.pitch);
            if (pattern.rings) {
                strokes.path.addEllipse(foot + direction * from, RingRadius, RingRadius);
                return;
            }
            strokes.path.moveTo(foot + direction * from);
            strokes.path.lineTo(foot + direction * to);
        };
        const auto inside = spans(polygons, family, direction, normal);
        for (auto line = inside.cbegin(); line != inside.cend(); ++line) {
            for (const Span &span : *line) {
                if (family.period <= 0)
                    draw(line.key(), span.first, span.second);
                else
                    breakUp(span, family, line.key(), keepOff,
                            [&](double from, double to) { draw(line.key(), from, to); });
            }
        }
    }
    return strokes;
}

QMap<int, int> Hatching::chosen(const QMap<int, QVector<int>> &touching)
{
    QMap<int, int> numbers;
    for (auto port = touching.cbegin(); port != touching.cend(); ++port) {
        QSet<int> taken;
        for (int other : *port)
            taken << numbers.value(other);
        const int first = port.key() % Count;
        int &number = numbers[port.key()];
        number = first + 1;
        for (int i = 0; i < Count; ++i) {
            const int candidate = (first + i) % Count + 1;
            if (!taken.contains(candidate)) {
                number = candidate;
                break;
            }
        }
    }
    return numbers;
}
