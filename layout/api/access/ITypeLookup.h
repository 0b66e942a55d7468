// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"

/// Finds cabinet types in the type library.
class ITypeLookup
{
public:
    virtual ~ITypeLookup() = default;
    /// The type library's record of a type; an empty one for an unknown key. Any thread.
    virtual SSettings::TypeLibrary::STreeNode::RcvTypeInfo getTypeInfo(const SMD5 &key) const = 0;
    /// The whole library. Any thread.
    virtual QVector<SSettings::TypeLibrary::STreeNode> typeLibrary() const = 0;
};
