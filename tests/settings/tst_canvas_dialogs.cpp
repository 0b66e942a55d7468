// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCanvasBackgroundSetting.h"
#include "layout/settings/CCanvasCommands.h"
#include "layout/settings/CCanvasSizeSetting.h"
#include "layout/settings/CFrameRateColorDepthSetting.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>

class CCanvasDialogsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void theCanvasStaysWithinItsSides()
    {
        const QVector<QPair<QSize, QSize>> ranges{
            {{8192, 4096}, {8192, 4096}}, {{40000, 20000}, {32768, 16384}}, {{0, 0}, {64, 64}}};
        for (const auto &[most, range] : ranges) {
            CCanvasSizeSetting dialog({most.width(), most.height(), 1LL << 40}, {1, 1});
            QCOMPARE(dialog.canvasSize(), QSize(64, 64));
            for (const char *side : {"Width", "Height"})
                named<QSpinBox>(dialog, side)->setValue(1000000);
            QCOMPARE(dialog.canvasSize(), range);
        }
    }

    void theAreaDecidesWhetherItCanBeConfirmed()
    {
        for (const auto &[width, most] :
             {std::make_pair(1920, true), std::make_pair(1921, false), std::make_pair(32768, false)}) {
            const int height = width == 32768 ? 16384 : 1080;
            CCanvasSizeSetting dialog({40000, 40000, 1920 * 1080}, {64, 64});
            named<QSpinBox>(dialog, "Width")->setValue(width);
            named<QSpinBox>(dialog, "Height")->setValue(height);
            QCOMPARE(dialog.canvasSize(), QSize(width, height));
            QCOMPARE(okOf(dialog)->isEnabled(), most);
            const QString hint = dialog.findChild<QLabel *>(QStringLiteral("Hint"))->text();
            QVERIFY(most ? hint.isEmpty() : hint.endsWith(QStringLiteral(" %1").arg(1920 * 1080)));
        }
    }

    void aPresetSetsBothSides()
    {
        CCanvasSizeSetting dialog({4000, 4000, 3840 * 2160}, {1920, 1080});
        auto *presets = named<QComboBox>(dialog, "Size");
        QVERIFY(presets->currentIndex() >= 0);
        presets->setCurrentIndex(1);
        QCOMPARE(dialog.canvasSize(), QSize(3840, 2160));
        QVERIFY(okOf(dialog)->isEnabled());
        named<QSpinBox>(dialog, "Height")->setValue(2000);
        QCOMPARE(presets->currentIndex(), -1);
        QCOMPARE(dialog.canvasSize(), QSize(3840, 2000));
        QTest::keyClick(presets, Qt::Key_End); // the last one is wider than the limits
        QCOMPARE(dialog.canvasSize(), QSize(3840, 2160));
    }

    void onlyWhatTheProcessorOffersCanBeChosen()
    {
        CFrameRateColorDepthSetting dialog({{50, 60}, {8, 12}}, 75, 8);
        QVERIFY(!okOf(dialog)->isEnabled()); // before one of them was chosen
        for (const char *name : {"Frame rate", "Color depth"}) {
            auto *box = named<QComboBox>(dialog, name);
            for (int i = 0; i < 3; ++i)
                QTest::keyClick(box, Qt::Key_Down);
        }
        QVERIFY(okOf(dialog)->isEnabled());
        QCOMPARE(dialog.frameRate(), 60);
        QCOMPARE(dialog.colorDepth(), 12);
    }

    void theFillIsAnnouncedAtEachChange()
    {
        CCanvasBackgroundSetting dialog(filled(), nullptr);
        QCOMPARE(dialog.info(), filled());
        QSignalSpy changes(&dialog, &CCanvasBackgroundSetting::notifyChanged);
        SBackgroundInfo expected = filled();
        const auto sliders = dialog.findChildren<QSlider *>();
        const auto isAnnounced = [&] {
            return changes.size() == 1 && changes.takeFirst().first().value<SBackgroundInfo>() == expected &&
                   dialog.info() == expected;
        };
        sliders.at(0)->setValue(expected.scale = 200);
        QVERIFY(isAnnounced());
        sliders.at(1)->setValue(-1);
        expected.opacity = 0;
        QVERIFY(isAnnounced());
        sliders.at(1)->setValue(101);
        expected.opacity = 100;
        QVERIFY(isAnnounced());
        dialog.findChildren<QRadioButton *>().at(0)->setChecked(true);
        expected.fit = SBackgroundInfo::NaturalSize;
        QVERIFY(isAnnounced());
        const CFileDialogAnswerer files(imageFile());
        browse(dialog);
        expected.file = imageFile();
        QVERIFY(isAnnounced());
        dialog.findChild<QCheckBox *>()->setChecked(false);
        expected.enabled = false;
        QVERIFY(isAnnounced());
        QVERIFY(!sliders.at(0)->isEnabled() && !buttonOf(dialog, QStringLiteral("Browse..."))->isEnabled());
    }

    void aFillNeedsAnImageThatCanBeRead()
    {
        CCanvasBackgroundSetting dialog({}, nullptr);
        QSignalSpy changes(&dialog, &CCanvasBackgroundSetting::notifyChanged);
        QVERIFY(okOf(dialog)->isEnabled());
        dialog.findChild<QCheckBox *>()->setChecked(true);
        QVERIFY(!okOf(dialog)->isEnabled());
        const QString bad = m_folder.filePath(QStringLiteral("bad.png"));
        QFile damaged(bad);
        QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write("no image") > 0);
        damaged.close();
        CFileDialogAnswerer files(bad);
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        browse(dialog);
        QCOMPARE(user.boxes().size(), 1);
        QVERIFY(user.texts().first().contains(bad));
        CFileDialogAnswerer cancelled(QString{});
        browse(dialog);
        QCOMPARE(changes.size(), 1);
        QVERIFY(!okOf(dialog)->isEnabled());
        CFileDialogAnswerer better(imageFile());
        browse(dialog);
        QVERIFY(okOf(dialog)->isEnabled());
    }

    void theCanvasFollowsTheFillUntilItIsDecided()
    {
        enum EEnd { Accepted, Cancelled, Refused, Left };
        for (const EEnd end : {Accepted, Cancelled, Refused, Left}) {
            CFakeHost host;
            const QUuid processor = host.addProcessor(QStringLiteral("Main"), 1);
            host.choose(processor);
            host.answers()->backgrounds[processor] = filled();
            if (end == Refused)
                host.answers()->refused = {QStringLiteral("setBackground")};
            QWidget window;
            CCanvasCommands commands(window);
            QVector<SBackgroundInfo> previews;
            connect(&commands, &CCanvasCommands::notifyFillPreviewed, this,
                    [&previews](const SBackgroundInfo &info) { previews << info; });
            const CMessageBoxAnswerer user({QStringLiteral("OK")});
            const CFileDialogAnswerer files(imageFile());
            inNext<CDialog>([&](CDialog &dialog) {
                if (end == Left)
                    host.choose(host.addProcessor(QStringLiteral("Lobby"), 1));
                browse(dialog);
                dialog.findChild<QSlider *>()->setValue(60);
                QTest::keyClick(&dialog, end == Accepted || end == Refused ? Qt::Key_Return : Qt::Key_Escape);
            });
            commands.setCanvasFill();
            QCOMPARE(previews.isEmpty(), end == Left);
            if (previews.isEmpty())
                continue;
            QCOMPARE(previews[1].scale, 60);
            QCOMPARE(previews.last().scale, end == Accepted ? 60 : filled().scale);
            QCOMPARE(previews.last().processor, processor);
            QCOMPARE(previews.last().file, end == Accepted ? imageFile() : filled().file);
            const QString call = QStringLiteral("setBackground(%1,%2)")
                                     .arg(processor.toString(QUuid::WithoutBraces), imageFile());
            QVERIFY(end != Accepted || host.answers()->calls().contains(call));
        }
    }

private:
    static SBackgroundInfo filled()
    {
        SBackgroundInfo info;
        info.enabled = true;
        info.file = QStringLiteral("/wall.png");
        info.scale = 50;
        info.opacity = 30;
        info.fit = SBackgroundInfo::ZoomToFit;
        return info;
    }
    static void browse(const QWidget &dialog) { buttonOf(dialog, QStringLiteral("Browse..."))->click(); }
    QString imageFile() const
    {
        const QString file = m_folder.filePath(QStringLiteral("good.png"));
        if (!QFile::exists(file))
            QImage(4, 4, QImage::Format_RGB32).save(file);
        return file;
    }

    QTemporaryDir m_folder;
};

ORVO_TEST_MAIN(QApplication, CCanvasDialogsTest)
#include "tst_canvas_dialogs.moc"
