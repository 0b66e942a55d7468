// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/SJournalStep.h"

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"
#include "layout/api/records/LayoutLimits.h"

#include <limits>

namespace {

constexpr int Highest = std::numeric_limits<int>::max();
constexpr int SmallestDelta = 20; // bytes
constexpr int SmallestMove = 10;

} // namespace

qint64 SPortDelta::bytes() const
{
    constexpr qint64 BytesOfLists = 2 * 40;
    return qint64(sizeof(*this)) + forward.capacity() + back.capacity() + BytesOfLists;
}

void SJournalStep::write(CByteWriter &out, const SPortDelta &delta)
{
    out.count(delta.port);
    out.block(delta.forward);
    out.block(delta.back);
    out.fixed(delta.before);
    out.fixed(delta.after);
    out.count(0); // not used any more
}

SPortDelta SJournalStep::readDelta(CByteReader &in)
{
    SPortDelta delta;
    delta.port = in.upTo(LayoutLimits::LargestPortIndex);
    delta.forward = in.block();
    delta.back = in.block();
    delta.before = in.fixed();
    delta.after = in.fixed();
    (void)in.upTo(Highest);
    return delta;
}

void SJournalStep::write(CByteWriter &out) const
{
    out.byte(kind);
    out.count(index);
    out.number(saved);
    out.count(dropped);
    out.text(text);
    out.count(moves.size());
    for (const SMove &move : moves) {
        out.count(move.port);
        out.block(move.delta);
        out.fixed(move.after);
    }
    out.count(deltas.size());
    for (const SPortDelta &delta : deltas)
        write(out, delta);
}

SJournalStep SJournalStep::read(CByteReader &in)
{
    SJournalStep step;
    const int kind = in.byte();
    if (kind > SEditRecord::Cleared)
        in.fail();
    step.kind = in.isValid() ? SEditRecord::Kind(kind) : SEditRecord::Cleared;
    step.index = in.upTo(Highest);
    step.saved = in.number(-1, Highest);
    step.dropped = in.upTo(Highest);
    step.text = in.text();
    const int moves = in.count(SmallestMove);
    for (int i = 0; i < moves && in.isValid(); ++i) {
        SMove move;
        move.port = in.upTo(LayoutLimits::LargestPortIndex);
        move.delta = in.block();
        move.after = in.fixed();
        step.moves << move;
    }
    const int deltas = in.count(SmallestDelta);
    for (int i = 0; i < deltas && in.isValid(); ++i)
        step.deltas << readDelta(in);
    return step;
}
