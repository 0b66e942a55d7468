// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// The operations of random runs and their names in reports.
namespace RandomKinds {

enum EKind {
    NudgeUp,
    NudgeDown,
    NudgeLeft,
    NudgeRight,
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
    Menu,
    LookAway
};

constexpr const char *kindNames[] = {"nudge up",
                                     "nudge down",
                                     "nudge left",
                                     "nudge right",
                                     "drag",
                                     "resize",
                                     "group",
                                     "ungroup",
                                     "pattern",
                                     "break",
                                     "clear port",
                                     "pen",
                                     "delete",
                                     "lock",
                                     "history",
                                     "reload",
                                     "reload undoably",
                                     "host news",
                                     "interrupt drag",
                                     "backup",
                                     "exchange",
                                     "cut",
                                     "copy",
                                     "paste",
                                     "append",
                                     "set type",
                                     "arrange",
                                     "move to",
                                     "resize to",
                                     "same type",
                                     "select all",
                                     "highlight",
                                     "menu",
                                     "look away"};

constexpr int Count = int(sizeof(kindNames) / sizeof(*kindNames));

} // namespace RandomKinds
