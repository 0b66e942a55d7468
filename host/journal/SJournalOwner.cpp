// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/SJournalOwner.h"

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"

#include <tuple>

void SJournalOwner::write(CByteWriter &out) const
{
    out.uuid(processor);
    out.byte(project ? 1 : 0);
    out.text(name);
    out.text(file);
    out.byte(stamp.exists ? 1 : 0);
    out.fixed(stamp.device);
    out.fixed(stamp.node);
    out.number(stamp.size);
    out.number(stamp.seconds);
    out.number(stamp.nanoseconds);
    out.block(fileDigest);
    out.text(version);
    if (revision)
        out.fixed(*revision);
}

SJournalOwner SJournalOwner::read(CByteReader &in)
{
    SJournalOwner owner;
    owner.processor = in.uuid();
    owner.project = in.byte() != 0;
    owner.name = in.text();
    owner.file = in.text();
    owner.stamp.exists = in.byte() != 0;
    in.fixed(); // the device's number, which may be another one now
    owner.stamp.node = in.fixed();
    owner.stamp.size = in.number();
    owner.stamp.seconds = in.number();
    owner.stamp.nanoseconds = in.number();
    owner.fileDigest = in.block();
    owner.version = in.text();
    if (!in.atEnd())
        owner.revision = in.fixed();
    return owner;
}

bool operator==(const SJournalOwner &a, const SJournalOwner &b)
{
    const auto values = [](const SJournalOwner &owner) {
        return std::tie(owner.processor, owner.project, owner.name, owner.file, owner.stamp, owner.fileDigest,
                        owner.version, owner.revision);
    };
    return values(a) == values(b);
}
