// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/harness/CTestBase.h"

#include <memory>

/// Base of test classes that get a new world for each function and each data row.
template <typename World>
class CWorldTest : public CTestBase
{
protected:
    std::unique_ptr<World> m_world;

    void setUp() override { m_world = std::make_unique<World>(); }
    void tearDown() override { m_world.reset(); }
};
