// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QMetaType>

#include <array>

/// The digest of a type file, the key of a cabinet type in the type library: 32 bytes, the hexadecimal digits
/// of the MD5 sum. All bytes zero: no type.
struct SMD5
{
    std::array<char, 32> bytes{};

    bool isNull() const { return *this == SMD5(); }
    /// The digest of @p content.
    static SMD5 ofContent(const QByteArray &content);
    /// From 32 hexadecimal digits; null for anything else.
    static SMD5 fromText(const QByteArray &digits);
    /// The 32 digits; empty when null.
    QByteArray toText() const;

    friend bool operator==(const SMD5 &a, const SMD5 &b) { return a.bytes == b.bytes; }
    friend bool operator!=(const SMD5 &a, const SMD5 &b) { return !(a == b); }
    friend bool operator<(const SMD5 &a, const SMD5 &b) { return a.bytes < b.bytes; }
};
Q_DECLARE_TYPEINFO(SMD5, Q_PRIMITIVE_TYPE);
Q_DECLARE_METATYPE(SMD5)
