// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/json/CJsonValue.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QRect>
#include <QSize>
#include <QUuid>
#include <QVarLengthArray>
#include <QVector>

/// The place of a value in a JSON document, as a chain of steps on the reader's call stack.
struct SJsonPlace
{
    const SJsonPlace *parent = nullptr;
    const char *member = nullptr; ///< null: an element of an array
    int index = -1;               ///< of the element, from 0

    /// E.g. "ports[3].groups[0].rect"; empty for the document itself.
    QString text() const;
};

/// Reads the members of one JSON object strictly: each must be present, of its type and in its range, and
/// none may be left over. The first error of a document is stored in the text given to the constructor, with
/// its place; after an error all reads return defaults. Operations whose name ends in Or read an optional
/// member.
class CStrictObject final
{
    Q_DECLARE_TR_FUNCTIONS(CStrictObject)

public:
    static constexpr int LargestPixel = 1 << 24; ///< of coordinates, either way, and of sizes

    /// @p place and @p error must outlive the object; @p error is only written when it is empty.
    CStrictObject(const CJsonValue &value, const SJsonPlace &place, QString &error);

    /// Whole numbers from @p minimum to @p maximum.
    qint64 integer(const char *key, qint64 minimum, qint64 maximum);
    qint64 integerOr(qint64 fallback, const char *key, qint64 minimum, qint64 maximum);
    int smallInteger(const char *key, int minimum, int maximum);
    int smallIntegerOr(int fallback, const char *key, int minimum, int maximum);
    double number(const char *key, double minimum, double maximum);
    double numberOr(double fallback, const char *key, double minimum, double maximum);
    bool flagOr(bool fallback, const char *key);
    /// Well-formed Unicode without control characters, of at most @p longest characters.
    QString text(const char *key, int longest);
    QString textOr(const QString &fallback, const char *key, int longest);
    /// A file path, which may contain control characters.
    QString pathOr(const QString &fallback, const char *key, int longest);
    /// 36 characters, without braces; never null.
    QUuid uuid(const char *key);
    /// The JSON value null means no identity.
    QUuid uuidOr(const QUuid &fallback, const char *key);
    /// Written [width, height], each 1 to @p largest.
    QSize size(const char *key, int largest);
    /// Written [width, height], each 0 to @p largest.
    QSizeF sizeFOr(const QSizeF &fallback, const char *key, double largest);
    /// Written [x, y, width, height].
    QRect rect(const char *key);
    /// At most @p most rectangles.
    QVector<QRect> rectsOr(const char *key, int most);
    /// At most @p most whole numbers.
    template <typename Number>
    QVector<Number> integersOr(const char *key, qint64 minimum, qint64 maximum, int most);
    /// An array.
    CJsonValue array(const char *key);
    /// An array, or an undefined value.
    CJsonValue arrayOr(const char *key);
    CJsonValue value(const char *key);
    bool has(const char *key) const { return !m_object.member(key).isUndefined(); }

    SJsonPlace placeOf(const char *key) const { return {&m_place, key, -1}; }
    /// Reports the error @p what at the member; for rules that this class does not know.
    void fail(const char *key, const QString &what);
    /// Reports the members that were not read. Returns whether the document has no error so far.
    bool finish();

    /// The JSON of a rectangle: [x, y, width, height].
    static QJsonArray fromRect(const QRect &rect);
    static QJsonArray fromRects(const QVector<QRect> &rects);
    static QString fromUuid(const QUuid &uuid) { return uuid.toString(QUuid::WithoutBraces); }

private:
    CJsonValue take(const char *key, bool required);
    void failAt(const SJsonPlace &place, const QString &what);
    qint64 toInteger(const CJsonValue &value, const SJsonPlace &place, qint64 minimum, qint64 maximum);
    double toNumber(const CJsonValue &value, const SJsonPlace &place, double minimum, double maximum);
    QString toText(const CJsonValue &value, const SJsonPlace &place, int longest);
    QString toPath(const CJsonValue &value, const SJsonPlace &place, int longest);
    QUuid toUuid(const CJsonValue &value, const SJsonPlace &place);
    QRect toRect(const CJsonValue &value, const SJsonPlace &place);
    CJsonValue pair(const CJsonValue &value, const char *key);
    CJsonValue toArray(const CJsonValue &value, const char *key);
    CJsonValue shortArrayOr(const char *key, int most);

    CJsonValue m_object;
    const SJsonPlace &m_place;
    QString &m_error;
    QVarLengthArray<const char *, 16> m_taken;
};

template <typename Number>
QVector<Number> CStrictObject::integersOr(const char *key, qint64 minimum, qint64 maximum, int most)
{
    const CJsonValue items = shortArrayOr(key, most);
    const SJsonPlace place = placeOf(key);
    QVector<Number> numbers;
    numbers.reserve(items.elements());
    for (int i = 0; i < items.elements(); ++i)
        numbers.append(Number(toInteger(items.at(i), {&place, nullptr, i}, minimum, maximum)));
    return numbers;
}
