// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/json/SJsonNode.h"

#include <QString>

/// A value in a CJsonDocument, which must outlive it. Asked for what it is not, it gives the default. Any
/// thread.
class CJsonValue final
{
public:
    CJsonValue() = default; ///< undefined: a member or element that does not exist
    CJsonValue(const SJsonContent &content, const SJsonNode &node)
        : m_content(&content)
        , m_node(&node)
    {
    }

    bool isUndefined() const { return !m_node; }
    bool isNull() const { return is(SJsonNode::Null); }
    bool isBool() const { return is(SJsonNode::True) || is(SJsonNode::False); }
    bool isDouble() const { return is(SJsonNode::Number); }
    bool isString() const { return is(SJsonNode::Text) || is(SJsonNode::EscapedText); }
    bool isArray() const { return is(SJsonNode::Array); }
    bool isObject() const { return is(SJsonNode::Object); }

    bool toBool() const { return is(SJsonNode::True); }
    double toDouble() const { return isDouble() ? m_node->number : 0; }
    /// @p fallback unless it is a whole number of the type.
    int toInt(int fallback) const;
    QString toString() const;
    /// The bytes of a text; nothing if it has escape sequences. Valid as long as the document.
    QLatin1String plainText() const;

    int elements() const { return isArray() ? int(m_node->range.count) : 0; }
    CJsonValue at(int element) const;
    int members() const { return isObject() ? int(m_node->range.count / 2) : 0; }
    QString nameAt(int member) const;
    CJsonValue member(const char *name) const;

private:
    bool is(SJsonNode::Type type) const { return m_node && m_node->type == type; }
    const SJsonNode *children() const { return m_content->nodes.data() + m_node->range.begin; }
    const char *bytesOf(const SJsonNode &text) const
    {
        return m_content->text.constData() + text.range.begin;
    }

    const SJsonContent *m_content = nullptr;
    const SJsonNode *m_node = nullptr;
};
