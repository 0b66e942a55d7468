// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CCabinetCodec.h"

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"
#include "host/journal/CDigest.h"
#include "host/journal/CommonEnds.h"
#include "layout/api/records/LayoutLimits.h"
#include "platform/json/CStrictObject.h"

#include <cstring>

namespace {

using Cabinet = CCabinetCodec::Cabinet;
using Cabinets = CCabinetCodec::Cabinets;
using OriginalAreas = CabinetLayout::CabinetPort::SOriginalAreas;

constexpr int Farthest = CStrictObject::LargestPixel; // as in files
constexpr int HighestRank = 1 << 20;                  // also of receiver numbers
constexpr int SmallestCabinet = 17; // bytes of one that differs from the one before only by its identity

/// What differs between two versions of a cabinet.
enum Field : int {
    Port = 1,
    Left = 2,
    Top = 4,
    Right = 8,
    Bottom = 16,
    Rank = 32,
    Type = 64,
    Direction = 128, ///< is the other one
    Custom = 256,    ///< is the other one
    Rects = 512,
    Group = 1024,
    Receivers = 2048,
    Blanks = 4096,
    Original = 8192,
    AllFields = 16383
};

bool sameOriginal(const Cabinet &a, const Cabinet &b)
{
    return a.original == b.original ||
           (a.original && b.original && a.original->size == b.original->size &&
            a.original->rects == b.original->rects && a.original->blanks == b.original->blanks);
}

int difference(const Cabinet &a, const Cabinet &b)
{
    return (a.port != b.port ? Port : 0) | (a.rect.left() != b.rect.left() ? Left : 0) |
           (a.rect.top() != b.rect.top() ? Top : 0) | (a.rect.right() != b.rect.right() ? Right : 0) |
           (a.rect.bottom() != b.rect.bottom() ? Bottom : 0) | (a.rank != b.rank ? Rank : 0) |
           (a.type != b.type ? Type : 0) | (a.directionFixed != b.directionFixed ? Direction : 0) |
           (a.custom != b.custom ? Custom : 0) | (a.rects != b.rects ? Rects : 0) |
           (a.group != b.group ? Group : 0) | (a.receivers != b.receivers ? Receivers : 0) |
           (a.blanks != b.blanks ? Blanks : 0) | (sameOriginal(a, b) ? 0 : Original);
}

void writeRects(CByteWriter &out, const QVector<QRect> &rects)
{
    out.count(rects.size());
    for (const QRect &rect : rects) {
        out.point(rect.topLeft());
        out.point(rect.bottomRight());
    }
}

QVector<QRect> readRects(CByteReader &in)
{
    const int count = in.count(4);
    if (count > LayoutLimits::ReceiversPerCabinet)
        in.fail();
    QVector<QRect> rects;
    for (int i = 0; i < count && in.isValid(); ++i) {
        const QPoint topLeft = in.point(Farthest);
        rects << QRect(topLeft, in.point(Farthest));
        if (rects.last().width() < 0 || rects.last().height() < 0)
            in.fail(); // no file could hold it
    }
    return rects;
}

void writeOriginal(CByteWriter &out, const Cabinet &cabinet)
{
    out.byte(cabinet.original ? 1 : 0);
    if (!cabinet.original)
        return;
    out.extent(cabinet.original->size);
    writeRects(out, cabinet.original->rects);
    writeRects(out, cabinet.original->blanks);
}

std::shared_ptr<const OriginalAreas> readOriginal(CByteReader &in)
{
    if (!in.byte())
        return nullptr;
    OriginalAreas areas;
    areas.size = in.extent(Farthest);
    areas.rects = readRects(in);
    areas.blanks = readRects(in);
    if (areas.size.isEmpty())
        in.fail();
    return std::make_shared<const OriginalAreas>(areas);
}

void writeReceivers(CByteWriter &out, const QVector<int> &receivers)
{
    out.count(receivers.size());
    for (const int receiver : receivers)
        out.number(receiver);
}

QVector<int> readReceivers(CByteReader &in)
{
    const int count = in.count(1);
    if (count > LayoutLimits::ReceiversPerCabinet)
        in.fail();
    QVector<int> receivers;
    for (int i = 0; i < count && in.isValid(); ++i)
        receivers << in.number(-1, HighestRank);
    return receivers;
}

/// One change, for a cabinet or for several in a row: numbers are differences, everything else the new value.
struct SChange
{
    int fields = 0;
    int port = 0, left = 0, top = 0, right = 0, bottom = 0, rank = 0;
    const Cabinet *values = nullptr; ///< holds the other new values

