// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/json/CJsonDocument.h"

#include <QJsonArray>

namespace {

/// Copies JSON values into a document.
class CJsonCopier final
{
public:
    SJsonContent content;

    SJsonNode node(const QJsonValue &value)
    {
        SJsonNode node;
        switch (value.type()) {
        case QJsonValue::Bool:
            node.type = value.toBool() ? SJsonNode::True : SJsonNode::False;
            return node;
        case QJsonValue::Double:
            node.type = SJsonNode::Number;
            node.number = value.toDouble();
            return node;
        case QJsonValue::String:
            return textNode(value.toString());
        case QJsonValue::Array:
            return arrayNode(value.toArray());
        case QJsonValue::Object:
            return objectNode(value.toObject());
        default:
            return node;
        }
    }

private:
    SJsonNode textNode(const QString &text)
    {
        SJsonNode node;
        node.type = SJsonNode::Text;
        QByteArray bytes = text.toUtf8();
        if (!text.isValidUtf16()) {
            node.type = SJsonNode::EscapedText;
            bytes.clear();
            for (const QChar c : text)
                bytes += "\\u" + QByteArray::number(c.unicode(), 16).rightJustified(4, '0');
        }
        node.range = {quint32(content.text.size()), quint32(bytes.size())};
        content.text += bytes;
        return node;
    }
    SJsonNode arrayNode(const QJsonArray &array)
    {
        std::vector<SJsonNode> children;
        children.reserve(size_t(array.size()));
        for (const QJsonValue &element : array)
            children.push_back(node(element));
        return parentNode(SJsonNode::Array, children);
    }
    SJsonNode objectNode(const QJsonObject &object)
    {
        std::vector<SJsonNode> children;
        children.reserve(2 * size_t(object.size()));
        for (auto member = object.begin(); member != object.end(); ++member) {
            children.push_back(textNode(member.key()));
            children.push_back(node(member.value()));
        }
        return parentNode(SJsonNode::Object, children);
    }
    SJsonNode parentNode(SJsonNode::Type type, const std::vector<SJsonNode> &children)
    {
        SJsonNode node;
        node.type = type;
        node.range = {quint32(content.nodes.size()), quint32(children.size())};
        content.nodes.insert(content.nodes.end(), children.begin(), children.end());
        return node;
    }
};

} // namespace

CJsonDocument CJsonDocument::of(const QJsonObject &json)
{
    CJsonCopier copier;
    const SJsonNode root = copier.node(json);
    copier.content.nodes.push_back(root);
    return CJsonDocument(std::move(copier.content));
}
