// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class CCabinetGraphicsScene;

/// Checks the invariants of a scene between operations.
class CSceneVerifier final
{
public:
    /// Describes the violated invariant; empty if there is none. Walks all items.
    static QString faultIn(const CCabinetGraphicsScene &scene);
};
