// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsItem>

/// The kinds of graphics items, as values of QGraphicsItem::type(). Only these tell items apart.
enum EItemKind : int {
    CabinetItemKind = QGraphicsItem::UserType + 1,
    ConnectionItemKind = QGraphicsItem::UserType + 2,
    GroupItemKind = QGraphicsItem::UserType + 3,
    PortItemKind = QGraphicsItem::UserType + 4
};

/// Data roles of items.
enum EItemRole : int {
    IdentityRole = 0 ///< QUuid of a cabinet or group; of a port item its port index
};

/// Z values of a port item's children, and of ports.
enum EItemHeight : int {
    CabinetHeight = 0,
    ConnectionHeight = 900,
    PortHeight = 0,
    SelectedPortHeight = 1, ///< so that no selected item is hidden below another port
    DraggedPortHeight = 2
};
