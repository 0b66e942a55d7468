// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/json/CJsonScanner.h"

#include "platform/json/CStrictJson.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

bool isJsonDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c)
{
    return isJsonDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

} // namespace

CJsonScanner::CJsonScanner(const QByteArray &text)
    : m_begin(text.constData())
    , m_at(m_begin)
    , m_end(m_begin + text.size())
{
}

bool CJsonScanner::scan()
{
    skipSpace();
    if (!at('{'))
        return fail(tr("an object ('{') is expected"));
    if (!object(1))
        return false;
    skipSpace();
    return m_at == m_end || fail(tr("there is text behind the end"));
}

bool CJsonScanner::value(int depth)
{
    skipSpace();
    if (m_at == m_end)
        return fail(tr("the end is missing"));
    if (++m_values > CStrictJson::MaximumValues)
        return fail(tr("there are more than %1 values").arg(CStrictJson::MaximumValues));
    SName content{};
    switch (*m_at) {
    case '{':
        return object(depth + 1);
    case '[':
        return array(depth + 1);
    case '"':
        return string(content, true);
    case 't':
        return word("true");
    case 'f':
        return word("false");
    case 'n':
        return word("null");
    default:
        return number();
    }
}

bool CJsonScanner::object(int depth)
{
    if (depth > CStrictJson::MaximumDepth)
        return fail(tr("nested too deep"));
    ++m_at;
    const int firstName = m_names.size();
    skipSpace();
    if (!at('}')) {
        while (member(depth, firstName)) {
            skipSpace();
            if (!at(','))
                break;
            ++m_at;
            skipSpace();
        }
        if (!m_error.isEmpty())
            return false;
    }
    if (!at('}'))
        return fail(m_at == m_end ? tr("the end is missing") : tr("',' or '}' is expected"));
    ++m_at;
    m_names.resize(firstName);
    return true;
}

bool CJsonScanner::array(int depth)
{
    if (depth > CStrictJson::MaximumDepth)
        return fail(tr("nested too deep"));
    ++m_at;
    skipSpace();
    if (!at(']')) {
        while (value(depth)) {
            skipSpace();
            if (!at(','))
                break;
            ++m_at;
        }
        if (!m_error.isEmpty())
            return false;
    }
    if (!at(']'))
        return fail(m_at == m_end ? tr("the end is missing") : tr("',' or ']' is expected"));
    ++m_at;
    return true;
}

bool CJsonScanner::member(int depth, int firstName)
{
    if (!at('"'))
        return fail(m_at == m_end ? tr("the end is missing") : tr("the name of a member is expected"));
    SName name{};
    if (!string(name, false) || !rememberName(name, firstName))
        return false;
    skipSpace();
    if (!at(':'))
        return fail(m_at == m_end ? tr("the end is missing") : tr("':' is expected"));
    ++m_at;
    return value(depth);
}

bool CJsonScanner::rememberName(const SName &name, int firstName)
{
    const auto isDouble = [&name](const SName &other) {
        return other.length == name.length && std::memcmp(other.begin, name.begin, size_t(name.length)) == 0;
    };
    if (std::any_of(m_names.begin() + firstName, m_names.end(), isDouble)) {
        m_at = name.begin - 1;
        return fail(tr("the member \"%1\" occurs twice").arg(QString::fromUtf8(name.begin, name.length)));
    }
    if (m_names.size() - firstName >= CStrictJson::MaximumMembers)
        return fail(tr("an object has too many members"));
    m_names.append(name);
    return true;
}

bool CJsonScanner::string(SName &content, bool escapesAllowed)
{
    content.begin = ++m_at;
    while (m_at != m_end && *m_at != '"') {
        if (uchar(*m_at) < 0x20)
            return fail(tr("a control character stands in a text"));
        if (*m_at == '\\') {
            // Escapes in a name could hide that it repeats another one.
            if (!escapesAllowed)
                return fail(tr("the name of a member holds an escape sequence"));
            if (!escape())
                return false;
        } else {
            ++m_at;
        }
    }
    if (m_at == m_end)
        return fail(tr("the end is missing"));
    if (m_at - content.begin > CStrictJson::MaximumTextBytes)
        return fail(tr("a text is too long"));
    content.length = int(m_at - content.begin);
    ++m_at;
    return true;
}

bool CJsonScanner::escape()
{
    ++m_at;
    if (m_at == m_end)
        return fail(tr("the end is missing"));
    if (*m_at == 'u') {
        for (int i = 0; i < 4; ++i) {
            if (++m_at == m_end || !isHexDigit(*m_at))
                return fail(tr("an escape sequence is damaged"));
        }
    } else if (!std::strchr("\"\\/bfnrt", *m_at) || *m_at == '\0') {
        return fail(tr("an escape sequence is damaged"));
    }
    ++m_at;
    return true;
}

bool CJsonScanner::number()
{
    const char *begin = m_at;
    if (at('-'))
        ++m_at;
    const bool leadingZero = at('0');
    const char *first = m_at;
    if (!digits() || (leadingZero && m_at - first > 1)) {
        m_at = begin;
        return fail(tr("a value is expected"));
    }
    if (m_at - first <= 15 && !at('.') && !at('e') && !at('E'))
        return true;
    bool wellFormed = true;
    if (at('.')) {
        ++m_at;
        wellFormed = digits();
    }
    if (wellFormed && (at('e') || at('E'))) {
        ++m_at;
        if (at('+') || at('-'))
            ++m_at;
        wellFormed = digits();
    }
    if (!wellFormed)
        return fail(tr("a number is damaged"));
    bool ok = false;
    const double value = QByteArray::fromRawData(begin, int(m_at - begin)).toDouble(&ok);
    if (ok && std::abs(value) < CStrictJson::MaximumNumber)
        return true;
    m_at = begin;
    return fail(tr("a number is too large"));
}

bool CJsonScanner::digits()
{
    const char *begin = m_at;
    while (m_at != m_end && isJsonDigit(*m_at))
        ++m_at;
    return m_at != begin;
}

bool CJsonScanner::word(const char *text)
{
    const auto length = std::ptrdiff_t(std::strlen(text));
    if (m_end - m_at < length || std::memcmp(m_at, text, size_t(length)) != 0)
        return fail(tr("a value is expected"));
    m_at += length;
    return true;
}

void CJsonScanner::skipSpace()
{
    while (m_at != m_end && (*m_at == ' ' || *m_at == '\n' || *m_at == '\t' || *m_at == '\r'))
        ++m_at;
}

bool CJsonScanner::fail(const QString &error)
{
    m_error = error;
    return false;
}
