// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/json/CStrictJson.h"

#include "platform/json/CJsonScanner.h"

#include <QJsonDocument>

#include <algorithm>
#include <new>

namespace {

constexpr size_t ValueBytes = 128; // of memory at most, for a parsed value and what is made of it
constexpr size_t TextFactor = 4;   // of memory for the texts, to the bytes of the document

/// Throws bad_alloc here if memory is short, because running out of it inside QJsonDocument would end the
/// program.
void requireMemory(const QByteArray &text, int values)
{
    ::operator delete(::operator new(size_t(values) * ValueBytes + size_t(text.size()) * TextFactor));
}

/// "line 3, column 17" of a byte offset, both from 1; columns count bytes.
QString textPlace(const QByteArray &text, int offset, int firstLine)
{
    const int line = firstLine + int(std::count(text.begin(), text.begin() + offset, '\n'));
    const int column = offset == 0 ? 1 : offset - text.lastIndexOf('\n', offset - 1);
    return CStrictJson::tr("line %1, column %2").arg(line).arg(column);
}

} // namespace

CResult<QJsonObject> CStrictJson::parse(const QByteArray &text, int firstLine)
{
    const auto failure = [&](int offset, const QString &what) {
        return CResult<QJsonObject>::failure(
            QStringLiteral("%1: %2").arg(textPlace(text, qBound(0, offset, text.size()), firstLine), what));
    };
    CJsonScanner scanner(text);
    if (!scanner.scan())
        return failure(scanner.offset(), scanner.error());
    requireMemory(text, scanner.values());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error == QJsonParseError::IllegalUTF8String)
        return failure(error.offset, tr("a text is not valid UTF-8"));
    if (error.error != QJsonParseError::NoError)
        return failure(error.offset, error.errorString());
    return document.object();
}
