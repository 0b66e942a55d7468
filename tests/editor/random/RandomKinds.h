// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMetaEnum>
#include <QString>

/// The operations of random runs and their names in reports.
namespace RandomKinds {

Q_NAMESPACE

enum EKind {
    Nudge,
    Drag,
    Resize,
    Group,
    Ungroup,
    Pattern,
    Break,
    ClearPort,
    Pen,
    Delete,
    Lock,
    History,
    Reload,
    ReloadUndoably,
    HostNews,
    InterruptDrag,
    Backup,
    Exchange,
    Cut,
    Copy,
    Paste,
    Append,
    SetType,
    Arrange,
    MoveTo,
    ResizeTo,
    SameType,
    SelectAll,
    Highlight,
    LookAway,
    Restart
};

Q_ENUM_NS(EKind)

constexpr int Count = Restart + 1;

} // namespace RandomKinds
