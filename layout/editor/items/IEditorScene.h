// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/IEditing.h"
#include "layout/editor/items/IItemIndex.h"
#include "layout/editor/items/IItemMouse.h"
#include "layout/editor/items/IItemNotes.h"

/// What port items and their children know of their scene. GUI thread.
class IEditorScene
{
public:
    virtual ~IEditorScene() = default;

    virtual IItemIndex &items() = 0;
    virtual IEditing &editing() = 0;
    virtual IItemNotes &notes() = 0;
    /// Null if no input is installed: then items ignore the mouse.
    virtual IItemMouse *mouse() = 0;
    /// How many cabinets and groups of a port are selected by themselves.
    virtual int selectedCount(int port) const = 0;
};
