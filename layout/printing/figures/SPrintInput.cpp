// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/figures/SPrintInput.h"

namespace {

using Port = CabinetLayout::CabinetPort;
using Node = SSettings::TypeLibrary::STreeNode;
using RcvTypeInfo = Node::RcvTypeInfo;

/// The types of a library: by key, and the first of each size.
struct STypes
{
    explicit STypes(const QVector<Node> &nodes) { add(nodes); }

    void add(const QVector<Node> &nodes)
    {
        for (const Node &node : nodes) {
            const QPair<int, int> size(node.info.width, node.info.height);
            if (!node.isFolder() && !byKey.contains(node.info.key))
                byKey.insert(node.info.key, &node.info);
            if (!node.isFolder() && !bySize.contains(size))
                bySize.insert(size, &node.info);
            add(node.children);
        }
    }

    QMap<SMD5, const RcvTypeInfo *> byKey;
    QMap<QPair<int, int>, const RcvTypeInfo *> bySize;
};

} // namespace

void SPrintInput::takeTypes()
{
    const STypes known(library);
    const auto take = [&](const Port::Cabinet &cabinet) {
        const QPair<int, int> size(cabinet.rect.width(), cabinet.rect.height());
        if (!cabinet.type.isNull() && !types.contains(cabinet.type)) {
            if (const RcvTypeInfo *info = known.byKey.value(cabinet.type))
                types.insert(cabinet.type, *info);
        } else if (cabinet.type.isNull() && !alike.contains(size)) {
            if (const RcvTypeInfo *info = known.bySize.value(size))
                alike.insert(size, *info);
        }
    };
    for (const SPrintedProcessor &processor : qAsConst(processors)) {
        for (const Port &port : processor.layout.ports) {
            const auto cabinets = port.getAllCabinets();
            for (const Port::Cabinet &cabinet : cabinets)
                take(cabinet);
        }
    }
}
