// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CWholeModuleWarningWidget.h"
#include "tests/harness/CTestBase.h"

#include <QLabel>

class CWarningPageTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void allPagesShareTheState()
    {
        CWholeModuleWarningWidget one;
        CWholeModuleWarningWidget other;
        one.setState(WarningState::NoneSelected);
        other.setState(WarningState::Offline);
        const auto title = [](const QWidget &page) { return page.findChild<QLabel *>()->text(); };
        QCOMPARE(title(one), QStringLiteral("No processor selected"));
        one.setState(WarningState::Refresh);
        QCOMPARE(title(one), QStringLiteral("The current processor is offline"));
        QCOMPARE(title(CWholeModuleWarningWidget()), title(one));
    }
};

ORVO_TEST_MAIN(QApplication, CWarningPageTest)
#include "tst_warning_page.moc"
