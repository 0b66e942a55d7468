// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CCanvasFill.h"
#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QBuffer>
#include <QPainter>
#include <QTemporaryDir>

namespace {

const QColor FillRed(255, 0, 0);
const QColor Around(0, 0, 255);

/// Paints @p fill on a canvas of 100 × 50 at (20, 10) of a blue sheet of 140 × 70.
QImage sheetWith(const CCanvasFill &fill)
{
    QImage sheet(140, 70, QImage::Format_RGB32);
    sheet.fill(Around);
    QPainter painter(&sheet);
    painter.setClipRect(0, 0, 140, 70);
    fill.paint(painter, QRectF(20, 10, 100, 50));
    return sheet;
}

/// What of @p sheet is not blue.
QRect painted(const QImage &sheet)
{
    QRect rect;
    for (int y = 0; y < sheet.height(); ++y) {
        for (int x = 0; x < sheet.width(); ++x) {
            if (sheet.pixelColor(x, y) != Around)
                rect |= QRect(x, y, 1, 1);
        }
    }
    return rect;
}

} // namespace

class CCanvasFillTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void liesOnTheCanvasAsAskedFor_data()
    {
        QTest::addColumn<QSize>("image");
        QTest::addColumn<int>("fit");
        QTest::addColumn<int>("scale");
        QTest::addColumn<QRect>("covered");
        const auto row = [](const char *name, QSize image, int fit, int scale, QSize covered) {
            QTest::newRow(name) << image << fit << scale << QRect(QPoint(20, 10), covered);
        };
        const int natural = SBackgroundInfo::NaturalSize;
        const int fitted = SBackgroundInfo::ZoomToFit;
        row("natural size", {40, 20}, natural, 100, {40, 20});
        row("half of it", {40, 20}, natural, 50, {20, 10});
        row("twice", {40, 20}, natural, 200, {80, 40});
        row("cut off at the right", {200, 20}, natural, 100, {100, 20});
        row("larger than the canvas", {200, 200}, natural, 100, {100, 50});
        row("fitted in height", {10, 10}, fitted, 100, {50, 50});
        row("fitted in width", {400, 100}, fitted, 100, {100, 25});
        row("half of fitted", {10, 10}, fitted, 50, {25, 25});
        row("fitted and larger", {10, 10}, fitted, 400, {100, 50});
        row("no scale", {40, 20}, natural, 0, {0, 0});
    }
    void liesOnTheCanvasAsAskedFor()
    {
        QFETCH(QSize, image);
        QFETCH(int, fit);
        QFETCH(int, scale);
        QFETCH(QRect, covered);
        SBackgroundInfo info = infoOf(image);
        info.fit = SBackgroundInfo::FitType(fit);
        info.scale = scale;
        CCanvasFill fill;
        fill.set(info);
        const QRect found = painted(sheetWith(fill));
        if (covered.isEmpty())
            QVERIFY(found.isEmpty());
        else
            QCOMPARE(found, covered);
    }

    void opacityLetsTheCheckerboardThrough()
    {
        SBackgroundInfo info = infoOf({40, 20});
        info.opacity = 50;
        CCanvasFill fill;
        fill.set(info);
        const QColor mixed = sheetWith(fill).pixelColor(30, 15);
        QVERIFY(qAbs(mixed.red() - 127) <= 2 && qAbs(mixed.blue() - 127) <= 2);
        info.opacity = 0;
        fill.set(info);
        QVERIFY(painted(sheetWith(fill)).isEmpty());
        info.opacity = 100;
        info.enabled = false;
        fill.set(info);
        QVERIFY(painted(sheetWith(fill)).isEmpty());
        info.enabled = true;
        fill.set(info);
        QCOMPARE(sheetWith(fill).pixelColor(30, 15), FillRed);
    }

    void anImageThatWasReplacedIsReadAgain()
    {
        const SBackgroundInfo info = infoOf({40, 20});
        CCanvasFill fill;
        fill.set(info);
        QVERIFY(QFile::remove(info.file));
        write(info.file, {60, 30});
        QFile file(info.file);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(5), QFileDevice::FileModificationTime));
        fill.set(info);
        QCOMPARE(painted(sheetWith(fill)).size(), QSize(60, 30));
    }

    void refusesWhatIsNoImage_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        QTest::newRow("empty") << QByteArray("") << "it is no PNG or JPEG image";
        QTest::newRow("text") << QByteArray("hello") << "it is no PNG or JPEG image";
        QTest::newRow("vector") << QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\"/>")
                                << "it is no PNG or JPEG image";
        const QByteArray png = bytesOf({300, 300}, "PNG");
        QTest::newRow("half a PNG") << png.left(png.size() / 2) << "the image is damaged";
        QTest::newRow("start of a JPEG") << bytesOf({300, 300}, "JPG").left(60) << "the image is damaged";
        QTest::newRow("huge") << blank({16385, 1})
                              << "it has 16385×1 pixels; no side may be longer than "
                                 "16384, and the area not larger than 67108864";
        QTest::newRow("too many pixels") << blank({16384, 4097})
                                         << "it has 16384×4097 pixels; no side may be longer than 16384, "
                                            "and the area not larger than 67108864";
    }
    void refusesWhatIsNoImage()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        expectWarning(QRegularExpression(QStringLiteral("The canvas has no fill|JPEG")));
        SBackgroundInfo info;
        info.enabled = true;
        info.file = m_folder.filePath(QStringLiteral("bad.png"));
        QFile file(info.file);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        const auto image = CCanvasFill::load(info.file);
        QVERIFY(!image);
        QCOMPARE(image.error(), QStringLiteral("\"%1\" cannot be read: %2.").arg(info.file, reason));
        CCanvasFill fill;
        fill.set(infoOf({40, 20}));
        fill.set(info);
        QVERIFY(painted(sheetWith(fill)).isEmpty());
    }

    void refusesWhatIsNoFile()
    {
        const QString missing = m_folder.filePath(QStringLiteral("none.png"));
        QCOMPARE(CCanvasFill::load(missing).error(),
                 QStringLiteral("\"%1\" cannot be read: there is no such file.").arg(missing));
        QCOMPARE(CCanvasFill::load(m_folder.path()).error(),
                 QStringLiteral("\"%1\" cannot be read: it is not a regular file.").arg(m_folder.path()));
    }

    void theSceneShowsItBetweenCheckerboardAndBorder()
    {
        const CFixedPortStates states;
        CCabinetGraphicsScene scene(states);
        LayoutData data;
        data.processor = QUuid::createUuid();
        data.canvas = {100, 50};
        ProcessorTree::ProcessorNode node;
        node.uuid = data.processor;
        scene.setLayoutData(node, data);
        scene.onBackgroundChanged(infoOf({60, 30}), {});
        QImage picture(100, 50, QImage::Format_RGB32);
        const auto drawn = [&scene, &picture](const QPoint &place) {
            QPainter painter(&picture);
            scene.render(&painter, picture.rect(), QRectF(0, 0, 100, 50));
            return picture.pixelColor(place);
        };
        QCOMPARE(drawn({30, 15}), FillRed);
        QVERIFY(drawn({80, 40}).red() < 80);
        QVERIFY(drawn({30, 0}) != FillRed);
        scene.onBackgroundChanged({}, infoOf({60, 30}));
        QVERIFY(drawn({30, 15}).red() < 80);
    }

private:
    static QByteArray bytesOf(const QSize &size, const char *format)
    {
        QImage image(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                image.setPixel(x, y, QRgb(x * 7919 + y * 104729)); // must not compress to nothing
        }
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, format);
        return bytes;
    }

    static QByteArray blank(const QSize &size)
    {
        QImage image(size, QImage::Format_Mono); // an eighth of a byte a pixel
        image.fill(0);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "PNG");
        return bytes;
    }

    static void write(const QString &file, const QSize &size)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(FillRed);
        QVERIFY(image.save(file));
    }

    SBackgroundInfo infoOf(const QSize &size)
    {
        SBackgroundInfo info;
        info.enabled = true;
        info.file = m_folder.filePath(QStringLiteral("%1x%2.png").arg(size.width()).arg(size.height()));
        write(info.file, size);
        return info;
    }

    QTemporaryDir m_folder;
};

ORVO_TEST_MAIN(QApplication, CCanvasFillTest)
#include "tst_canvas_fill.moc"
