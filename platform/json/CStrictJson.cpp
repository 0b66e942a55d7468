// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/json/CStrictJson.h"

#include "platform/json/CJsonScanner.h"

#include <QJsonDocument>

#include <algorithm>

namespace {

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
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error == QJsonParseError::IllegalUTF8String)
        return failure(error.offset, tr("a text is not valid UTF-8"));
    if (error.error != QJsonParseError::NoError)
        return failure(error.offset, error.errorString());
    return document.object();
}
