// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CPortChange.h"

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"
#include "host/journal/CPortCodec.h"

SPortDelta CPortChange::between(int port, const Groups &before, const Groups &after)
{
    CByteWriter forward;
    CByteWriter back;
    CPortCodec::writeGroups(forward, back, before, after);
    return {port, forward.bytes(), back.bytes(), CPortCodec::digest(before), CPortCodec::digest(after)};
}

std::optional<CPortChange::Groups> CPortChange::groups(ESide side, const Groups &other) const
{
    if (digestOf(other) != digest(otherOf(side)))
        return std::nullopt;
    Groups groups = other;
    const int count = m_deltas.size();
    for (int i = 0; i < count; ++i) {
        const SPortDelta &delta = m_deltas.at(side == After ? i : count - 1 - i);
        CByteReader in(side == After ? delta.forward : delta.back);
        if (!CPortCodec::applyGroups(in, groups) || !in.atEnd())
            return std::nullopt;
    }
    return digestOf(groups) == digest(side) ? std::optional(groups) : std::nullopt;
}

quint64 CPortChange::digest(ESide side) const
{
    return side == Before ? m_deltas.first().before : m_deltas.last().after;
}

quint64 CPortChange::digestOf(const Groups &groups) const
{
    return CPortCodec::digest(groups);
}

qint64 CPortChange::bytes() const
{
    qint64 bytes = sizeof(*this);
    for (const SPortDelta &delta : m_deltas)
        bytes += delta.bytes();
    return bytes;
}
