// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

// The parts of a scene's backend, which most tests of the editor look into.
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CHighlights.h"
#include "layout/editor/content/CLayoutFaults.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/operations/CGuardedUndo.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/operations/CSelectionShape.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/scene/SInputTargets.h"
