// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/json/SJsonNode.h"

#include <QCoreApplication>
#include <QString>

/// Reads JSON text in one pass, and checks grammar, repeated members, numbers that would lose digits, depth,
/// number of values, and UTF-8. Throws std::bad_alloc if there is not enough memory.
class CJsonScanner final
{
    Q_DECLARE_TR_FUNCTIONS(CJsonScanner)

public:
    /// The JSON begins at byte @p from of @p text.
    CJsonScanner(const QByteArray &text, int from);

    /// Returns false if the text is not one strict JSON object; error() and offset() then say what and where.
    bool scan();
    const QString &error() const { return m_error; }
    int offset() const { return int(m_at - m_begin); } ///< bytes
    SJsonContent takeContent() { return std::move(m_content); }

private:
    bool value(int depth);
    bool object(int depth);
    bool array(int depth);
    bool member(int depth, size_t firstChild);
    bool string(bool escapesAllowed);
    bool escape();
    void noteBadText(const char *begin);
    bool number();
    bool longNumber(const char *begin);
    bool word(const char *text, SJsonNode::Type type);
    bool digits();
    bool checkName(size_t firstChild);
    void add(SJsonNode::Type type, const char *begin, const char *end);
    void addNumber(double number);
    void addParent(SJsonNode::Type type, size_t firstChild);
    void skipSpace();
    bool at(char c) const { return m_at != m_end && *m_at == c; }
    bool fail(const QString &error);

    const char *m_begin;
    const char *m_at;
    const char *m_end;
    SJsonContent m_content;
    std::vector<SJsonNode> m_open; ///< what was read of the open arrays and objects, the innermost last
    int m_values = 0;
    const char *m_badText = nullptr; ///< the first bytes in a text that are not UTF-8
    QString m_error;
};
