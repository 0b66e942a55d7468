// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/library/CTypeLibrary.h"

#include "layout/api/records/CRecordJson.h"
#include "platform/json/CStrictJson.h"
#include "platform/json/CStrictObject.h"

#include <QFile>
#include <QJsonDocument>
#include <QSet>

#include <algorithm>

// A static library's resources are linked only if they are named; the macro must be outside of namespaces.
static void initTypeLibraryResource()
{
    Q_INIT_RESOURCE(type_library);
}

namespace {

using TypeNode = CTypeLibrary::STreeNode;
using TypeInfo = CTypeLibrary::RcvTypeInfo;

constexpr int LongestFolderName = 64;

/// Whether the receiver areas fill the type without gap or overlap.
bool fillsType(const QVector<QRect> &receivers, const QRect &type)
{
    qint64 pixels = 0;
    for (int i = 0; i < receivers.size(); ++i) {
        const QRect &area = receivers.at(i);
        if (area.isEmpty() || !type.contains(area))
            return false;
        if (std::any_of(receivers.begin(), receivers.begin() + i,
                        [&](const QRect &r) { return r.intersects(area); }))
            return false;
        pixels += qint64(area.width()) * area.height();
    }
    return receivers.isEmpty() || pixels == qint64(type.width()) * type.height();
}

QString typeProblem(const TypeInfo &info)
{
    if (!info.key.isNull() || info.damaged)
        return CTypeLibrary::tr("a type has no key and no damage of its own");
    if (!fillsType(info.receivers, QRect(0, 0, info.width, info.height)))
        return CTypeLibrary::tr("the receiver areas do not fill the type");
    if ((info.receivers.size() > 1) != (info.kind == TypeInfo::MultiReceiver))
        return CTypeLibrary::tr("the kind does not match the number of receiver areas");
    return {};
}

/// The search words for a type.
QStringList searchWords(const TypeInfo &info)
{
    QStringList words = info.name.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    words << QStringLiteral("%1x%2").arg(info.width).arg(info.height);
    words << QStringLiteral("%1x%2mm").arg(info.millimetres.width()).arg(info.millimetres.height());
    return words;
}

/// Reads a data file; stops at the first error.
class CTypeLibraryReader final
{
public:
    QVector<TypeNode> read(const CJsonDocument &document)
    {
        const SJsonPlace place;
        CStrictObject object(document.root(), place, m_error);
        const QVector<TypeNode> nodes =
            readAll(object, "folders", [this](const CJsonValue &json, const SJsonPlace &where) {
                return readFolder(json, where);
            });
        object.finish();
        return nodes;
    }
    const QString &error() const { return m_error; }

private:
    template <typename Read>
    QVector<TypeNode> readAll(CStrictObject &object, const char *key, Read readNode)
    {
        const CJsonValue items = object.array(key);
        const SJsonPlace place = object.placeOf(key);
        QVector<TypeNode> nodes;
        for (int i = 0; i < items.elements() && m_error.isEmpty(); ++i)
            nodes.append(readNode(items.at(i), {&place, nullptr, i}));
        return nodes;
    }

    TypeNode readFolder(const CJsonValue &json, const SJsonPlace &place)
    {
        CStrictObject object(json, place, m_error);
        TypeNode folder;
        folder.kind = TypeNode::Folder;
        folder.name = object.text("name", LongestFolderName);
        folder.children = readAll(object, "types", [this](const CJsonValue &type, const SJsonPlace &where) {
            return readType(type, where);
        });
        object.finish();
        return folder;
    }

    TypeNode readType(const CJsonValue &json, const SJsonPlace &place)
    {
        TypeNode node;
        const QByteArray where = place.text().toUtf8();
        const CResult<TypeInfo> info = CRecordJson::typeInfo(json, where.constData());
        m_error = info ? typeProblem(info.value()) : info.error();
        if (!m_error.isEmpty()) {
            if (info)
                m_error = QStringLiteral("%1: %2").arg(place.text(), m_error);
            return node;
        }
        node.info = info.value();
        const QJsonObject content = CRecordJson::toJson(node.info);
        node.info.key = SMD5::ofContent(QJsonDocument(content).toJson(QJsonDocument::Compact));
        node.key = node.info.key;
        node.name = node.info.name;
        node.entries = searchWords(node.info);
        if (m_keys.contains(node.key.toText()))
            m_error = CTypeLibrary::tr("%1: the same type occurs twice").arg(place.text());
        m_keys.insert(node.key.toText());
        return node;
    }

    QString m_error;
    QSet<QByteArray> m_keys;
};

/// The first type below @p nodes that @p matches, or null.
template <typename Matches>
const TypeInfo *findType(const QVector<TypeNode> &nodes, Matches matches)
{
    for (const TypeNode &node : nodes) {
        if (!node.isFolder() && matches(node.info))
            return &node.info;
        if (const TypeInfo *info = findType(node.children, matches))
            return info;
    }
    return nullptr;
}

} // namespace

CResult<CTypeLibrary> CTypeLibrary::fromJson(const QByteArray &content)
{
    const CResult<CJsonDocument> document = CStrictJson::parse(content);
    if (!document)
        return CResult<CTypeLibrary>::failure(document.error());
    CTypeLibraryReader reader;
    CTypeLibrary library;
    library.m_nodes = reader.read(document.value());
    return reader.error().isEmpty() ? CResult<CTypeLibrary>(std::move(library))
                                    : CResult<CTypeLibrary>::failure(reader.error());
}

const CTypeLibrary &CTypeLibrary::builtIn()
{
    static const CTypeLibrary library = [] {
        initTypeLibraryResource();
        QFile file(QStringLiteral(":/library/type_library.json"));
        const bool opened = file.open(QIODevice::ReadOnly);
        CResult<CTypeLibrary> read = fromJson(opened ? file.readAll() : QByteArray());
        if (!read)
            qFatal("type library: %s", qPrintable(read.error()));
        return std::move(read.value());
    }();
    return library;
}

const CTypeLibrary::RcvTypeInfo *CTypeLibrary::find(const SMD5 &key) const
{
    return findType(m_nodes, [&key](const RcvTypeInfo &info) { return info.key == key; });
}

const CTypeLibrary::RcvTypeInfo *CTypeLibrary::findBySize(const QSize &pixels) const
{
    return findType(m_nodes,
                    [&pixels](const RcvTypeInfo &info) { return QSize(info.width, info.height) == pixels; });
}
