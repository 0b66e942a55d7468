// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CLayoutCheck.h"

#include "host/projects/COverlapSweep.h"
#include "layout/api/records/LayoutLimits.h"
#include "layout/api/records/LoadSum.h"
#include "layout/geometry/CReceiverAreas.h"

#include <algorithm>

namespace {

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;
using Kind = SLayoutFinding::Kind;

QString checkedPlace(const QRect &rect)
{
    return QStringLiteral("(%1, %2)").arg(rect.x()).arg(rect.y());
}

/// The findings of one port; texts begin with the port's number.
class CPortFindings final
{
public:
    CPortFindings(int port, QVector<SLayoutFinding> &findings)
        : m_port(port)
        , m_findings(findings)
    {
    }
    void add(Kind kind, const QString &text, const QUuid &cabinet = {})
    {
        m_findings.append({kind, m_port, cabinet, CLayoutCheck::tr("Port %1: %2").arg(m_port + 1).arg(text)});
    }

private:
    int m_port;
    QVector<SLayoutFinding> &m_findings;
};

/// Returns how many pixels the processor is charged for the port.
qint64 checkLoad(const Port &port, int cabinetCount, const SLayoutLimits &limits, CPortFindings &findings)
{
    if (limits.portCount > 0 && port.index >= limits.portCount && cabinetCount > 0)
        findings.add(SLayoutFinding::PortBeyondCount,
                     CLayoutCheck::tr("the processor uses only %1 output ports.").arg(limits.portCount));
    if (cabinetCount > LayoutLimits::CabinetsPerPort)
        findings.add(SLayoutFinding::TooManyCabinets, CLayoutCheck::tr("%1 cabinets, the most is %2.")
                                                          .arg(cabinetCount)
                                                          .arg(LayoutLimits::CabinetsPerPort));
    const SPortLoad load = limits.portLoad ? limits.portLoad(port) : SPortLoad();
    const bool ofPort = load.limit != SPortLoad::ProcessorPixels;
    if (load.percent > 100 && (ofPort || load.pixels > load.capacity))
        findings.add(SLayoutFinding::PortOverCapacity,
                     (ofPort ? CLayoutCheck::tr("overloaded, %1 % of what the port can carry. %2.")
                             : CLayoutCheck::tr("overloaded, %1 %. %2."))
                         .arg(load.percent)
                         .arg(LoadSum::sentences(load).join(QStringLiteral(". "))));
    return port.redundancy == Port::Redundant ? 0 : load.pixels;
}

void checkPlacement(const QVector<Cabinet> &cabinets, const QRect &canvas, CPortFindings &findings)
{
    for (const Cabinet &cabinet : cabinets) {
        const QString where = checkedPlace(cabinet.rect);
        const QSize size = cabinet.rect.size();
        if (!LayoutLimits::isCabinetSize(size))
            findings.add(SLayoutFinding::BadSize,
                         CLayoutCheck::tr("the cabinet at %1 is %2x%3 pixels, each side must be %4 to %5.")
                             .arg(where)
                             .arg(size.width())
                             .arg(size.height())
                             .arg(LayoutLimits::SmallestSide)
                             .arg(LayoutLimits::LargestSide),
                         cabinet.uuid);
        if (!canvas.isEmpty() && !canvas.contains(cabinet.rect))
            findings.add(SLayoutFinding::OutsideCanvas,
                         CLayoutCheck::tr("the cabinet at %1 lies outside the canvas of %2x%3 pixels.")
                             .arg(where)
                             .arg(canvas.width())
                             .arg(canvas.height()),
                         cabinet.uuid);
    }
}

/// The fault in receiver areas within a size, as the end of a sentence; empty: none.
QString areaProblem(const QVector<QRect> &areas, const QSize &size)
{
    const QRect whole({0, 0}, size);
    for (const QRect &area : areas) {
        if (area.isEmpty())
            return CLayoutCheck::tr("is empty");
        if (!whole.contains(area))
            return CLayoutCheck::tr("lies outside the cabinet");
    }
    return COverlapSweep::pairs(areas).isEmpty() ? QString() : CLayoutCheck::tr("overlaps another one");
}

/// The same for the areas of a cabinet.
QString receiverProblem(const Cabinet &cabinet)
{
    const QString problem = areaProblem(cabinet.rects, cabinet.rect.size());
    if (!problem.isEmpty() || !cabinet.original)
        return problem;
    const QString before = areaProblem(cabinet.original->rects, cabinet.original->size);
    if (!before.isEmpty())
        return CLayoutCheck::tr("%1 in the original size").arg(before);
    Cabinet resized = cabinet;
    resized.rects = cabinet.original->rects;
    resized.blanks = cabinet.original->blanks;
    resized.original.reset();
    CReceiverAreas::resize(resized, cabinet.original->size, cabinet.rect.size());
    return resized.rects == cabinet.rects ? QString()
                                          : CLayoutCheck::tr("is not the original one scaled to this size");
}

void checkReceivers(const QVector<Cabinet> &cabinets, CPortFindings &findings)
{
    for (const Cabinet &cabinet : cabinets) {
        const QString problem = receiverProblem(cabinet);
        if (!problem.isEmpty())
            findings.add(SLayoutFinding::BadReceivers,
                         CLayoutCheck::tr("a receiver area of the cabinet at %1 %2.")
                             .arg(checkedPlace(cabinet.rect), problem),
                         cabinet.uuid);
    }
}

/// Each rank from 0 on must occur once in the chain.
void checkChain(QVector<Cabinet> cabinets, CPortFindings &findings)
{
    std::stable_sort(cabinets.begin(), cabinets.end(),
                     [](const Cabinet &a, const Cabinet &b) { return a.rank < b.rank; });
    int previous = -1;
    for (const Cabinet &cabinet : qAsConst(cabinets)) {
        const QString where = checkedPlace(cabinet.rect);
        if (cabinet.rank < 0)
            findings.add(SLayoutFinding::Unwired,
                         CLayoutCheck::tr("the cabinet at %1 is not wired.").arg(where), cabinet.uuid);
        else if (cabinet.rank == previous)
            findings.add(SLayoutFinding::RankTwice,
                         CLayoutCheck::tr("the cabinet at %1 is not the only one at place %2 of the wiring.")
                             .arg(where)
                             .arg(cabinet.rank + 1),
                         cabinet.uuid);
        else if (cabinet.rank > previous + 1)
            findings.add(SLayoutFinding::RankGap,
                         CLayoutCheck::tr("the wiring skips from place %1 to place %2, the cabinet at %3.")
                             .arg(previous + 1)
                             .arg(cabinet.rank + 1)
                             .arg(where),
                         cabinet.uuid);
        previous = std::max(previous, cabinet.rank);
    }
}

void checkOverlaps(const QVector<Cabinet> &cabinets, QVector<SLayoutFinding> &findings)
{
    QVector<QRect> rects;
    rects.reserve(cabinets.size());
    for (const Cabinet &cabinet : cabinets)
        rects.append(cabinet.rect);
    for (const COverlapSweep::SPair &pair : COverlapSweep::pairs(rects)) {
        const Cabinet &cabinet = cabinets.at(pair.later);
        const Cabinet &other = cabinets.at(pair.earlier);
        const bool same = cabinet.rect.topLeft() == other.rect.topLeft();
        const QString text =
            same ? CLayoutCheck::tr("the cabinet at %1 has the same position as a cabinet of port %2.")
                       .arg(checkedPlace(cabinet.rect))
                       .arg(other.port + 1)
                 : CLayoutCheck::tr("the cabinet at %1 overlaps the cabinet at %2 of port %3.")
                       .arg(checkedPlace(cabinet.rect), checkedPlace(other.rect))
                       .arg(other.port + 1);
        CPortFindings(cabinet.port, findings)
            .add(same ? SLayoutFinding::SamePosition : SLayoutFinding::Overlap, text, cabinet.uuid);
    }
}

void checkProcessorLoad(qint64 pixels, qint64 limit, QVector<SLayoutFinding> &findings)
{
    if (limit > 0 && pixels > limit)
        findings.append(
            {SLayoutFinding::ProcessorOverCapacity,
             -1,
             {},
             CLayoutCheck::tr("Processor: overloaded, %1 pixels, the most is %2.").arg(pixels).arg(limit)});
}

} // namespace

QVector<SLayoutFinding> CLayoutCheck::findings(const LayoutData &data, const SLayoutLimits &limits)
{
    QVector<SLayoutFinding> found;
    QVector<Cabinet> all;
    all.reserve(data.layout.cabinetCount());
    qint64 pixels = 0;
    for (const Port &port : data.layout.ports) {
        QVector<Cabinet> cabinets = port.getAllCabinets();
        CPortFindings findings(port.index, found);
        pixels += checkLoad(port, cabinets.size(), limits, findings);
        checkPlacement(cabinets, QRect({0, 0}, data.canvas), findings);
        checkReceivers(cabinets, findings);
        checkChain(cabinets, findings);
        for (Cabinet &cabinet : cabinets)
            cabinet.port = port.index;
        all += cabinets;
    }
    checkProcessorLoad(pixels, limits.processorPixels, found);
    checkOverlaps(all, found);
    std::stable_sort(found.begin(), found.end(), [](const SLayoutFinding &a, const SLayoutFinding &b) {
        return a.port != b.port ? a.port < b.port : a.kind < b.kind;
    });
    return found;
}
