// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class CGraphicsPortItem;
class IEditing;

/// Explains, in the status bar, why a port refuses edits. GUI thread.
class CRefusal final
{
public:
    /// Empty for a port that accepts edits, and for null.
    static QString reason(const CGraphicsPortItem *port);
    /// Shows the reason, if there is one. Returns whether there is.
    static bool isTold(IEditing &editing, const CGraphicsPortItem *port);
};
