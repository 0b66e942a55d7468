// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/PortRedundancyNote.h"

#include <QCoreApplication>

namespace {

QString noteText(const char *text)
{
    return QCoreApplication::translate("CPort", text);
}

QString textOnSameProcessor(int primary, bool matches)
{
    return (matches ? noteText(QT_TRANSLATE_NOOP("CPort", "Redundancy for output port%1"))
                    : noteText(QT_TRANSLATE_NOOP("CPort",
                                                 "Redundancy for output port%1, please reset the mapping.")))
        .arg(primary + 1);
}

QString textAcrossProcessors(const ProcessorTree::ProcessorNode &node, int primary, bool matches)
{
    const QString number = node.index < 0 ? QString() : QString::number(node.index + 1); // offline: none
    if (matches)
        return noteText(QT_TRANSLATE_NOOP("CPort", "Redundancy for processor%1(%2)")).arg(number, node.name);
    return noteText(QT_TRANSLATE_NOOP(
                        "CPort", "Redundancy for processor%1(%2) output port%3, please reset the mapping."))
        .arg(number, node.name, QString::number(primary + 1));
}

} // namespace

SPortRedundancyNote SPortRedundancyNote::of(const CabinetLayout &layout, int port,
                                            const PortPairs::LayoutOf &layoutOf, const NodeOf &nodeOf)
{
    const PortPairs::Port *own = layout.port(port);
    if (!own || own->redundancy == PortPairs::Port::NoRedundancy)
        return {};
    const std::optional<PortPairs::Port> other = PortPairs::partner(layout, *own, layoutOf);
    if (!other)
        return {noteText(QT_TRANSLATE_NOOP("CPort", "Please reset the mapping.")), true};
    if (own->redundancy == PortPairs::Port::Primary)
        return {};
    const bool matches = PortPairs::cabinetsMatch(*own, *other);
    const QUuid processor = PortPairs::partnerKey(layout, *own).processor;
    return {processor == layout.processor ? textOnSameProcessor(other->index, matches)
                                          : textAcrossProcessors(nodeOf(processor), other->index, matches),
            !matches};
}
