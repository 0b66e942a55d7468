// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CGuardedUndo;
class CSceneContent;
class CSceneOperations;
class CScenePlacing;
class CSceneSelection;
class CSelectionPicks;
class IPortStates;

/// What menus and keys show and edit. The parts belong to the scene's backend and live as long as it.
struct SEditTargets
{
    const IPortStates &states;
    CSceneContent &content;
    const CSceneSelection &selection;
    CSelectionPicks &picks;
    CGuardedUndo &history;
    CSceneOperations &operations;
    CScenePlacing &placing;
};
