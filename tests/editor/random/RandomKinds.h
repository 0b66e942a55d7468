// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QMetaEnum>
#include <QString>

/// The operations of random runs and their names in reports.
namespace RandomKinds {

Q_NAMESPACE

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

Q_ENUM_NS(EKind)

constexpr int Count = LookAway + 1;

/// The name of the undo step of an edit; empty if it makes none.
inline QString stepText(int kind)
{
    static const QHash<int, QString> texts = {{NudgeUp, QStringLiteral("Move")},
                                              {NudgeDown, QStringLiteral("Move")},
                                              {NudgeLeft, QStringLiteral("Move")},
                                              {NudgeRight, QStringLiteral("Move")},
                                              {Drag, QStringLiteral("Move")},
                                              {Resize, QStringLiteral("Scale")},
                                              {Group, QStringLiteral("Group")},
                                              {Ungroup, QStringLiteral("Ungroup")},
                                              {Pattern, QStringLiteral("topologyWiring")},
                                              {Break, QStringLiteral("breakSelectedWiring")},
                                              {ClearPort, QStringLiteral("BreakPortWiring")},
                                              {Pen, QStringLiteral("createTopologyWiring")},
                                              {Delete, QStringLiteral("Delete")},
                                              {Cut, QStringLiteral("Delete")},
                                              {Backup, QStringLiteral("Backup")},
                                              {Exchange, QStringLiteral("Head-to-tail exchange")},
                                              {Paste, QStringLiteral("Paste")},
                                              {Append, QStringLiteral("Append")},
                                              {SetType, QStringLiteral("Change cabinet type")},
                                              {Arrange, QStringLiteral("ChangeRank")},
                                              {MoveTo, QStringLiteral("ChangePosition")},
                                              {ResizeTo, QStringLiteral("ChangeSize")}};
    return texts.value(kind);
}

} // namespace RandomKinds
