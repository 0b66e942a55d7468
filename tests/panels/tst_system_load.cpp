// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/CSystemLoadProgressBar.h"
#include "tests/harness/CTestBase.h"
#include "tests/panels/SUnitWorld.h"

#include <QApplication>

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

class CPaintCounter final : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

class CSystemLoadTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void fillsInTheColourOfTheLoad_data()
    {
        QTest::addColumn<int>("load");
        QTest::addColumn<QColor>("color");
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("text");
        QTest::newRow("half") << 50 << LoadGreen << 170 << "50%";
        QTest::newRow("full") << 100 << LoadGreen << 340 << "100%";
        QTest::newRow("just above") << 101 << LoadRed << 340 << "100%";
        QTest::newRow("far above") << 250 << LoadRed << 340 << "100%";
    }
    /// The way of a load from the store to the bar of the panel.
    void fillsInTheColourOfTheLoad()
    {
        QFETCH(int, load);
        QFETCH(QColor, color);
        QFETCH(int, width);
        QFETCH(QString, text);
        SUnitWorld world;
        CLayoutSidePanel panel(world.services);
        auto &bar = *panel.findChild<CSystemLoadProgressBar *>(QStringLiteral("SystemLoadProgressBar"));
        const QColor empty = SFill(bar).color;
        QVERIFY(empty != LoadGreen && empty != LoadRed);
        Q_EMIT world.store.notifyProcessorPayloadChanged(load);
        QCOMPARE(bar.rawLoad(), load);
        QCOMPARE(bar.text(), text);
        const SFill fill(bar);
        QCOMPARE(fill.color, color);
        QCOMPARE(fill.width, width);
    }

    void repaintsWhenOnlyTheRawLoadChanges()
    {
        CSystemLoadProgressBar bar;
        bar.onNotifyProcessorPayloadChanged(100);
        bar.show();
        QVERIFY(QTest::qWaitForWindowExposed(&bar, PatienceMilliseconds));
        QCoreApplication::processEvents();
        CPaintCounter paints;
        bar.installEventFilter(&paints);
        bar.onNotifyProcessorPayloadChanged(101);
        QTRY_VERIFY(paints.count > 0);
    }
};

ORVO_TEST_MAIN(QApplication, CSystemLoadTest)
#include "tst_system_load.moc"
