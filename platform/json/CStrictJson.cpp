// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/json/CStrictJson.h"

#include "platform/json/CJsonScanner.h"

#include <algorithm>

namespace {

/// "line 3, column 17" of a byte offset, both from 1; columns count bytes.
QString textPlace(const QByteArray &text, int offset)
{
    const int line = 1 + int(std::count(text.begin(), text.begin() + offset, '\n'));
    const int column = offset == 0 ? 1 : offset - text.lastIndexOf('\n', offset - 1);
    return CStrictJson::tr("line %1, column %2").arg(line).arg(column);
}

} // namespace

CResult<CJsonDocument> CStrictJson::parse(const QByteArray &text, int from)
{
    CJsonScanner scanner(text, from);
    if (scanner.scan())
        return CJsonDocument(scanner.takeContent());
    return CResult<CJsonDocument>::failure(
        QStringLiteral("%1: %2").arg(textPlace(text, scanner.offset()), scanner.error()));
}
