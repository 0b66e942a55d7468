// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CChangeCabinetTypeCommand.h"

/// Gives a cabinet a record in which only its receivers are others. It keeps its type, and its highlight.
class CChangeReceiversCommand final : public CChangeCabinetTypeCommand
{
public:
    using CChangeCabinetTypeCommand::CChangeCabinetTypeCommand;

protected:
    bool endsHighlight() const override { return false; }
};
