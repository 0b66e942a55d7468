// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QVector>

/// Checks JSON text in one pass without building anything: grammar, repeated members, numbers that would lose
/// digits, depth, number of values. It runs before the real parser, which needs many times the memory of the
/// text.
class CJsonScanner final
{
    Q_DECLARE_TR_FUNCTIONS(CJsonScanner)

public:
    explicit CJsonScanner(const QByteArray &text);

    /// Returns false if the text is not one strict JSON object; error() and offset() then say what and where.
    bool scan();
    const QString &error() const { return m_error; }
    int offset() const { return int(m_at - m_begin); } ///< bytes
    int values() const { return m_values; }            ///< number of values read so far

private:
    /// The name of a member, as written in the text.
    struct SName
    {
        const char *begin;
        int length;
    };

    bool value(int depth);
    bool object(int depth);
    bool array(int depth);
    bool member(int depth, int firstName);
    bool string(SName &content, bool escapesAllowed);
    bool escape();
    bool number();
    bool word(const char *text);
    bool digits();
    bool rememberName(const SName &name, int firstName);
    void skipSpace();
    bool at(char c) const { return m_at != m_end && *m_at == c; }
    bool fail(const QString &error);

    const char *m_begin;
    const char *m_at;
    const char *m_end;
    QVector<SName> m_names; ///< of the open objects, the innermost last
    int m_values = 0;
    QString m_error;
};
