// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QSize>
#include <QVector>

/// The library of cabinet types: folders of types, read from a data file. Keys are digests of the types'
/// content, so they are the same in every installation. Immutable; any thread.
class CTypeLibrary final
{
    Q_DECLARE_TR_FUNCTIONS(CTypeLibrary)

public:
    using STreeNode = SSettings::TypeLibrary::STreeNode;
    using RcvTypeInfo = STreeNode::RcvTypeInfo;

    /// The built-in library, read once.
    static const CTypeLibrary &builtIn();
    /// A library from the content of a data file.
    static CResult<CTypeLibrary> fromJson(const QByteArray &content);

    const QVector<STreeNode> &nodes() const { return m_nodes; }
    /// The type with that key, or null. Valid as long as the library.
    const RcvTypeInfo *find(const SMD5 &key) const;
    /// The first type, in the library's order, that has that size in pixels; or null.
    const RcvTypeInfo *findBySize(const QSize &pixels) const;

private:
    QVector<STreeNode> m_nodes;
};
