// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/json/CStrictObject.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

bool hasControlCharacter(const QString &text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() < 0x20 || c.unicode() == 0x7F; });
}

int hexValue(char c)
{
    return c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

/// The identity of a text as fromUuid() writes it; null if it is any other text.
QUuid uuidOf(QLatin1String text)
{
    if (text.size() != 36)
        return {};
    uchar bytes[16];
    const char *at = text.data();
    for (int i = 0; i < 16; ++i, at += 2) {
        const bool dash = i == 4 || i == 6 || i == 8 || i == 10;
        if (dash && *at++ != '-')
            return {};
        const int value = hexValue(at[0]) < 0 ? -1 : hexValue(at[0]) << 4 | hexValue(at[1]);
        if (value < 0)
            return {};
        bytes[i] = uchar(value);
    }
    const auto number = [&bytes](int i) { return uint(bytes[i]) << 8 | bytes[i + 1]; };
    return QUuid(number(0) << 16 | number(2), ushort(number(4)), ushort(number(6)), bytes[8], bytes[9],
                 bytes[10], bytes[11], bytes[12], bytes[13], bytes[14], bytes[15]);
}

} // namespace

QString SJsonPlace::text() const
{
    const QString before = parent ? parent->text() : QString();
    if (index >= 0)
        return before + QStringLiteral("[%1]").arg(index);
    if (!member)
        return before;
    return (before.isEmpty() ? QString() : before + QLatin1Char('.')) + QLatin1String(member);
}

CStrictObject::CStrictObject(const CJsonValue &value, const SJsonPlace &place, QString &error)
    : m_object(value)
    , m_place(place)
    , m_error(error)
{
    if (!value.isObject())
        failAt(place, tr("an object is expected"));
}

CJsonValue CStrictObject::take(const char *key, bool required)
{
    const CJsonValue found = m_object.member(key);
    if (!found.isUndefined())
        m_taken.append(key);
    else if (required)
        failAt(m_place, tr("the member \"%1\" is missing").arg(QLatin1String(key)));
    return found;
}

qint64 CStrictObject::toInteger(const CJsonValue &value, const SJsonPlace &place, qint64 minimum,
                                qint64 maximum)
{
    const double number = value.toDouble();
    if (!value.isDouble() || std::floor(number) < number)
        failAt(place, tr("a whole number is expected"));
    else if (number < double(minimum) || number > double(maximum))
        failAt(place, tr("%1 is not in the range %2 to %3").arg(number, 0, 'f', 0).arg(minimum).arg(maximum));
    else
        return qint64(number);
    return minimum;
}

qint64 CStrictObject::integer(const char *key, qint64 minimum, qint64 maximum)
{
    const CJsonValue value = take(key, true);
    return value.isUndefined() ? minimum : toInteger(value, placeOf(key), minimum, maximum);
}

qint64 CStrictObject::integerOr(qint64 fallback, const char *key, qint64 minimum, qint64 maximum)
{
    const CJsonValue value = take(key, false);
    return value.isUndefined() ? fallback : toInteger(value, placeOf(key), minimum, maximum);
}

int CStrictObject::smallInteger(const char *key, int minimum, int maximum)
{
    return int(integer(key, minimum, maximum));
}

int CStrictObject::smallIntegerOr(int fallback, const char *key, int minimum, int maximum)
{
    return int(integerOr(fallback, key, minimum, maximum));
}

double CStrictObject::number(const char *key, double minimum, double maximum)
{
    const CJsonValue value = take(key, true);
    return value.isUndefined() ? minimum : toNumber(value, placeOf(key), minimum, maximum);
}

double CStrictObject::numberOr(double fallback, const char *key, double minimum, double maximum)
{
    const CJsonValue value = take(key, false);
    return value.isUndefined() ? fallback : toNumber(value, placeOf(key), minimum, maximum);
}

double CStrictObject::toNumber(const CJsonValue &value, const SJsonPlace &place, double minimum,
                               double maximum)
{
    const double number = value.toDouble();
    if (!value.isDouble())
        failAt(place, tr("a number is expected"));
    else if (number < minimum || number > maximum)
        failAt(place, tr("%1 is not in the range %2 to %3").arg(number).arg(minimum).arg(maximum));
    return number;
}

bool CStrictObject::flagOr(bool fallback, const char *key)
{
    const CJsonValue value = take(key, false);
    if (value.isUndefined())
        return fallback;
    if (!value.isBool())
        failAt(placeOf(key), tr("true or false is expected"));
    return value.toBool();
}

QString CStrictObject::text(const char *key, int longest)
{
    const CJsonValue value = take(key, true);
    return value.isUndefined() ? QString() : toText(value, placeOf(key), longest);
}

QString CStrictObject::textOr(const QString &fallback, const char *key, int longest)
{
    const CJsonValue value = take(key, false);
    return value.isUndefined() ? fallback : toText(value, placeOf(key), longest);
}

QString CStrictObject::toText(const CJsonValue &value, const SJsonPlace &place, int longest)
{
    const QString text = toPath(value, place, longest);
    if (hasControlCharacter(text))
        failAt(place, tr("the text holds characters that are not allowed"));
    return text;
}

QString CStrictObject::pathOr(const QString &fallback, const char *key, int longest)
{
    const CJsonValue value = take(key, false);
    return value.isUndefined() ? fallback : toPath(value, placeOf(key), longest);
}

