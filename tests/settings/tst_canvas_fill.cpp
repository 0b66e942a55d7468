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
    void liesOnTheCanvasAsAskedFor()
    {
        struct SCase
        {
            QSize image;
            SBackgroundInfo::FitType fit;
            int scale;
            QSize covered;
        };
        constexpr auto Natural = SBackgroundInfo::NaturalSize;
        constexpr auto Fitted = SBackgroundInfo::ZoomToFit;
        for (const auto &[image, fit, scale, covered] :
             {SCase{{40, 20}, Natural, 100, {40, 20}}, SCase{{40, 20}, Natural, 50, {20, 10}},
              SCase{{200, 200}, Natural, 100, {100, 50}}, SCase{{10, 10}, Fitted, 100, {50, 50}},
              SCase{{400, 100}, Fitted, 100, {100, 25}}, SCase{{10, 10}, Fitted, 50, {25, 25}},
              SCase{{10, 10}, Fitted, 400, {100, 50}}, SCase{{40, 20}, Natural, 0, {0, 0}}}) {
            SBackgroundInfo info = infoOf(image);
            info.fit = fit;
            info.scale = scale;
            CCanvasFill fill;
            fill.set(info);
            const QRect found = painted(sheetWith(fill));
            QCOMPARE(found.size(), covered);
            QVERIFY(found.isEmpty() || found.topLeft() == QPoint(20, 10));
        }
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

    void refusesWhatIsNoImage()
    {
        expectWarning(QRegularExpression(QStringLiteral("The canvas has no fill")));
        QImage noise(300, 300, QImage::Format_RGB32);
        for (int y = 0; y < noise.height(); ++y) {
            for (int x = 0; x < noise.width(); ++x)
                noise.setPixel(x, y, QRgb(x * 7919 + y * 104729)); // must not compress to nothing
        }
        const QByteArray png = bytesOf(noise);
        const auto blank = [](const QSize &size) {
            QImage image(size, QImage::Format_Mono); // an eighth of a byte a pixel
            image.fill(0);
            return bytesOf(image);
        };
        SBackgroundInfo info;
        info.enabled = true;
        info.file = m_folder.filePath(QStringLiteral("bad.png"));
        const QVector<QPair<QByteArray, const char *>> contents{
            {"hello", "it is no PNG or JPEG image."},
            {png.left(png.size() / 2), "the image is damaged."},
            {blank({16385, 1}), "it has 16385×1 pixels;"},
            {blank({16384, 4097}), "it has 16384×4097 pixels;"},
            {{}, "there is no such file."}};
        for (const auto &[content, reason] : contents) {
            QFile file(info.file);
            if (content.isEmpty())
                QVERIFY(file.remove());
            else
                QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
            file.close();
            const auto image = CCanvasFill::load(info.file);
            QVERIFY(!image);
            const QString text =
                QStringLiteral("\"%1\" cannot be read: %2").arg(info.file, QString::fromUtf8(reason));
            QVERIFY2(image.error().startsWith(text), qPrintable(image.error()));
            CCanvasFill fill;
            fill.set(infoOf({40, 20}));
            fill.set(info);
            QVERIFY(painted(sheetWith(fill)).isEmpty());
        }
        write(info.file, {16384, 1});
        QVERIFY(CCanvasFill::load(info.file));
        QVERIFY(CCanvasFill::load(m_folder.path()).error().endsWith(QLatin1String("not a regular file.")));
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
    static QByteArray bytesOf(const QImage &image)
    {
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
