// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/figures/CPlanBuilder.h"

#include "layout/printing/figures/CMillimetreAxis.h"
#include "layout/printing/figures/CableRoutes.h"
#include "layout/printing/figures/LayoutVersion.h"

#include <QRegularExpression>

#include <algorithm>
#include <tuple>

namespace {

using Cabinet = CabinetLayout::CabinetPort::Cabinet;

/// By place in the chain, those without wiring last.
bool chainBefore(const Cabinet &a, const Cabinet &b)
{
    const auto key = [](const Cabinet &c) {
        return std::make_tuple(c.rank < 0, c.rank, c.rect.y(), c.rect.x(), c.uuid);
    };
    return key(a) < key(b);
}

/// A, B, … Z, AA, AB …
QString letterOf(int index)
{
    const QString last(QLatin1Char(char('A' + index % 26)));
    return index < 26 ? last : letterOf(index / 26 - 1) + last;
}

void add(SPlanTotals &sum, const SPlanTotals &part)
{
    sum.cabinets += part.cabinets;
    sum.ports += part.ports;
    sum.pixels += part.pixels;
    sum.squareMetres += part.squareMetres;
    sum.kilograms += part.kilograms;
    sum.wattsMaximum += part.wattsMaximum;
    sum.wattsAverage += part.wattsAverage;
    sum.weightKnown = sum.weightKnown && part.weightKnown;
    sum.maximumKnown = sum.maximumKnown && part.maximumKnown;
    sum.averageKnown = sum.averageKnown && part.averageKnown;
}

SPlanTotals totalsOf(const SPlanCabinet &cabinet, const SPlanType &type)
{
    SPlanTotals totals;
    totals.cabinets = 1;
    totals.pixels = qint64(cabinet.pixels.width()) * cabinet.pixels.height();
    totals.squareMetres = type.millimetres.width() * type.millimetres.height() / 1e6;
    totals.kilograms = type.kilograms;
    totals.wattsMaximum = type.wattsMaximum;
    totals.wattsAverage = type.wattsAverage;
    totals.weightKnown = type.kilograms > 0;
    totals.maximumKnown = type.wattsMaximum > 0;
    totals.averageKnown = type.wattsAverage > 0;
    return totals;
}

QString shownName(const ProcessorTree::ProcessorNode &node, const QString &address)
{
    return node.address != 0 || address.isEmpty() ? node.displayText()
                                                  : QStringLiteral("%1(%2)").arg(node.name, address);
}

/// "Main stage B" of "Main stage B (192.168.10.32)"; other brackets belong to the name.
QString withoutAddress(const QString &shown)
{
    static const QRegularExpression address(QStringLiteral("\\s*\\([0-9A-Fa-f]*[.:][0-9A-Fa-f.:]*\\)$"));
    return QString(shown).remove(address);
}

} // namespace

CPlanBuilder::CPlanBuilder(const SPrintInput &input, const SPrintJob &job)
    : m_input(input)
    , m_job(job)
{
}

SPrintPlan CPlanBuilder::build()
{
    m_plan.config = m_job.whole;
    for (auto type = m_input.types.cbegin(); type != m_input.types.cend(); ++type)
        m_plan.typeNames.insert(type.key(), type->name);
    for (const SPrintedProcessor &source : m_input.processors) {
        const SPlanProcessor made = processor(source);
        if (made.cabinets.isEmpty()) {
            m_plan.empty << made.name;
            continue;
        }
        m_plan.processors << made;
        add(m_plan.totals, made.totals);
    }
    return std::move(m_plan);
}

SPlanProcessor CPlanBuilder::processor(const SPrintedProcessor &source)
{
    SPlanProcessor made;
    made.source = source;
    made.config = m_job.of(source.layout.processor);
    made.name = shownName(source.node, made.config.address);
    made.farEnd = made.config.farEnd.isEmpty() && !source.redundancy.isNull()
                      ? nameOf(source.redundancy, true)
                      : made.config.farEnd;
    if (!source.primary.isNull())
        made.primary = nameOf(source.primary, true);
    made.pixels = source.layout.boundingRect();
    const int highest = source.layout.ports.isEmpty() ? 0 : source.layout.ports.last().index + 1;
    for (int index = 0; index < std::max(source.portCount, highest); ++index)
        made.ports << port(source, index, made);
    place(made);
    for (SPlanPort &laid : made.ports)
        CableRoutes::lay(laid, made, made.config.cables);
    sum(made);
    made.version = LayoutVersion::of(made);
    return made;
}

SPlanPort CPlanBuilder::port(const SPrintedProcessor &source, int index, SPlanProcessor &into)
{
    SPlanPort made;
    made.index = index;
    const SPortLoad load = source.loads.value(index);
    made.charged = load.pixels;
    made.capacity = load.capacity;
    made.load = load.percent;
    made.added = made.charged;
    const Port *record = source.layout.port(index);
    if (!record)
        return made;
    made.color = record->color;
    made.locked = record->locked;
    addCabinets(record->getAllCabinets(), made, into);
    giveRedundancy(made, *record, into);
    return made;
}

void CPlanBuilder::addCabinets(QVector<Cabinet> cabinets, SPlanPort &port, SPlanProcessor &into)
{
    std::sort(cabinets.begin(), cabinets.end(), chainBefore);
    for (const Cabinet &cabinet : qAsConst(cabinets)) {
        SPlanCabinet made;
        made.uuid = cabinet.uuid;
        made.port = port.index;
        made.type = typeOf(cabinet, into.config.pixelPitch);
        made.typeKey = cabinet.type;
        made.receivers = cabinet.rects;
        made.pixels = cabinet.rect;
        if (cabinet.rank >= 0)
            made.number = port.chain.size() + 1;
        (cabinet.rank >= 0 ? port.chain : port.unwired) << into.cabinets.size();
        into.cabinets << made;
    }
}

