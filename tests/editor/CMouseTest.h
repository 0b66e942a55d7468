// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/resources/LayoutResources.h"
#include "tests/editor/CMouseTester.h"
#include "tests/editor/CNotedCommands.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/harness/CTestBase.h"

#include <memory>

/// Base of mouse tests: each test gets its own view of the small world, whose scene must be consistent at the
/// end.
class CMouseTest : public CTestBase
{
    Q_OBJECT

protected:
    using Items = CMouseTester::Items;

    void beginAnew()
    {
        m_mouse = std::make_unique<CMouseTester>();
        QVERIFY(QTest::qWaitForWindowExposed(&m_mouse->view(), PatienceMilliseconds));
        m_mouse->view().setCommands(&m_commands);
        m_mouse->showAtActualSize();
    }

    CNotedCommands m_commands;
    std::unique_ptr<CMouseTester> m_mouse;

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }
    void init()
    {
        CTestBase::init();
        beginAnew();
    }
    void cleanup()
    {
        QCOMPARE(CSceneVerifier::faultIn(m_mouse->scene()), QString());
        m_mouse.reset();
        m_commands = CNotedCommands();
        CTestBase::cleanup();
    }
};
