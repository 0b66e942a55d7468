// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/CBareSide.h"
#include "benchmarks/CEditorSide.h"
#include "benchmarks/Figures.h"

#include <functional>

class CCabinetGraphicsScene;

/// The work of comparisons of edits: each side stands loaded, and every turn leaves it as it was.
namespace EditSides {

using Edit = std::function<void(CCabinetGraphicsScene &)>;

/// What is timed of an edit: itself, its way back, or its way there again.
enum EStep { Do, Undo, Redo };

void selectPort(CCabinetGraphicsScene &scene, int port);
void selectAll(CCabinetGraphicsScene &scene);

/// @p edit with what @p select selects before. The sides must outlive the work.
SWork work(CEditorSide &side, const Edit &select, const Edit &edit, EStep step = Do);

/// Moves each item of the bare scene below its ports: a cabinet or a line.
SWork moveBare(CBareSide &side);
SWork selectBare(CBareSide &side);
/// Builds @p layout into an empty bare scene.
SWork buildBare(CBareSide &side, const CabinetLayout &layout);

} // namespace EditSides
