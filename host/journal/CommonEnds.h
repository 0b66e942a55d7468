// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"

#include <algorithm>

/// How many elements two lists have in common at their beginnings and at their ends. What is between differs.
struct SCommonEnds
{
    int front = 0;
    int back = 0;

    template <typename List, typename Same>
    static SCommonEnds of(const List &before, const List &after, const Same &same)
    {
        SCommonEnds ends;
        const int shorter = std::min(before.size(), after.size());
        while (ends.front < shorter && same(before.at(ends.front), after.at(ends.front)))
            ++ends.front;
        while (ends.back < shorter - ends.front &&
               same(before.at(before.size() - 1 - ends.back), after.at(after.size() - 1 - ends.back)))
            ++ends.back;
        return ends;
    }

    void write(CByteWriter &out, int sizeAfter) const
    {
        out.count(front);
        out.count(back);
        out.count(sizeAfter - front - back);
    }
    /// @p inserted: how many elements, of at least @p smallest bytes each, are between the ends afterwards.
    static SCommonEnds read(CByteReader &in, int sizeBefore, int smallest, int &inserted)
    {
        SCommonEnds ends;
        ends.front = in.upTo(sizeBefore);
        ends.back = in.upTo(sizeBefore - ends.front);
        inserted = in.count(smallest);
        return ends;
    }
};
