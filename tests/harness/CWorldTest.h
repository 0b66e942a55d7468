// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/harness/CTestBase.h"

#include <memory>

/// Base of test classes whose functions, and each row of their data, get a world of their own.
template <typename World>
class CWorldTest : public CTestBase
{
protected:
    std::unique_ptr<World> m_world;

    void setUp() override { m_world = std::make_unique<World>(); }
    void tearDown() override { m_world.reset(); }
};
