// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/ProcessorTree.h"

#include <tuple>

namespace {

auto tied(const ProcessorTree::ProcessorNode &n)
{
    return std::tie(n.uuid, n.name, n.index, n.groupIndex, n.colorDepth, n.brightness, n.model,
                    n.serialNumber, n.address, n.online, n.fiberTransceiver);
}

} // namespace

QString ProcessorTree::ProcessorNode::addressText() const
{
    return QStringLiteral("%1.%2.%3.%4")
        .arg(address >> 24)
        .arg((address >> 16) & 0xFFu)
        .arg((address >> 8) & 0xFFu)
        .arg(address & 0xFFu);
}

QString ProcessorTree::ProcessorNode::displayText() const
{
    return address == 0 ? name : QStringLiteral("%1(%2)").arg(name, addressText());
}

bool operator==(const ProcessorTree::ProcessorNode &a, const ProcessorTree::ProcessorNode &b)
{
    return tied(a) == tied(b);
}
