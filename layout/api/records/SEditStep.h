// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/IPortChange.h"

#include <QString>

#include <memory>

/// A step of an edit history as values: what it changed, port by port. Of the records count identities,
/// cabinets, groups and wiring; locks, colours, pairs and loads are no part of a step.
struct SEditStep
{
    struct SPort
    {
        CabinetLayout::CabinetPort before;
        CabinetLayout::CabinetPort after;
    };

    QString text;         ///< as the history shows it
    QVector<SPort> ports; ///< in ascending port index
};

/// A step of an earlier run.
struct SKeptStep
{
    QString text;                                        ///< as the history shows it
    QVector<std::shared_ptr<const IPortChange>> changes; ///< in ascending port index
};

/// What was kept of a processor's edit history. The first @ref index steps are done, the others have been
/// undone.
struct SEditHistory
{
    QVector<SKeptStep> steps;
    int index = 0;
    int saved = -1;  ///< the index at which the layout was last saved; -1: at none that can be reached
    int dropped = 0; ///< how many older steps are missing
};

/// A change that the editor made to a layout and its history.
struct SEditRecord
{
    enum Kind {
        Done,    ///< a new step; steps that had been undone are gone
        Merged,  ///< a change that became part of the last step
        Moved,   ///< undo or redo, of one or more steps
        Cleared, ///< the history is empty now
    };

    QUuid processor;
    Kind kind = Done;
    int index = 0;   ///< how many steps are done afterwards
    int saved = -1;  ///< see SEditHistory
    int dropped = 0; ///< how many of the oldest steps have been dropped since the last record
    /// Done and Merged: what changed, and the text. Moved: what changed. Cleared: empty.
    SEditStep step;
};
