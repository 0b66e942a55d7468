// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class CCabinetGraphicsScene;

/// Checks what must hold of a scene between any two operations.
class CSceneVerifier final
{
public:
    /// What does not hold, in words; empty when all is well. Walks every item.
    static QString faultIn(const CCabinetGraphicsScene &scene);
};
