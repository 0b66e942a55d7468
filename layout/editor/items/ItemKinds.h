// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsItem>

/// The kinds of graphics items, as values of QGraphicsItem::type(). Items are told apart by these only.
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

/// Heights of a port item's children above each other, and of ports.
enum EItemHeight : int {
    CabinetHeight = 0,
    ConnectionHeight = 900,
    PortHeight = 0,
    SelectedPortHeight = 1, ///< nothing that is selected lies hidden under another port
    DraggedPortHeight = 2
};
