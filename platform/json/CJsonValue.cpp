// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/json/CJsonValue.h"

#include <cstring>
#include <limits>

namespace {

/// A text with its escape sequences, which must be well-formed, replaced.
QString unescaped(const QString &text)
{
    static const QString letters = QStringLiteral("bfnrt");
    QString plain;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\\')) {
            plain += text.at(i);
            continue;
        }
        const QChar kind = text.at(++i);
        const int letter = letters.indexOf(kind);
        if (kind == QLatin1Char('u')) {
            plain += QChar(text.midRef(i + 1, 4).toUShort(nullptr, 16));
            i += 4;
        } else {
            plain += letter < 0 ? kind : QLatin1Char("\b\f\n\r\t"[letter]);
        }
    }
    return plain;
}

} // namespace

int CJsonValue::toInt(int fallback) const
{
    const double number = toDouble();
    const bool inRange =
        number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
    return isDouble() && inRange && int(number) == number ? int(number) : fallback;
}

QString CJsonValue::toString() const
{
    if (!isString())
        return {};
    const QString text = QString::fromUtf8(bytesOf(*m_node), int(m_node->range.count));
    return is(SJsonNode::Text) ? text : unescaped(text);
}

QLatin1String CJsonValue::plainText() const
{
    return is(SJsonNode::Text) ? QLatin1String(bytesOf(*m_node), int(m_node->range.count)) : QLatin1String();
}

CJsonValue CJsonValue::at(int element) const
{
    return element < elements() ? CJsonValue(*m_content, children()[element]) : CJsonValue();
}

QString CJsonValue::nameAt(int member) const
{
    return member < members() ? CJsonValue(*m_content, children()[2 * member]).toString() : QString();
}

CJsonValue CJsonValue::member(const char *name) const
{
    if (!isObject())
        return {};
    const size_t length = std::strlen(name);
    const SJsonNode *end = children() + m_node->range.count;
    for (const SJsonNode *node = children(); node != end; node += 2) {
        if (node->range.count == length && std::memcmp(bytesOf(*node), name, length) == 0)
            return CJsonValue(*m_content, node[1]);
    }
    return {};
}
