// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/CJsonMutator.h"

#include "platform/json/CStrictJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

QByteArray CJsonMutator::mutated(const QByteArray &bytes)
{
    const int header = bytes.startsWith("{\"format\"") ? bytes.indexOf('\n') + 1 : 0;
    if (!CStrictJson::parse(bytes, header)) // Qt's own leaks what is damaged
        return {};
    m_root = QJsonDocument::fromJson(bytes.mid(header)).object();
    m_place = m_random.bounded(countOf(m_root));
    const QJsonValue changedRoot = changed(m_root);
    return changedRoot.isObject()
               ? bytes.left(header) + QJsonDocument(changedRoot.toObject()).toJson(QJsonDocument::Compact) +
                     '\n'
               : QByteArray();
}

int CJsonMutator::countOf(const QJsonValue &value)
{
    int count = 1;
    if (value.isArray()) {
        for (const QJsonValue &item : value.toArray())
            count += countOf(item);
    } else if (value.isObject()) {
        for (const QJsonValue &member : value.toObject())
            count += countOf(member);
    }
    return count;
}

/// The value with that number, counted down.
QJsonValue CJsonMutator::valueAt(const QJsonValue &value, int &index)
{
    if (index-- == 0)
        return value;
    QJsonValue found = QJsonValue::Undefined;
    if (value.isArray()) {
        for (const QJsonValue &item : value.toArray()) {
            if (index >= 0)
                found = valueAt(item, index);
        }
    } else if (value.isObject()) {
        for (const QJsonValue &member : value.toObject()) {
            if (index >= 0)
                found = valueAt(member, index);
        }
    }
    return found;
}

/// Without shared parts: Qt would leak a value that was put into a part of itself.
QJsonValue CJsonMutator::copyOf(const QJsonValue &value)
{
    const QByteArray text = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QJsonDocument::fromJson(text).array().at(0);
}

/// The value with the chosen one in it changed.
QJsonValue CJsonMutator::changed(const QJsonValue &value)
{
    if (m_place-- == 0)
        return changedHere(value);
    if (value.isArray()) {
        QJsonArray items;
        for (const QJsonValue &item : value.toArray())
            items << (m_place >= 0 ? changed(item) : item);
        return items;
    }
    if (value.isObject()) {
        const QJsonObject before = value.toObject();
        QJsonObject object;
        for (auto member = before.begin(); member != before.end(); ++member)
            object.insert(member.key(), m_place >= 0 ? changed(member.value()) : member.value());
        return object;
    }
    return value;
}

QJsonValue CJsonMutator::changedHere(const QJsonValue &value)
{
    if (m_random.bounded(6) == 0) {
        int other = m_random.bounded(countOf(m_root));
        return copyOf(valueAt(m_root, other));
    }
    if (m_random.bounded(20) == 0)
        return QJsonValue();
    switch (value.type()) {
    case QJsonValue::Double:
        return changedNumber(value.toDouble());
    case QJsonValue::String:
        return changedText(value.toString());
    case QJsonValue::Array:
        return changedArray(value.toArray());
    case QJsonValue::Object:
        return changedObject(value.toObject());
    default:
        return !value.toBool();
    }
}

QJsonValue CJsonMutator::changedNumber(double number)
{
    static constexpr double edges[] = {
        0,          1,           -1,  2,     255,  256,  1023, 1024,  65535,   16777216,           2147483647,
        2147483648, -2147483648, 0.5, 1e300, -0.0, 2048, 2049, 32768, 1048576, 9007199254740992.0, 63,
        4.0,        1e-9};
    const int choice = m_random.bounded(4);
    if (choice == 0)
        return number + m_random.bounded(-2, 3);
    if (choice == 1)
        return m_random.bounded(-300, 3000);
    return edges[m_random.bounded(int(std::size(edges)))];
}

QJsonValue CJsonMutator::changedText(QString text)
{
    switch (m_random.bounded(6)) {
    case 0:
        return QString();
    case 1:
        return text.left(m_random.bounded(text.size() + 1));
    case 2:
        return text.repeated(1 + m_random.bounded(40));
    case 3:
        return QStringLiteral("00000000-0000-0000-0000-000000000000");
    default:
        text.insert(m_random.bounded(text.size() + 1), QChar(ushort(m_random.bounded(0x10000))));
        return text;
    }
}

QJsonValue CJsonMutator::changedArray(QJsonArray items)
{
    if (items.isEmpty())
        return QJsonArray{m_random.bounded(100), QJsonObject()};
    const int place = m_random.bounded(items.size());
    const QJsonValue item = items.at(place);
    switch (m_random.bounded(4)) {
    case 0:
        items.removeAt(place);
        break;
    case 1:
        items.insert(m_random.bounded(items.size() + 1), item);
        break;
    case 2:
        for (int more = m_random.bounded(100); more > 0; --more)
            items.append(item);
        break;
    default:
        items.replace(place, items.at(m_random.bounded(items.size())));
        items.replace(m_random.bounded(items.size()), item);
    }
    return items;
}

QJsonValue CJsonMutator::changedObject(QJsonObject object)
{
    const QStringList keys = object.keys();
    if (keys.isEmpty())
        return QJsonObject{{QStringLiteral("index"), 0}};
    const QString key = keys.at(m_random.bounded(keys.size()));
    const QJsonValue value = object.take(key);
    if (m_random.bounded(3) == 0)
        object.insert(keys.at(m_random.bounded(keys.size())), value);
    else if (m_random.bounded(4) == 0)
        object.insert(key + QLatin1Char('x'), value);
    else if (m_random.bounded(3) == 0)
        return QJsonObject{{key, QJsonObject{{key, value}}}}; // one level deeper
    return object;
}