void CPlanBuilder::giveRedundancy(SPlanPort &port, const Port &record, const SPlanProcessor &processor) const
{
    port.redundant = record.redundancy == Port::Redundant;
    if (record.redundancy != Port::NoRedundancy) {
        const QUuid &other = record.redundancyProcessor;
        const bool here = other.isNull() || other == processor.source.layout.processor;
        if (port.redundant && here)
            port.added = 0; // the primary counts for both
        port.redundancyPort = record.redundancyPort;
        // The backup that is not part of the job and not known is named by the settings.
        const QString &given = processor.config.farEnd;
        const bool isGiven =
            record.redundancy == Port::Primary && !here && !given.isEmpty() && !isKnown(other);
        port.redundancyName = here      ? processor.source.node.name
                              : isGiven ? withoutAddress(given)
                                        : nameOf(other, false);
        port.redundancyShown = here ? processor.name : isGiven ? given : nameOf(other, true);
        port.redundancyKey = here ? QString() : other.toString();
        port.looped = record.redundancy == Port::Primary && port.hasCabinets();
    } else if (!processor.farEnd.isEmpty() && !port.chain.isEmpty()) {
        port.redundancyPort = port.index;
        const QString &given = processor.config.farEnd;
        port.redundancyShown = processor.farEnd;
        port.redundancyName =
            given.isEmpty() ? nameOf(processor.source.redundancy, false) : withoutAddress(given);
        port.redundancyKey = port.redundancyName;
        port.looped = true;
    }
}

ProcessorTree::ProcessorNode CPlanBuilder::nodeOf(const QUuid &processor) const
{
    for (const SPrintedProcessor &printed : m_input.processors) {
        if (printed.layout.processor == processor)
            return printed.node;
    }
    return m_input.others.value(processor);
}

bool CPlanBuilder::isKnown(const QUuid &processor) const
{
    return !nodeOf(processor).name.isEmpty();
}

QString CPlanBuilder::nameOf(const QUuid &processor, bool shown) const
{
    const ProcessorTree::ProcessorNode node = nodeOf(processor);
    if (node.name.isEmpty())
        return tr("another processor");
    return shown ? shownName(node, m_job.of(processor).address) : node.name;
}

int CPlanBuilder::typeOf(const Cabinet &cabinet, double pitch)
{
    const QSize size = cabinet.rect.size();
    const QPair<int, int> sides(size.width(), size.height());
    SPlanType type;
    type.alike = cabinet.type.isNull() && m_input.alike.contains(sides);
    const SPrintInput::RcvTypeInfo info =
        type.alike ? m_input.alike.value(sides) : m_input.types.value(cabinet.type);
    type.presumed = info.millimetres.isEmpty() || info.width <= 0 || info.height <= 0;
    // Of a presumed type each pitch makes another one.
    const auto key = qMakePair(qMakePair(cabinet.type, sides), type.presumed ? pitch : 0.0);
    const auto known = m_types.constFind(key);
    if (known != m_types.constEnd())
        return *known;
    type.letter = letterOf(m_plan.types.size());
    type.name = type.alike              ? tr("like %1").arg(info.name)
                : cabinet.type.isNull() ? tr("custom size")
                : info.name.isEmpty()   ? tr("unknown type")
                                        : info.name;
    type.pixels = size;
    // A resized cabinet keeps the pixel pitch of its type.
    type.millimetres = type.presumed ? QSizeF(size) * pitch
                                     : QSizeF(size.width() * info.millimetres.width() / info.width,
                                              size.height() * info.millimetres.height() / info.height);
    type.kilograms = info.kilograms;
    type.wattsMaximum = info.wattsMaximum;
    type.wattsAverage = info.wattsAverage;
    m_types.insert(key, m_plan.types.size());
    m_plan.types << type;
    return m_plan.types.size() - 1;
}

void CPlanBuilder::place(SPlanProcessor &processor) const
{
    QVector<CMillimetreAxis::SSpan> across;
    QVector<CMillimetreAxis::SSpan> down;
    for (const SPlanCabinet &cabinet : qAsConst(processor.cabinets)) {
        const QSizeF size = m_plan.types.at(cabinet.type).millimetres;
        const QRect &rect = cabinet.pixels;
        across.append({rect.left(), rect.left() + rect.width(), size.width()});
        down.append({rect.top(), rect.top() + rect.height(), size.height()});
    }
    const CMillimetreAxis x(across);
    const CMillimetreAxis y(down);
    for (SPlanCabinet &cabinet : processor.cabinets) {
        const QRect &rect = cabinet.pixels;
        cabinet.millimetres =
            QRectF(QPointF(x.at(rect.left()), y.at(rect.top())),
                   QPointF(x.at(rect.left() + rect.width()), y.at(rect.top() + rect.height())));
        cabinet.column = x.ordinal(rect.left());
        cabinet.row = y.ordinal(rect.top());
    }
    processor.millimetres = {x.length(), y.length()};
    processor.columns = x.count();
    processor.rows = y.count();
}

void CPlanBuilder::sum(SPlanProcessor &processor) const
{
    for (SPlanPort &port : processor.ports) {
        for (int index : port.chain + port.unwired) {
            const SPlanCabinet &cabinet = processor.cabinets.at(index);
            add(port.totals, totalsOf(cabinet, m_plan.types.at(cabinet.type)));
        }
        port.totals.ports = port.isUsed() ? 1 : 0;
        add(processor.totals, port.totals);
    }
}
