// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QRandomGenerator>

/// Changes JSON documents so that they stay JSON: values at the edge of their range, members and elements
/// that are gone, repeated, renamed or moved. Any thread.
class CJsonMutator final
{
public:
    explicit CJsonMutator(quint32 seed)
        : m_random(seed)
    {
    }

    /// One change to the document behind the header line, if there is one; empty if that is no JSON.
    QByteArray mutated(const QByteArray &bytes);

private:
    QJsonValue changed(const QJsonValue &value);
    QJsonValue changedHere(const QJsonValue &value);
    QJsonValue changedNumber(double number);
    QJsonValue changedText(QString text);
    QJsonValue changedArray(QJsonArray items);
    QJsonValue changedObject(QJsonObject object);
    static QJsonValue copyOf(const QJsonValue &value);
    static int countOf(const QJsonValue &value);
    static QJsonValue valueAt(const QJsonValue &value, int &index);

    QRandomGenerator m_random;
    QJsonValue m_root;
    int m_place = 0; ///< number of the value to be changed, counted down
};
