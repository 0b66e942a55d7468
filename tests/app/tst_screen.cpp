// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/screen/CRasterScreen.h"
#include "host/app/screen/CScreenPicture.h"
#include "host/app/screen/CScreenWindow.h"
#include "host/app/screen/CSimulateScreen.h"
#include "host/app/screen/LitWall.h"
#include "host/devices/CDeviceManager.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWidget>

#include <algorithm>

namespace {

const QColor portColor(40, 90, 200);

PortPairs::Port portOf(int index, const QVector<int> &ranks)
{
    PortPairs::Port port;
    port.index = index;
    port.groups.resize(1);
    for (const int rank : ranks) {
        PortPairs::Port::Cabinet cabinet;
        cabinet.uuid = QUuid::createUuid();
        cabinet.rect = QRect(100 * rank, 100 * index, 100, 100);
        cabinet.rank = rank;
        port.groups[0].cabinets << cabinet;
    }
    return port;
}

/// Two cabinets of 100 × 100 beside each other in the left half of a canvas of 400 × 100.
LayoutData smallWall()
{
    LayoutData data;
    data.processor = QUuid::createUuid();
    data.canvas = {400, 100};
    data.layout.ports = {portOf(0, {0, 1})};
    data.layout.ports[0].color = portColor;
    data.layout.processor = data.processor;
    return data;
}

QImage paint(CScreenPicture &picture, const QSize &size = {400, 100})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    picture.paint(painter, image.rect());
    return image;
}

bool isDark(const QColor &color)
{
    return color.value() < 40;
}

} // namespace

class CScreenTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void windowFlagsDependOnTheSystem()
    {
        const auto isSubWindow = [](const char *type, const char *version) {
            const auto flags = CSimulateScreen::flagsFor(QLatin1String(type), QLatin1String(version));
            return flags.testFlag(Qt::FramelessWindowHint) && flags.testFlag(Qt::SubWindow);
        };
        QVERIFY(isSubWindow("kylin", "4.0.2"));
        QVERIFY(!isSubWindow("kylin", "4.0.3"));
        QVERIFY(!isSubWindow("debian", "4.0.2"));
        CScreenPicture picture; // closing it never ends the application
        QVERIFY(!CRasterScreen(picture).testAttribute(Qt::WA_QuitOnClose));
        QVERIFY(!CSimulateScreen(picture).testAttribute(Qt::WA_QuitOnClose));
    }

    /// Port 1 has two wired cabinets and one that is not, port 2 is its redundancy, port 3 has a wired one.
    void theWallIsLitWhereASignalReaches()
    {
        using Ints = QVector<int>;
        struct SCase
        {
            Ints unplugged;
            bool stale; // the mirror lacks the second cabinet
            bool paired;
            Ints lit; // cabinets by port
        };
        for (const auto &[unplugged, stale, paired, lit] : {SCase{{}, false, true, {3, 0, 1}},
                                                            {{2}, false, true, {3, 0, 0}},
                                                            {{0}, false, true, {3, 0, 1}},
                                                            {{0}, true, true, {2, 0, 1}},
                                                            {{0, 1}, false, true, {1, 0, 1}},
                                                            {{1}, true, true, {3, 0, 1}},
                                                            {{0}, false, false, {1, 0, 1}}}) {
            const QUuid own = QUuid::createUuid();
            CabinetLayout wall{own, {portOf(0, {0, 1, -1}), portOf(1, {}), portOf(2, {0})}};
            PortPairs::setPair(wall.ports[0], own, PortPairs::Port::Primary, {own, 1});
            if (paired)
                PortPairs::setPair(wall.ports[1], own, PortPairs::Port::Redundant, {own, 0});
            wall.ports[1].mirrored = PortPairs::mirrorOf(wall.ports.at(0));
            if (stale)
                wall.ports[1].mirrored.removeLast();
            QSet<SPortKey> pulled;
            for (const int index : unplugged)
                pulled.insert({own, index});
            Ints shown;
            for (const auto &port : LitWall::of(
                                        wall, pulled, [](const QUuid &) { return CabinetLayout(); }, nullptr)
                                        .ports)
                shown << port.cabinetCount();
            QCOMPARE(shown, lit);
        }
    }

    void anotherProcessorLightsTheWallWhileItIsOnline()
    {
        const QUuid own = QUuid::createUuid();
        CabinetLayout wall{own, {portOf(0, {0, 1})}};
        CabinetLayout other{QUuid::createUuid(), {portOf(0, {}), portOf(1, {})}};
        PortPairs::setPair(wall.ports[0], own, PortPairs::Port::Primary, {other.processor, 1});
        PortPairs::setPair(other.ports[1], other.processor, PortPairs::Port::Redundant, {own, 0});
        other.ports[1].mirrored = PortPairs::mirrorOf(wall.ports.at(0));
        const auto lit = [&](const QSet<SPortKey> &unplugged, bool online) {
            return LitWall::of(
                       wall, unplugged, [&other](const QUuid &) { return other; },
                       [&](const QUuid &asked) { return online && asked == other.processor; })
                .ports.first()
                .cabinetCount();
        };
        QCOMPARE(lit({{own, 0}}, true), 2);
        QCOMPARE(lit({{own, 0}}, false), 0);
        QCOMPARE(lit({{own, 0}, {other.processor, 1}}, true), 0);
        QCOMPARE(lit({}, false), 2);
    }

    void theWallIsDarkWhereNoCabinetIs()
    {
        CScreenPicture picture;
        QVERIFY(isDark(paint(picture).pixelColor(50, 50)));
        picture.setWall(smallWall(), {});
        const QImage image = paint(picture, {400, 400}); // the wall keeps its proportions
        QVERIFY(isDark(image.pixelColor(50, 100)));
        QVERIFY(!isDark(image.pixelColor(50, 180)));
        QVERIFY(!isDark(image.pixelColor(150, 180)));
        QVERIFY(isDark(image.pixelColor(300, 200)));
        QVERIFY(isDark(image.pixelColor(50, 300)));
    }

    void theBackgroundLiesBehindTheCabinets()
    {
        const QTemporaryDir folder;
        QImage red(8, 8, QImage::Format_RGB32);
        red.fill(Qt::red);
        SBackgroundInfo background;
        background.file = folder.filePath(QStringLiteral("red.png"));
        background.scale = 5000;
        QVERIFY(red.save(background.file));
        CScreenPicture picture;
        for (const bool enabled : {false, true}) {
            background.enabled = enabled;
            picture.setWall(smallWall(), background);
            const QImage image = paint(picture);
            QVERIFY(image.pixelColor(90, 95) != QColor(Qt::red));
            QCOMPARE(image.pixelColor(300, 50) == QColor(Qt::red), enabled);
        }
    }

    void aNewFillOfTheCanvasIsShownAtOnce()
    {
        const QTemporaryDir folder;
        CDeviceManager manager({folder.path(), 0.0});
        SBackgroundInfo background;
        background.processor = manager.projects().openDemo().value();
        background.file = QStringLiteral("/pictures/red.png");
        manager.services().select({background.processor}, PrcTreeNodeType::Processor);
        const QWidget window;
        CScreenWindow screen(manager.services(), window);
        screen.setShown(true);
        QCoreApplication::processEvents();
        QSignalSpy painted(screen.findChild<CScreenPicture *>(), &CScreenPicture::notifyChanged);
        QVERIFY(bool(manager.commands().setBackground(background)));
        QTRY_COMPARE(painted.size(), 1);
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto shown = std::find_if(windows.begin(), windows.end(), [](const QWidget *one) {
            return one->objectName() == QLatin1String("SimulateScreen");
        });
        QVERIFY(shown != windows.end());
        QVERIFY((*shown)->width() < window.screen()->geometry().width()); // there is no other display
        QSignalSpy closed(&screen, &CScreenWindow::notifyClosedByUser);
        QTest::keyClick(*shown, Qt::Key_Space);
        QCOMPARE(closed.size(), 0);
        QTest::keyClick(*shown, Qt::Key_Escape);
        QCOMPARE(closed.size(), 1);
        QVERIFY(!screen.isShown());
    }

    void statusLedsLightEveryCabinet()
    {
        CScreenPicture picture;
        picture.setWall(smallWall(), {});
        const QImage off = paint(picture);
        picture.setStatusLed(true);
        for (const int left : {50, 150})
            QVERIFY(off.copy(left, 50, 50, 50) != paint(picture).copy(left, 50, 50, 50));
        picture.setStatusLed(false);
        QCOMPARE(paint(picture), off);
        CScreenPicture another; // which was never painted at another size
        another.setWall(smallWall(), {});
        QCOMPARE(paint(picture, {200, 50}), paint(another, {200, 50}));
    }

    void highlightedCabinetsFlash()
    {
        for (const auto highlight : {CabinetHighlight::FlashingBox, CabinetHighlight::LedIndicator}) {
            LayoutData wall = smallWall();
            CScreenPicture picture;
            picture.setWall(wall, {});
            picture.setHighlight({wall.layout.ports.first().getAllCabinets().last()}, highlight);
            wall.layout.ports[0].groups[0].cabinets[1].rect.translate(100, 0);
            picture.setWall(wall, {}); // it follows its cabinet
            CScreenPicture unlit;
            unlit.setWall(wall, {});
            const QImage calm = paint(unlit);
            const QImage flash = paint(picture);
            QVERIFY(flash.copy(200, 0, 100, 100) != calm.copy(200, 0, 100, 100));
            QCOMPARE(flash.copy(0, 0, 200, 100), calm.copy(0, 0, 200, 100));
            QSignalSpy changed(&picture, &CScreenPicture::notifyChanged);
            QVERIFY(changed.wait(PatienceMilliseconds));
            QCOMPARE(paint(picture), calm);
            QVERIFY(changed.wait(PatienceMilliseconds));
            QCOMPARE(paint(picture), flash);
            picture.setHighlight({}, CabinetHighlight::Off);
            QCOMPARE(paint(picture), calm);
        }
    }

    void numbersAndHighlightsBelongToOneProcessor()
    {
        const QTemporaryDir folder;
        CDeviceManager manager({folder.path(), 0.0});
        const QUuid one = manager.projects().openDemo().value();
        const QUuid other = manager.projects().openDemo().value();
        const auto select = [&manager](const QUuid &uuid) {
            manager.services().select({uuid}, PrcTreeNodeType::Processor);
        };
        const QWidget window;
        CScreenWindow screen(manager.services(), window);
        auto &picture = *screen.findChild<CScreenPicture *>();
        select(one);
        picture.setWall(manager.table().device(one)->data(), {});
        const QSize size(2304, 960); // large enough for numbers
        const QImage calm = paint(picture, size);
        const auto cabinets = manager.table().device(one)->working.layout().ports.first().looseCabinets();
        const auto highlight = [&](const QUuid &uuid) {
            manager.announcer().announceHighlight(uuid, {cabinets.first()}, CabinetHighlight::FlashingBox);
            QCoreApplication::processEvents(); // it is announced later
        };

        manager.announcer().announceNumbersShown(other, true);
        highlight(other);
        QCOMPARE(paint(picture, size), calm);
        manager.announcer().announceNumbersShown(one, true);
        const QImage numbered = paint(picture, size);
        QVERIFY(numbered != calm);
        manager.announcer().announceNumbersShown(other, false);
        QCOMPARE(paint(picture, size), numbered);
        highlight(one);
        QVERIFY(paint(picture, size) != numbered);
        select(other);
        QCOMPARE(paint(picture, size), calm);
        select(one);
        QCOMPARE(paint(picture, size), numbered); // still being read, but nothing stands out
    }
};

ORVO_TEST_MAIN(QApplication, CScreenTest)
#include "tst_screen.moc"
