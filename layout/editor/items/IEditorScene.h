// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IEditing.h"
#include "layout/editor/items/IItemIndex.h"
#include "layout/editor/items/IItemMouse.h"
#include "layout/editor/items/IItemNotes.h"

/// What a port item and all below it reach of the scene that they are edited in. GUI thread.
class IEditorScene
{
public:
    virtual ~IEditorScene() = default;

    virtual IItemIndex &items() = 0;
    virtual IEditing &editing() = 0;
    virtual IItemNotes &notes() = 0;
    /// Null while nobody follows the mouse: the scene can be edited by calls only.
    virtual IItemMouse *mouse() = 0;
};
