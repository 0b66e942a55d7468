// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/CSystemLoadLabel.h"
#include "layout/panels/CSystemLoadProgressBar.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/SStoreWorld.h"
#include "tests/panels/SUnitWorld.h"

#include <QApplication>
#include <QLabel>

namespace {

const QColor LoadGreen(44, 153, 65);
const QColor LoadRed(170, 42, 42);

/// How many pixels of the bar are filled, and in which colour, read from its upper part, which has no text.
struct SFill
{
    explicit SFill(CSystemLoadProgressBar &bar)
    {
        const QImage image = bar.grab().toImage();
        color = image.pixelColor(5, 4);
        while (width < image.width() && image.pixelColor(width, 4) == color)
            ++width;
    }
    QColor color;
    int width = 0;
};

} // namespace

class CSystemLoadTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    /// The way of a load from the store to the bar of the panel.
    void fillsInTheColourOfTheLoad()
    {
        SUnitWorld world;
        CLayoutSidePanel panel(world.services);
        auto &bar = *panel.findChild<CSystemLoadProgressBar *>(QStringLiteral("SystemLoadProgressBar"));
        const QColor empty = SFill(bar).color;
        QVERIFY(empty != LoadGreen && empty != LoadRed);
        const QVector<std::tuple<int, QColor, int>> loads{
            {50, LoadGreen, 170}, {100, LoadGreen, 340}, {101, LoadRed, 340}};
        for (const auto &[load, color, width] : loads) {
            Q_EMIT world.store.notifyProcessorPayloadChanged(load);
            QCOMPARE(bar.rawLoad(), load);
            QCOMPARE(bar.text(), QStringLiteral("%1%").arg(qMin(load, 100)));
            const SFill fill(bar);
            QCOMPARE(fill.color, color);
            QCOMPARE(fill.width, width);
        }
        panel.findChild<CSystemLoadLabel *>()->setLayoutShown(false);
        QCOMPARE(SFill(bar).color, empty);
    }

    void theWorstPortStandsBelowTheBar()
    {
        SStoreWorld world;
        CNotedMappingCommands mapping;
        CLayoutSidePanel panel(SUnitServices{world.store, mapping});
        panel.show();
        world.answers()->loads = {{0, 20}, {2, 90}};
        const QUuid processor = world.host.addProcessor(QStringLiteral("A"), 3, 1);
        world.show(processor);
        world.store.openProcessor(processor);
        const auto &unit = *panel.findChild<CSystemLoadLabel *>();
        const auto *worst = unit.findChild<QLabel *>(QStringLiteral("Hint"));
        QTRY_COMPARE(worst->text(), QStringLiteral("Highest load: port 3, 90%"));
        settle(world.host, world.store);
        CLayoutSidePanel later(SUnitServices{world.store, mapping}); // is told of changes only
        QCOMPARE(later.findChild<CSystemLoadProgressBar *>()->rawLoad(), 37);
        world.answers()->loads[1] = 101;
        world.store.updatePortLoad(1, true);
        QTRY_VERIFY(worst->isHidden()); // the red line names it
    }
};

ORVO_TEST_MAIN(QApplication, CSystemLoadTest)
#include "tst_system_load.moc"
