// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CLayoutPicture.h"
#include "tests/harness/CTestBase.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

namespace {

using Port = CabinetLayout::CabinetPort;

const QColor PortFill(60, 90, 160);

/// A typed cabinet and a custom-defined one beside it, 100 x 100 pixels each.
LayoutData twoCabinets()
{
    Port::CabinetGroup loose;
    loose.cabinets.resize(2);
    loose.cabinets[0].rect = QRect(0, 0, 100, 100);
    loose.cabinets[0].type = SMD5::ofContent("P2");
    loose.cabinets[1].rect = QRect(100, 0, 100, 100);
    Port port;
    port.index = 0;
    port.color = PortFill;
    port.groups << loose;
    LayoutData data;
    data.canvas = QSize(200, 100);
    data.layout.ports << port;
    return data;
}

} // namespace

class CLayoutPictureTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void marksCustomDefinedCabinetsAtEveryScale_data()
    {
        QTest::addColumn<int>("side"); // of a cabinet, in pixels of the picture
        QTest::addColumn<bool>("wanted");
        for (const int side : {100, 12, 8, 3}) {
            QTest::addRow("%d pixels", side) << side << true;
            QTest::addRow("%d pixels, not wanted", side) << side << false;
        }
    }
    void marksCustomDefinedCabinetsAtEveryScale()
    {
        QFETCH(int, side);
        QFETCH(bool, wanted);
        QImage image(2 * side, side, QImage::Format_RGB32);
        QPainter painter(&image);
        SLayoutDrawOptions options;
        options.customMarks = wanted;
        CLayoutPicture::paint(painter, twoCabinets(), QRectF(image.rect()), options);
        painter.end();
        // Gold in the lower right corner: more red than blue, unlike the fill.
        const auto isMarked = [&image, side](int cabinet) {
            const int inset = side > 20 ? 3 : 1;
            const QRgb corner = image.pixel((cabinet + 1) * side - inset, side - inset);
            return qRed(corner) > qBlue(corner);
        };
        QVERIFY(!isMarked(0));
        QCOMPARE(isMarked(1), wanted);
    }
};

ORVO_TEST_MAIN(QGuiApplication, CLayoutPictureTest)
#include "tst_layout_picture.moc"
