// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/TypeLibrarySearch.h"

void TypeLibrarySearch::find(const QVector<SSettings::TypeLibrary::STreeNode> &nodes, const SMD5 &key,
                             SSettings::TypeLibrary::STreeNode::RcvTypeInfo &info)
{
    for (const SSettings::TypeLibrary::STreeNode &node : nodes) {
        if (node.isFolder()) {
            find(node.children, key, info);
        } else if (node.key == key) {
            info = node.info;
            return;
        }
    }
}
