// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>

/// What the port list asks beyond the store: files, pairs and dialogs. Questions and outcomes are shown to
/// the user. Ports are those of the processor in view. GUI thread.
class IPortCommands
{
public:
    virtual ~IPortCommands() = default;
    virtual void importMapping(int port) = 0;
    virtual void exportMapping(int port) = 0;
    /// Makes @p backup the redundancy of @p primary.
    virtual void setRedundancy(int primary, int backup) = 0;
    virtual void cancelRedundancy(int port) = 0; ///< ends the pair that @p port belongs to
    /// Whether everything that @p port holds is selected; false if it holds nothing.
    virtual bool isWhollySelected(int port) const = 0;
    /// Says in the status bar why @p port, which is locked or a redundancy port, refuses edits.
    virtual void tellRefusal(int port) = 0;
    virtual void pairPorts() = 0; ///< opens the dialog that pairs ports
    virtual void adjustCurrentGain() = 0;
};
