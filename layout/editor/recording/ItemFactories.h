// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

class CGraphicsCabinetItem;
class CGraphicsGroupItem;

/// Factories for items that commands re-create. A factory carries what a command does not record itself:
/// record, name and ordinal.
namespace ItemFactories {

/// Always a new item.
CUndoCommandBase::Factory anew(const CGraphicsCabinetItem &cabinet);
CUndoCommandBase::Factory anew(const CGraphicsGroupItem &group);

/// Returns the given item the first time, for the redo() that runs when a command is pushed; new ones
/// afterwards.
CUndoCommandBase::Factory existingFirst(CGraphicsCabinetItem &cabinet);
CUndoCommandBase::Factory existingFirst(CGraphicsGroupItem &group);

} // namespace ItemFactories
