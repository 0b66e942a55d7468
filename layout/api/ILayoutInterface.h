// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/control/IAbstractControlInterface.h"

class QKeyEvent;
class QMenu;
class QUuid;
class QWidget;

/// What the host calls on the Layout module. GUI thread only.
class ILayoutInterface : public IAbstractControlInterface
{
public:
    /// Fills @p menu with the commands of @p processor. The actions live as long as the menu.
    virtual void fillProcessorMenu(QMenu &menu, const QUuid &processor) = 0;

    /// Add the commands of the layout editor to the window's menus "Edit" and "View". The entries show the
    /// keys of the editor, but do not make them work. They need the module as long as they live.
    virtual void fillEditMenu(QMenu &menu) = 0;
    virtual void fillViewMenu(QMenu &menu) = 0;

    /// Does what a key is for that nothing in the window has used: undo, redo and append, which need no
    /// selection. Returns false if the key is another one, or no layout is shown.
    virtual bool takeKey(QKeyEvent &key) = 0;

    /// The user has changed the program's settings, which the module may have read.
    virtual void applySettings() = 0;

    /// The history of @p processor, which could not be had when the layout came into view, can be had now.
    virtual void takeHistory(const QUuid &processor) = 0;

    /// Opens the print dialog, with @p parent as its window.
    virtual void print(QWidget &parent) = 0;

    /// Hands pending edits over to the host before returning.
    virtual void flush() = 0;

    /// Blocks editing by the user, for the host's lock control; viewing stays possible.
    virtual void setEditingBlocked(bool blocked) = 0;
    virtual bool isEditingBlocked() const = 0;

    /// Updates the module's "Show screen" button after the host opened or closed the screen itself; does not
    /// call the host back.
    virtual void setScreenShown(bool shown) = 0;
};
