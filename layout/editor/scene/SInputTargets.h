// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/scene/SEditTargets.h"
#include "layout/editor/scene/ToolMode.h"

#include <QSet>

class CHighlights;
class CUndoRecorder;
class IEditing;

/// What the mouse edits, and how. The parts belong to the scene's backend and live as long as it.
struct SInputTargets
{
    SEditTargets edit;
    IEditing &editing;
    CUndoRecorder &recorder;
    CHighlights &highlights;
    const QSet<ToolMode> &toolModes; ///< in use now
};
