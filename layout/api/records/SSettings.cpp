// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/SSettings.h"

#include <tuple>

using Node = SSettings::TypeLibrary::STreeNode;

bool operator==(const Node::RcvTypeInfo &a, const Node::RcvTypeInfo &b)
{
    const auto tied = [](const Node::RcvTypeInfo &t) {
        return std::tie(t.key, t.name, t.kind, t.width, t.height, t.receivers, t.millimetres, t.kilograms,
                        t.wattsMaximum, t.wattsAverage, t.voltsMinimum, t.voltsMaximum, t.customGamma,
                        t.damaged);
    };
    return tied(a) == tied(b);
}

bool operator==(const Node &a, const Node &b)
{
    const auto tied = [](const Node &n) {
        return std::tie(n.name, n.kind, n.key, n.entries, n.info, n.children);
    };
    return tied(a) == tied(b);
}
