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

/// Whether a text goes on behind the byte as if it were a letter.
bool isPlain(char c)
{
    return uchar(c) >= 0x20 && uchar(c) < 0x80 && c != '"' && c != '\\';
}

/// The number of bytes of the character of UTF-8 that begins at @p at; 0: there is none.
int utf8Length(const char *at, const char *end)
{
    const auto first = uchar(*at);
    if (first < 0x80)
        return 1;
    const int length = first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 0;
    if (length == 0 || end - at < length)
        return 0;
    // Neither longer than needed, nor half of a pair, nor beyond the last character.
    const int least = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    const int most = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    if (uchar(at[1]) < least || uchar(at[1]) > most)
        return 0;
    const auto goesOn = [](char c) { return (uchar(c) & 0xC0) == 0x80; };
    return std::all_of(at + 2, at + length, goesOn) ? length : 0;
}

} // namespace

CJsonScanner::CJsonScanner(const QByteArray &text, int from)
    : m_begin(text.constData())
    , m_at(m_begin + from)
    , m_end(m_begin + text.size())
{
    m_content.text = text;
}

bool CJsonScanner::scan()
{
    skipSpace();
    if (!at('{'))
        return fail(tr("an object ('{') is expected"));
    if (!object(1))
        return false;
    skipSpace();
    if (m_at != m_end)
        return fail(tr("there is text behind the end"));
    m_content.nodes.push_back(m_open.back());
    if (!m_badText)
        return true;
    m_at = m_badText;
    return fail(tr("a text is not valid UTF-8"));
}

bool CJsonScanner::value(int depth)
{
    skipSpace();
    if (m_at == m_end)
        return fail(tr("the end is missing"));
    if (++m_values > CStrictJson::MaximumValues)
        return fail(tr("there are more than %1 values").arg(CStrictJson::MaximumValues));
    switch (*m_at) {
    case '{':
        return object(depth + 1);
    case '[':
        return array(depth + 1);
    case '"':
        return string(true);
    case 't':
        return word("true", SJsonNode::True);
    case 'f':
        return word("false", SJsonNode::False);
    case 'n':
        return word("null", SJsonNode::Null);
    default:
        return number();
    }
}

bool CJsonScanner::object(int depth)
{
    if (depth > CStrictJson::MaximumDepth)
        return fail(tr("nested too deep"));
    ++m_at;
    const size_t firstChild = m_open.size();
    skipSpace();
    if (!at('}')) {
        while (member(depth, firstChild)) {
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
    addParent(SJsonNode::Object, firstChild);
    return true;
}

bool CJsonScanner::array(int depth)
{
    if (depth > CStrictJson::MaximumDepth)
        return fail(tr("nested too deep"));
    ++m_at;
    const size_t firstChild = m_open.size();
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
    addParent(SJsonNode::Array, firstChild);
    return true;
}

bool CJsonScanner::member(int depth, size_t firstChild)
{
    if (!at('"'))
        return fail(m_at == m_end ? tr("the end is missing") : tr("the name of a member is expected"));
    if (!string(false) || !checkName(firstChild))
        return false;
    skipSpace();
    if (!at(':'))
        return fail(m_at == m_end ? tr("the end is missing") : tr("':' is expected"));
    ++m_at;
    return value(depth);
}

/// Checks the name that was just read against the others of its object.
bool CJsonScanner::checkName(size_t firstChild)
{
    const SJsonNode::SRange name = m_open.back().range;
    const char *bytes = m_begin + name.begin;
    const size_t last = m_open.size() - 1;
    for (size_t i = firstChild; i < last; i += 2) {
        const SJsonNode::SRange &other = m_open[i].range;
        if (other.count == name.count && std::memcmp(m_begin + other.begin, bytes, name.count) == 0) {
            m_at = bytes - 1;
            return fail(tr("the member \"%1\" occurs twice").arg(QString::fromUtf8(bytes, int(name.count))));
        }
    }
    return last - firstChild < 2 * CStrictJson::MaximumMembers || fail(tr("an object has too many members"));
}

bool CJsonScanner::string(bool escapesAllowed)
{
    const char *begin = ++m_at;
    bool escaped = false;
    bool ascii = true;
    while (m_at != m_end && *m_at != '"') {
        if (isPlain(*m_at)) {
            ++m_at;
        } else if (uchar(*m_at) < 0x20) {
            return fail(tr("a control character stands in a text"));
        } else if (*m_at == '\\') {
            // Escapes in a name could hide that it repeats another one.
            if (!escapesAllowed)
                return fail(tr("the name of a member holds an escape sequence"));
            if (!escape())
                return false;
            escaped = true;
        } else {
            ascii = false;
            ++m_at;
        }
    }
    if (m_at == m_end)
        return fail(tr("the end is missing"));
    if (m_at - begin > CStrictJson::MaximumTextBytes)
        return fail(tr("a text is too long"));
    if (!ascii)
        noteBadText(begin);
    add(escaped ? SJsonNode::EscapedText : SJsonNode::Text, begin, m_at);
    ++m_at;
    return true;
}

/// Looks for bytes that are not UTF-8 from @p begin to here.
void CJsonScanner::noteBadText(const char *begin)
{
    for (int length = 1; !m_badText && begin < m_at; begin += length) {
        length = utf8Length(begin, m_at);
        if (length == 0)
            m_badText = begin;
    }
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
    if (m_at - first > 15 || at('.') || at('e') || at('E'))
        return longNumber(begin);
    qint64 number = 0;
    for (const char *digit = first; digit != m_at; ++digit)
        number = 10 * number + (*digit - '0');
    addNumber(double(first == begin ? number : -number));
    return true;
}

/// The rest of a number that has many digits, a fraction or an exponent.
bool CJsonScanner::longNumber(const char *begin)
{
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
    if (ok && std::abs(value) < CStrictJson::MaximumNumber) {
        addNumber(value);
        return true;
    }
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

bool CJsonScanner::word(const char *text, SJsonNode::Type type)
{
    const auto length = std::ptrdiff_t(std::strlen(text));
    if (m_end - m_at < length || std::memcmp(m_at, text, size_t(length)) != 0)
        return fail(tr("a value is expected"));
    add(type, m_at, m_at + length);
    m_at += length;
    return true;
}

void CJsonScanner::add(SJsonNode::Type type, const char *begin, const char *end)
{
    SJsonNode node;
    node.type = type;
    node.range = {quint32(begin - m_begin), quint32(end - begin)};
    m_open.push_back(node);
}

void CJsonScanner::addNumber(double number)
{
    SJsonNode node;
    node.type = SJsonNode::Number;
    node.number = number;
    m_open.push_back(node);
}

/// Puts what was read of the array or object that ends here in its place.
void CJsonScanner::addParent(SJsonNode::Type type, size_t firstChild)
{
    const auto begin = m_open.begin() + std::ptrdiff_t(firstChild);
    SJsonNode node;
    node.type = type;
    node.range = {quint32(m_content.nodes.size()), quint32(m_open.size() - firstChild)};
    m_content.nodes.insert(m_content.nodes.end(), begin, m_open.end());
    m_open.erase(begin, m_open.end());
    m_open.push_back(node);
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