    /// @p fields is the difference of @p a and @p b.
    static SChange between(const Cabinet &a, const Cabinet &b, int fields)
    {
        return {fields,
                b.port - a.port,
                b.rect.left() - a.rect.left(),
                b.rect.top() - a.rect.top(),
                b.rect.right() - a.rect.right(),
                b.rect.bottom() - a.rect.bottom(),
                b.rank - a.rank,
                &b};
    }
    bool operator==(const SChange &other) const
    {
        const auto differ = [&](int field, const auto &value, const auto &otherValue) {
            return (fields & field) && value != otherValue;
        };
        return fields == other.fields && port == other.port && left == other.left && top == other.top &&
               right == other.right && bottom == other.bottom && rank == other.rank &&
               !differ(Type, values->type, other.values->type) &&
               !differ(Rects, values->rects, other.values->rects) &&
               !differ(Group, values->group, other.values->group) &&
               !differ(Receivers, values->receivers, other.values->receivers) &&
               !differ(Blanks, values->blanks, other.values->blanks) &&
               !((fields & Original) && !sameOriginal(*values, *other.values));
    }
};

void writeChange(CByteWriter &out, const SChange &change)
{
    out.count(change.fields);
    const int values[] = {change.port, change.left, change.top, change.right, change.bottom, change.rank};
    for (int i = 0; i < 6; ++i) {
        if (change.fields & (1 << i))
            out.number(values[i]);
    }
    if (change.fields & Type)
        out.block(change.values->type.toText());
    if (change.fields & Rects)
        writeRects(out, change.values->rects);
    if (change.fields & Group)
        out.uuid(change.values->group);
    if (change.fields & Receivers)
        writeReceivers(out, change.values->receivers);
    if (change.fields & Blanks)
        writeRects(out, change.values->blanks);
    if (change.fields & Original)
        writeOriginal(out, *change.values);
}

/// Reads a change; other values than numbers go to @p values.
SChange readChange(CByteReader &in, Cabinet &values)
{
    SChange change;
    change.fields = in.upTo(AllFields);
    int *const numbers[] = {&change.port,  &change.left,   &change.top,
                            &change.right, &change.bottom, &change.rank};
    for (int i = 0; i < 6; ++i) {
        if (change.fields & (1 << i))
            *numbers[i] = in.number(-2 * Farthest, 2 * Farthest);
    }
    if (change.fields & Type)
        values.type = SMD5::fromText(in.block());
    if (change.fields & Rects)
        values.rects = readRects(in);
    if (change.fields & Group)
        values.group = in.uuid();
    if (change.fields & Receivers)
        values.receivers = readReceivers(in);
    if (change.fields & Blanks)
        values.blanks = readRects(in);
    if (change.fields & Original)
        values.original = readOriginal(in);
    change.values = &values;
    return change;
}

/// Whether an editor can deal with it.
bool isSound(const Cabinet &cabinet)
{
    const auto near = [](int coordinate) { return coordinate >= -Farthest && coordinate <= Farthest; };
    const auto isSide = [](int length) { return length >= 0 && length <= Farthest; };
    const OriginalAreas *original = cabinet.original.get();
    return near(cabinet.rect.left()) && near(cabinet.rect.top()) && isSide(cabinet.rect.width()) &&
           isSide(cabinet.rect.height()) && cabinet.port >= -1 &&
           cabinet.port <= LayoutLimits::LargestPortIndex && cabinet.rank >= -1 &&
           cabinet.rank <= HighestRank &&
           (!original || (original->rects.size() == cabinet.rects.size() &&
                          original->blanks.size() == cabinet.blanks.size()));
}

/// False: the cabinet is not sound then.
bool change(Cabinet &cabinet, const SChange &by)
{
    cabinet.port += by.port;
    cabinet.rect.adjust(by.left, by.top, by.right, by.bottom);
    cabinet.rank += by.rank;
    if (by.fields & ~(Port | Left | Top | Right | Bottom | Rank)) {
        const Cabinet &values = *by.values;
        if (by.fields & Type)
            cabinet.type = values.type;
        if (by.fields & Direction)
            cabinet.directionFixed = !cabinet.directionFixed;
        if (by.fields & Custom)
            cabinet.custom = !cabinet.custom;
        if (by.fields & Rects)
            cabinet.rects = values.rects;
        if (by.fields & Group)
            cabinet.group = values.group;
        if (by.fields & Receivers)
            cabinet.receivers = values.receivers;
        if (by.fields & Blanks)
            cabinet.blanks = values.blanks;
        if (by.fields & Original)
            cabinet.original = values.original;
    }
    return isSound(cabinet);
}

/// The changes of the cabinets that stay, from @p firstBefore and @p firstAfter on.
class CRunWriter final
{
public:
    explicit CRunWriter(CByteWriter &out)
        : m_out(out)
    {
    }
    /// @p fields is the difference of @p before and @p after.
    void add(const Cabinet &before, const Cabinet &after, int fields)
    {
        if (m_length > 0 && fields == 0 && m_change.fields == 0) {
            ++m_length; // as nearly always
            return;
        }
        const SChange next = SChange::between(before, after, fields);
        if (m_length > 0 && next == m_change) {
            ++m_length;
            return;
        }
        end();
        m_change = next;
        m_length = 1;
    }
    void end()
    {
        if (m_length == 0)
            return;
        m_out.count(m_length);
        writeChange(m_out, m_change);
        m_length = 0;
    }

private:
    CByteWriter &m_out;
    SChange m_change;
    int m_length = 0;
};

bool applyRuns(CByteReader &in, Cabinet *first, int count)
{
    for (int done = 0; done < count && in.isValid();) {
        const int length = in.upTo(count - done);
        Cabinet values;
        const SChange run = readChange(in, values);
        if (length == 0 || !in.isValid())
            return in.fail();
        for (const int end = done + length; run.fields && done < end; ++done) {
            if (!change(first[done], run))
                return in.fail();
        }
        done += run.fields ? 0 : length;
    }
    return in.isValid();
}

bool readNew(CByteReader &in, Cabinets &cabinets, int count)
{
    cabinets.reserve(count);
    Cabinet next;
    for (int i = 0; i < count; ++i) {
        Cabinet values;
        next.uuid = in.uuid();
        const SChange relative = readChange(in, values);
        if (!in.isValid() || !change(next, relative))
            return in.fail();
        cabinets << next;
    }
    return true;
}

/// Those between the ends.
void writeNew(CByteWriter &out, const Cabinets &cabinets, const SCommonEnds &ends)
{
    Cabinet previous;
    for (int i = ends.front; i < cabinets.size() - ends.back; ++i) {
        const Cabinet &next = cabinets.at(i);
        out.uuid(next.uuid);
        writeChange(out, SChange::between(previous, next, difference(previous, next)));
        previous = next;
    }
}

void add(CDigest &digest, const QVector<QRect> &rects)
{
    digest.add(quint64(rects.size()));
    for (const QRect &rect : rects) {
        digest.add(quint64(quint32(rect.left())) << 32 | quint32(rect.top()));
        digest.add(quint64(quint32(rect.right())) << 32 | quint32(rect.bottom()));
    }
}

void add(CDigest &digest, const QUuid &uuid)
{
    quint64 tail = 0;
    std::memcpy(&tail, uuid.data4, sizeof tail);
    digest.add(quint64(uuid.data1) << 32 | quint32(uuid.data2) << 16 | uuid.data3);
    digest.add(tail);
}

} // namespace

