// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CDigest.h"

#include <QtEndian>

#include <cstring>

void CDigest::add(const char *bytes, int size)
{
    constexpr int Word = sizeof(quint64);
    add(quint64(size));
    for (; size >= Word; size -= Word, bytes += Word)
        add(qFromLittleEndian<quint64>(bytes));
    if (size > 0) {
        char rest[Word] = {};
        std::memcpy(rest, bytes, size_t(size));
        add(qFromLittleEndian<quint64>(rest));
    }
}
