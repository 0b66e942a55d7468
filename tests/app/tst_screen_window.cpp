// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/screen/CScreenPicture.h"
#include "host/app/screen/CSimulateScreen.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>

namespace {

/// One cabinet in the left half of a canvas of 200 x 100.
LayoutData leftHalf(const QColor &color)
{
    CabinetLayout::CabinetPort::CabinetGroup loose;
    loose.cabinets.resize(1);
    loose.cabinets[0].rect = QRect(0, 0, 100, 100);
    CabinetLayout::CabinetPort port;
    port.index = 0;
    port.color = color;
    port.groups << loose;
    LayoutData data;
    data.processor = QUuid::createUuid();
    data.canvas = QSize(200, 100);
    data.layout.ports << port;
    return data;
}

} // namespace

class CScreenWindowTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void openGlDrawsTheWallAndFollowsIt()
    {
        QVERIFY2(CSimulateScreen::isOpenGlUsable(), "the X server of the tests offers no OpenGL");
        CScreenPicture picture;
        picture.setWall(leftHalf(Qt::blue), {});
        CSimulateScreen window(picture);
        window.resize(200, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, PatienceMilliseconds));
        const auto colorAt = [&window](int x) { return window.grabFramebuffer().pixelColor(x, 60); };
        QTRY_VERIFY(colorAt(50).blue() > 100 && colorAt(50).red() < 100);
        QVERIFY(colorAt(150).value() < 40);
        picture.setWall(leftHalf(Qt::red), {});
        QTRY_VERIFY(colorAt(50).red() > 100 && colorAt(50).blue() < 100);
    }
};

ORVO_TEST_MAIN(QApplication, CScreenWindowTest)
#include "tst_screen_window.moc"