QString CStrictObject::toPath(const CJsonValue &value, const SJsonPlace &place, int longest)
{
    const QString text = value.toString();
    if (!value.isString())
        failAt(place, tr("a text is expected"));
    else if (text.size() > longest)
        failAt(place, tr("the text is longer than %1 characters").arg(longest));
    else if (!text.isValidUtf16() || text.contains(QChar::Null))
        failAt(place, tr("the text holds characters that are not allowed"));
    return text;
}

QUuid CStrictObject::uuid(const char *key)
{
    const CJsonValue value = take(key, true);
    return value.isUndefined() ? QUuid() : toUuid(value, placeOf(key));
}

QUuid CStrictObject::uuidOr(const QUuid &fallback, const char *key)
{
    const CJsonValue value = take(key, false);
    if (value.isUndefined())
        return fallback;
    return value.isNull() ? QUuid() : toUuid(value, placeOf(key));
}

QUuid CStrictObject::toUuid(const CJsonValue &value, const SJsonPlace &place)
{
    const QUuid plain = uuidOf(value.plainText());
    if (!plain.isNull())
        return plain;
    const QString text = value.toString();
    const QUuid uuid = text.size() == 36 ? QUuid::fromString(text) : QUuid();
    if (uuid.isNull())
        failAt(place, tr("an identity (36 characters, not all zero) is expected"));
    return uuid;
}

QSize CStrictObject::size(const char *key, int largest)
{
    const CJsonValue sides = pair(take(key, true), key);
    const SJsonPlace place = placeOf(key);
    if (sides.elements() == 0)
        return {};
    return {int(toInteger(sides.at(0), {&place, nullptr, 0}, 1, largest)),
            int(toInteger(sides.at(1), {&place, nullptr, 1}, 1, largest))};
}

QSizeF CStrictObject::sizeFOr(const QSizeF &fallback, const char *key, double largest)
{
    const CJsonValue sides = pair(take(key, false), key);
    const SJsonPlace place = placeOf(key);
    if (sides.elements() == 0)
        return fallback;
    return {toNumber(sides.at(0), {&place, nullptr, 0}, 0, largest),
            toNumber(sides.at(1), {&place, nullptr, 1}, 0, largest)};
}

/// Two elements, or none.
CJsonValue CStrictObject::pair(const CJsonValue &value, const char *key)
{
    if (value.isUndefined() || value.elements() == 2)
        return value;
    failAt(placeOf(key), tr("[width, height] is expected"));
    return {};
}

QRect CStrictObject::rect(const char *key)
{
    const CJsonValue value = take(key, true);
    return value.isUndefined() ? QRect() : toRect(value, placeOf(key));
}

QRect CStrictObject::toRect(const CJsonValue &value, const SJsonPlace &place)
{
    if (value.elements() != 4) {
        failAt(place, tr("[x, y, width, height] is expected"));
        return {};
    }
    int numbers[4];
    for (int i = 0; i < 4; ++i)
        numbers[i] =
            int(toInteger(value.at(i), {&place, nullptr, i}, i < 2 ? -LargestPixel : 0, LargestPixel));
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

QVector<QRect> CStrictObject::rectsOr(const char *key, int most)
{
    const CJsonValue items = shortArrayOr(key, most);
    const SJsonPlace place = placeOf(key);
    QVector<QRect> rects;
    rects.reserve(items.elements());
    for (int i = 0; i < items.elements(); ++i)
        rects.append(toRect(items.at(i), {&place, nullptr, i}));
    return rects;
}

CJsonValue CStrictObject::array(const char *key)
{
    return toArray(take(key, true), key);
}

CJsonValue CStrictObject::arrayOr(const char *key)
{
    return toArray(take(key, false), key);
}

CJsonValue CStrictObject::shortArrayOr(const char *key, int most)
{
    const CJsonValue items = arrayOr(key);
    if (items.elements() <= most)
        return items;
    failAt(placeOf(key), tr("there are %1 entries, the most is %2").arg(items.elements()).arg(most));
    return {};
}

CJsonValue CStrictObject::toArray(const CJsonValue &value, const char *key)
{
    if (!value.isUndefined() && !value.isArray())
        failAt(placeOf(key), tr("an array is expected"));
    return value.isArray() ? value : CJsonValue();
}

CJsonValue CStrictObject::value(const char *key)
{
    return take(key, true);
}

void CStrictObject::fail(const char *key, const QString &what)
{
    failAt(placeOf(key), what);
}

void CStrictObject::failAt(const SJsonPlace &place, const QString &what)
{
    if (!m_error.isEmpty())
        return;
    const QString where = place.text();
    m_error = where.isEmpty() ? what : QStringLiteral("%1: %2").arg(where, what);
}

bool CStrictObject::finish()
{
    if (!m_error.isEmpty() || m_object.members() <= m_taken.size())
        return m_error.isEmpty();
    QStringList unknown;
    for (int i = 0; i < m_object.members(); ++i) {
        const QString name = m_object.nameAt(i);
        const auto isKey = [&name](const char *key) { return name == QLatin1String(key); };
        if (std::none_of(m_taken.begin(), m_taken.end(), isKey))
            unknown << name;
    }
    if (!unknown.isEmpty()) // the first of the alphabet, as files are written in its order
        failAt(m_place,
               tr("the member \"%1\" is not known").arg(*std::min_element(unknown.begin(), unknown.end())));
    return m_error.isEmpty();
}

QJsonArray CStrictObject::fromRect(const QRect &rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

QJsonArray CStrictObject::fromRects(const QVector<QRect> &rects)
{
    QJsonArray array;
    for (const QRect &rect : rects)
        array.append(fromRect(rect));
    return array;
}