void CCabinetCodec::write(CByteWriter &forward, CByteWriter &back, const Cabinets &before,
                          const Cabinets &after)
{
    const SCommonEnds ends =
        SCommonEnds::of(before, after, [](const Cabinet &a, const Cabinet &b) { return a.uuid == b.uuid; });
    ends.write(forward, after.size());
    ends.write(back, before.size());
    CRunWriter forwardRuns(forward);
    CRunWriter backRuns(back);
    const auto add = [&forwardRuns, &backRuns](const Cabinet &a, const Cabinet &b) {
        const int fields = difference(a, b);
        forwardRuns.add(a, b, fields);
        backRuns.add(b, a, fields);
    };
    for (int i = 0; i < ends.front; ++i)
        add(before.at(i), after.at(i));
    for (int i = ends.back; i > 0; --i)
        add(before.at(before.size() - i), after.at(after.size() - i));
    forwardRuns.end();
    backRuns.end();
    writeNew(forward, after, ends);
    writeNew(back, before, ends);
}

bool CCabinetCodec::apply(CByteReader &in, Cabinets &cabinets)
{
    int inserted = 0;
    const SCommonEnds ends = SCommonEnds::read(in, cabinets.size(), SmallestCabinet, inserted);
    if (!in.isValid())
        return false;
    const int removed = cabinets.size() - ends.front - ends.back;
    if (removed > 0)
        cabinets.remove(ends.front, removed);
    if (!cabinets.isEmpty() && !applyRuns(in, cabinets.data(), cabinets.size()))
        return false;
    if (inserted == 0)
        return true;
    Cabinets all = cabinets.mid(0, ends.front);
    if (!readNew(in, all, inserted))
        return false;
    all += cabinets.mid(ends.front);
    cabinets = all;
    return true;
}

void CCabinetCodec::digest(CDigest &digest, const Cabinets &cabinets)
{
    digest.add(quint64(cabinets.size()));
    for (const Cabinet &cabinet : cabinets) {
        add(digest, cabinet.uuid);
        add(digest, cabinet.group);
        digest.add(quint64(quint32(cabinet.rect.left())) << 32 | quint32(cabinet.rect.top()));
        digest.add(quint64(quint32(cabinet.rect.right())) << 32 | quint32(cabinet.rect.bottom()));
        digest.add(quint64(quint32(cabinet.rank)) << 32 | quint32(cabinet.port));
        digest.add((cabinet.directionFixed ? 1U : 0U) | (cabinet.custom ? 2U : 0U) |
                   (cabinet.original ? 4U : 0U));
        digest.add(cabinet.type.bytes.data(), int(cabinet.type.bytes.size()));
        add(digest, cabinet.rects);
        add(digest, cabinet.blanks);
        digest.add(quint64(cabinet.receivers.size()));
        for (const int receiver : cabinet.receivers)
            digest.add(quint64(receiver));
        if (cabinet.original) {
            digest.add(quint64(cabinet.original->size.width()) << 32 |
                       quint32(cabinet.original->size.height()));
            add(digest, cabinet.original->rects);
            add(digest, cabinet.original->blanks);
        }
    }
}
