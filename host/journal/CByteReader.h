// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QColor>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QUuid>

/// Reads what CByteWriter wrote, from bytes of any origin. The first value that is missing or out of range
/// makes the reader invalid; from then on it returns empty values.
class CByteReader final
{
public:
    /// The bytes must outlive the reader and the blocks that it returns as views.
    explicit CByteReader(const QByteArray &bytes);

    bool isValid() const { return m_valid; }
    bool atEnd() const { return m_at == m_end; }
    /// Returns false, always.
    bool fail();

    int byte();
    qint64 number();
    int number(qint64 minimum, qint64 maximum);
    /// The number of elements that follow, each of which takes at least @p smallest bytes: so nothing larger
    /// than the file asks for is ever allocated.
    int count(int smallest);
    int upTo(int maximum); ///< a count of what takes no bytes
    quint64 fixed();
    QUuid uuid();
    QString text();
    QString name(); ///< a text without what no file accepts in a name
    QByteArray block();
    QColor color();
    QPoint point(int largest); ///< coordinates of at most that magnitude
    QSize extent(int largest);

private:
    quint64 unsignedNumber();
    bool holds(qint64 size);

    const char *m_at;
    const char *m_end;
    bool m_valid = true;
};
