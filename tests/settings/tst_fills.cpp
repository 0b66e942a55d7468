// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CCanvasFill.h"
#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/settings/CCabinetFillSetting.h"
#include "platform/widgets/CTheme.h"
#include "platform/widgets/color/CColorSVPanel.h"
#include "platform/widgets/color/CColorSlider.h"
#include "platform/widgets/color/CHsvColor.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QPainter>
#include <QSpinBox>
#include <QTemporaryDir>

namespace {

const QColor PortBlue(64, 92, 148);

/// A fill dialog as a user sees it.
struct SFillDialog
{
    explicit SFillDialog(const QColor &color)
        : dialog(color, PortBlue, nullptr)
    {
        dialog.show();
    }

    CColorSVPanel *panel() const { return dialog.findChild<CColorSVPanel *>(); }
    QSlider *slider(const char *name) const { return named<CColorSlider>(dialog, name); }
    QSpinBox *number(const char *name) const { return named<QSpinBox>(dialog, name); }
    QCheckBox *allPorts() const { return dialog.findChild<QCheckBox *>(); }
    /// Everything that the controls show: red, green, blue, hue, brightness, percent.
    QVector<int> shown() const
    {
        return {number("Red")->value(),        number("Green")->value(),
                number("Blue")->value(),       slider("Hue")->value(),
                slider("Brightness")->value(), number("Brightness in percent")->value()};
    }

    CCabinetFillSetting dialog;
};

using Values = QVector<int>;

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

/// The fill of ports, a colour, and that of the canvas, an image.
class CFillsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }

    void allControlsEditOneColor()
    {
        const SFillDialog opened(QColor(255, 0, 0));
        QCOMPARE(opened.shown(), (Values{255, 0, 0, 0, 255, 100}));
        opened.slider("Hue")->setValue(120);
        QCOMPARE(opened.shown(), (Values{0, 255, 0, 120, 255, 100}));
        opened.slider("Brightness")->setValue(128);
        QCOMPARE(opened.shown(), (Values{0, 128, 0, 120, 128, 50}));
        opened.number("Brightness in percent")->setValue(20);
        QCOMPARE(opened.shown(), (Values{0, 51, 0, 120, 51, 20}));
        opened.number("Blue")->setValue(255);
        QCOMPARE(opened.shown(), (Values{0, 51, 255, 228, 255, 100}));
        QCOMPARE(opened.panel()->marker(), QPoint(211, 0));
        QTest::mouseClick(opened.panel(), Qt::LeftButton, {}, QPoint(0, 211));
        QCOMPARE(opened.shown(), (Values{0, 0, 0, 228, 0, 0}));
        QTest::mouseClick(opened.panel(), Qt::LeftButton, {}, QPoint(211, 0));
        QCOMPARE(opened.shown()[3], 228);
        QCOMPARE(opened.dialog.fill().color, QColor(QColor::fromHsv(228, 255, 255).rgb()));
    }

    void keepsExactlyTheColorThatWasTyped()
    {
        // any, nearly grey, red just below the full circle, black, white
        for (const QColor &color : {QColor(13, 200, 77), QColor(100, 101, 100), QColor(255, 0, 1),
                                    QColor(0, 0, 0), QColor(255, 255, 255)}) {
            const SFillDialog opened(PortBlue);
            for (const auto &[name, value] :
                 {std::make_pair("Red", color.red()), std::make_pair("Green", color.green()),
                  std::make_pair("Blue", color.blue())}) {
                opened.number(name)->selectAll();
                QTest::keyClicks(opened.number(name), QString::number(value));
            }
            QCOMPARE(opened.dialog.fill().color, color);
            QCOMPARE(opened.shown().mid(0, 3), (Values{color.red(), color.green(), color.blue()}));
            QVERIFY(opened.slider("Hue")->value() <= 359);
        }
    }

    void stopsAtItsEndsAndComesBackFromBlackAndGrey()
    {
        const SFillDialog opened(QColor(200, 100, 50));
        const Values before = opened.shown();
        opened.slider("Brightness")->setValue(0);
        QCOMPARE(opened.dialog.fill().color, QColor(Qt::black));
        opened.slider("Brightness")->setValue(200);
        QCOMPARE(opened.shown(), before);
        QTest::mouseClick(opened.panel(), Qt::LeftButton, {}, QPoint(0, 100));
        QCOMPARE(opened.shown()[0], opened.shown()[2]);
        QCOMPARE(opened.shown()[3], before[3]);
        QTest::keyClick(opened.slider("Hue"), Qt::Key_End);
        QCOMPARE(opened.slider("Hue")->value(), 359);
        QTest::mousePress(opened.panel(), Qt::LeftButton, {}, QPoint(100, 100));
        QTest::mouseMove(opened.panel(), QPoint(-50, 900));
        QVERIFY(opened.panel()->rect().contains(opened.panel()->marker()));
    }

    void greyAndBlackKeepWhatTheyDoNotShow()
    {
        CHsvColor color;
        color.setHsv(120, 200, 100);
        color.setRgb(QColor(50, 50, 50));
        QCOMPARE(color.hue(), 120);
        color.setHsv(120, 200, 100);
        color.setRgb(Qt::black);
        QCOMPARE(color.saturation(), 200);
    }

    void theDefaultIsNoColorOfItsOwn()
    {
        const SFillDialog opened(QColor(200, 100, 50));
        QCOMPARE(opened.dialog.fill().color, QColor(200, 100, 50));
        QTest::mouseClick(buttonOf(opened.dialog, QStringLiteral("Default")), Qt::LeftButton);
        QCOMPARE(opened.shown().mid(0, 3), (Values{PortBlue.red(), PortBlue.green(), PortBlue.blue()}));
        QVERIFY2(!opened.dialog.fill().color.isValid(), "every port has a default of its own");
        opened.number("Red")->setValue(65);
        QCOMPARE(opened.dialog.fill().color, QColor(65, PortBlue.green(), PortBlue.blue()));

        QVERIFY(!opened.dialog.fill().allPorts);
        opened.allPorts()->click();
        QVERIFY(opened.dialog.fill().allPorts);

        const SFillDialog untouched{QColor()};
        QCOMPARE(untouched.shown().mid(0, 3), (Values{PortBlue.red(), PortBlue.green(), PortBlue.blue()}));
        QVERIFY(!untouched.dialog.fill().color.isValid());
    }

    void thePanelFollowsTheArrowKeys()
    {
        const SFillDialog opened(QColor(100, 100, 100));
        CColorSVPanel *panel = opened.panel();
        QSignalSpy picked(panel, &CColorSVPanel::notifySaturationValueChanged);
        QTest::keyClick(panel, Qt::Key_Right);
        QTest::keyClick(panel, Qt::Key_Up);
        QTest::keyClick(panel, Qt::Key_Left, Qt::ShiftModifier);
        QTest::keyClick(panel, Qt::Key_Left); // is at its end
        QTest::keyClick(panel, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(picked, (QList<QList<QVariant>>{{1, 100}, {1, 101}, {0, 101}, {0, 85}}));
    }

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

ORVO_TEST_MAIN(QApplication, CFillsTest)
#include "tst_fills.moc"
