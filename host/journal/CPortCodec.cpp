// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CPortCodec.h"

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"
#include "host/journal/CCabinetCodec.h"
#include "host/journal/CDigest.h"
#include "host/journal/CommonEnds.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/LayoutLimits.h"

namespace {

using Port = CPortCodec::Port;
using Group = Port::CabinetGroup;
using Groups = CPortCodec::Groups;

constexpr int SmallestGroup = 16; // bytes of its identity; more follows

bool shares(const Groups &a, const Groups &b)
{
    return a.constData() == b.constData() && a.size() == b.size();
}

/// What of a port differs from another version.
enum Part : int {
    Color = 1,
    Locked = 2, ///< is the other one
    Pair = 4,
    Mirror = 8,
    Cabinets = 16,
    AllParts = 31
};

void writeGroup(CByteWriter &forward, CByteWriter &back, const Group &before, const Group &after)
{
    const bool renamed = before.name != after.name;
    forward.byte(renamed ? 1 : 0);
    back.byte(renamed ? 1 : 0);
    if (renamed) {
        forward.text(after.name);
        back.text(before.name);
    }
    CCabinetCodec::write(forward, back, before.cabinets, after.cabinets);
    CPortCodec::writeGroups(forward, back, before.groups, after.groups);
}

/// Those between the ends.
void writeNew(CByteWriter &out, const Groups &groups, const SCommonEnds &ends)
{
    CByteWriter unused;
    for (int i = ends.front; i < groups.size() - ends.back; ++i) {
        out.uuid(groups.at(i).uuid);
        writeGroup(out, unused, {}, groups.at(i));
    }
}

bool applyLevel(CByteReader &in, Groups &groups, int level);

bool applyGroup(CByteReader &in, Group &group, int level)
{
    if (in.byte())
        group.name = in.name();
    return CCabinetCodec::apply(in, group.cabinets) && applyLevel(in, group.groups, level + 1);
}

bool applyLevel(CByteReader &in, Groups &groups, int level)
{
    if (!in.byte())
        return in.isValid(); // nothing changed here
    int inserted = 0;
    const SCommonEnds ends = SCommonEnds::read(in, groups.size(), SmallestGroup, inserted);
    if (!in.isValid() || level > LayoutLimits::GroupLevels || inserted > LayoutLimits::GroupsPerPort)
        return in.fail();
    const int removed = groups.size() - ends.front - ends.back;
    if (removed > 0)
        groups.remove(ends.front, removed);
    for (Group &group : groups) {
        if (!applyGroup(in, group, level))
            return false;
    }
    if (inserted == 0)
        return in.isValid();
    Groups all = groups.mid(0, ends.front);
    for (int i = 0; i < inserted; ++i) {
        Group group;
        group.uuid = in.uuid();
        if (!applyGroup(in, group, level))
            return false;
        all << group;
    }
    all += groups.mid(ends.front);
    groups = all;
    return in.isValid() && groups.size() <= 2 * LayoutLimits::GroupsPerPort;
}

void addGroups(CDigest &digest, const Groups &groups)
{
    digest.add(quint64(groups.size()));
    for (const Group &group : groups) {
        digest.add(group.uuid.toRfc4122());
        digest.add(group.name.toUtf8());
        CCabinetCodec::digest(digest, group.cabinets);
        addGroups(digest, group.groups);
    }
}

int differenceOf(const Port &a, const Port &b)
{
    const bool samePair = a.redundancy == b.redundancy && a.redundancyPort == b.redundancyPort &&
                          a.redundancyProcessor == b.redundancyProcessor;
    return (a.color != b.color ? Color : 0) | (a.locked != b.locked ? Locked : 0) | (samePair ? 0 : Pair) |
           (a.mirrored != b.mirrored ? Mirror : 0) | (shares(a.groups, b.groups) ? 0 : Cabinets);
}

} // namespace

void CPortCodec::writeGroups(CByteWriter &forward, CByteWriter &back, const Groups &before,
                             const Groups &after)
{
    const bool same = shares(before, after);
    forward.byte(same ? 0 : 1);
    back.byte(same ? 0 : 1);
    if (same)
        return;
    const SCommonEnds ends =
        SCommonEnds::of(before, after, [](const Group &a, const Group &b) { return a.uuid == b.uuid; });
    ends.write(forward, after.size());
    ends.write(back, before.size());
    for (int i = 0; i < ends.front; ++i)
        writeGroup(forward, back, before.at(i), after.at(i));
    for (int i = ends.back; i > 0; --i)
        writeGroup(forward, back, before.at(before.size() - i), after.at(after.size() - i));
    writeNew(forward, after, ends);
    writeNew(back, before, ends);
}

bool CPortCodec::applyGroups(CByteReader &in, Groups &groups)
{
    return applyLevel(in, groups, 0);
}

void CPortCodec::writePort(CByteWriter &out, const Port &before, const Port &after)
{
    const int parts = differenceOf(before, after);
    CByteWriter unused;
    out.count(parts);
    if (parts & Color)
        out.color(after.color);
    if (parts & Pair) {
        out.byte(after.redundancy);
        out.number(after.redundancyPort);
        out.uuid(after.redundancyProcessor);
    }
    if (parts & Mirror)
        CCabinetCodec::write(out, unused, before.mirrored, after.mirrored);
    if (parts & Cabinets)
        writeGroups(out, unused, before.groups, after.groups);
}

bool CPortCodec::applyPort(CByteReader &in, Port &port)
{
    const int parts = in.upTo(AllParts);
    if (parts & Color)
        port.color = in.color();
    if (parts & Locked)
        port.locked = !port.locked;
    if (parts & Pair) {
        const int redundancy = in.byte();
        if (redundancy > Port::Redundant)
            return in.fail();
        port.redundancy = Port::Redundancy(redundancy);
        port.redundancyPort = in.number(-1, LayoutLimits::LargestPortIndex);
        port.redundancyProcessor = in.uuid();
    }
    if ((parts & Mirror) && !CCabinetCodec::apply(in, port.mirrored))
        return false;
    return in.isValid() && (!(parts & Cabinets) || applyGroups(in, port.groups));
}

quint64 CPortCodec::digest(const Groups &groups)
{
    CDigest digest;
    addGroups(digest, groups);
    return digest.value();
}

bool CPortCodec::samePort(const Port &a, const Port &b)
{
    return a.index == b.index && (differenceOf(a, b) & ~Cabinets) == 0 &&
           (shares(a.groups, b.groups) || digest(a.groups) == digest(b.groups));
}
