// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SSettings.h"

using TypeNode = SSettings::TypeLibrary::STreeNode;
using TypeInfo = TypeNode::RcvTypeInfo;
using SampleCabinets = QList<CabinetLayout::CabinetPort::Cabinet>;

/// The type with that name. "Lighter" weighs less than the others, "Table" has a gamma table of its own,
/// "Bare" has nothing but its size in pixels; "Lost" is in no library.
inline TypeInfo typeOf(const QString &name)
{
    TypeInfo type;
    if (name == QLatin1String("Lost"))
        return type;
    type.key = SMD5::ofContent(name.toUtf8());
    type.name = name;
    type.width = 192;
    type.height = 384;
    if (name == QLatin1String("Bare"))
        return type;
    type.millimetres = {500, 1000.5};
    type.kilograms = name == QLatin1String("Lighter") ? 7 : 11.8;
    type.wattsMaximum = 320;
    type.wattsAverage = 130;
    type.voltsMinimum = 100;
    type.voltsMaximum = 240;
    type.customGamma = name == QLatin1String("Table");
    return type;
}

inline TypeInfo typeOf(const char *name)
{
    return typeOf(QString::fromLatin1(name));
}

inline TypeInfo typeOfKey(const SMD5 &key)
{
    for (const char *name : {"A", "Lighter", "Table", "Bare"}) {
        if (typeOf(name).key == key)
            return typeOf(name);
    }
    return {};
}

/// A type with that size.
inline TypeInfo typeOfSize(const char *name, const QSize &size)
{
    TypeInfo type = typeOf(name);
    type.width = size.width();
    type.height = size.height();
    return type;
}

inline TypeNode leaf(const TypeInfo &info)
{
    TypeNode node;
    node.name = info.name;
    node.key = info.key;
    node.info = info;
    return node;
}

inline TypeNode folder(const char *name, const QVector<TypeNode> &children)
{
    TypeNode node;
    node.name = QLatin1String(name);
    node.kind = TypeNode::Folder;
    node.children = children;
    return node;
}

/// Cabinets of these types, "" for none; 128 × 96 pixels each.
inline SampleCabinets cabinetsOf(const QStringList &types)
{
    SampleCabinets cabinets;
    for (const QString &type : types) {
        CabinetLayout::CabinetPort::Cabinet cabinet;
        cabinet.rect = QRect(500, 300, 128, 96);
        if (!type.isEmpty())
            cabinet.type = SMD5::ofContent(type.toUtf8());
        cabinets << cabinet;
    }
    return cabinets;
}

inline SampleCabinets cabinetsOf(std::initializer_list<const char *> types)
{
    QStringList names;
    for (const char *type : types)
        names << QString::fromLatin1(type);
    return cabinetsOf(names);
}
