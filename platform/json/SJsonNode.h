// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

#include <vector>

/// A value of a JSON document, or the name of a member.
struct SJsonNode
{
    enum Type : quint8 { Null, False, True, Number, Text, EscapedText, Array, Object };

    /// Of a text, its bytes; of an array, its elements; of an object, twice its members.
    struct SRange
    {
        quint32 begin;
        quint32 count;
    };

    Type type = Null;
    union {
        double number;
        SRange range = {0, 0};
    };
};

/// The bytes and the values of a JSON document. What belongs to one array or object stands together, the name
/// of each member before its value; the document's own object is the last.
struct SJsonContent
{
    QByteArray text;
    std::vector<SJsonNode> nodes;
};
