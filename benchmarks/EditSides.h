// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/CBareSide.h"
#include "benchmarks/CEditorSide.h"
#include "benchmarks/Figures.h"

#include <functional>

class CCabinetGraphicsScene;

/// The work for comparisons of edits: each side is loaded, and every run leaves it unchanged.
namespace EditSides {

using Edit = std::function<void(CCabinetGraphicsScene &)>;

/// What is timed: the edit itself, its undo or its redo.
enum EStep { Do, Undo, Redo };

void selectPort(CCabinetGraphicsScene &scene, int port);
void selectAll(CCabinetGraphicsScene &scene);

/// Returns @p edit, applied to what @p select selects. The sides must outlive the work.
SWork work(CEditorSide &side, const Edit &select, const Edit &edit, EStep step = Do);

/// Loads @p data into a new editor.
SWork load(const LayoutData &data);

/// Moves each child of the ports in the bare scene: cabinets and lines.
SWork moveBare(CBareSide &side);
SWork selectBare(CBareSide &side);
/// Builds @p layout into an empty bare scene.
SWork buildBare(CBareSide &side, const CabinetLayout &layout);

} // namespace EditSides
