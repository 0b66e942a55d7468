// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCanvasBackgroundSetting.h"
#include "layout/settings/CCanvasCommands.h"
#include "platform/widgets/CTheme.h"
#include "platform/widgets/input/CSliderSpinBox.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>

namespace {

SBackgroundInfo filled()
{
    SBackgroundInfo info;
    info.enabled = true;
    info.file = QStringLiteral("/wall.png");
    info.scale = 50;
    info.opacity = 30;
    info.fit = SBackgroundInfo::ZoomToFit;
    return info;
}

QPushButton *browseOf(const QWidget &dialog)
{
    return buttonOf(dialog, QStringLiteral("Browse..."));
}

} // namespace

class CCanvasBackgroundTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }

    void showsWhatItIsGiven()
    {
        CCanvasBackgroundSetting dialog(filled(), nullptr);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Canvas fill settings"));
        QCOMPARE(dialog.size(), QSize(340, 177));
        QCOMPARE(dialog.findChild<QLineEdit *>()->text(), QStringLiteral("/wall.png"));
        const auto sliders = dialog.findChildren<QSlider *>();
        QCOMPARE(sliders.at(0)->value(), 50);
        QCOMPARE(sliders.at(1)->value(), 30);
        QCOMPARE(sliders.at(1)->minimum(), 0);
        QCOMPARE(sliders.at(1)->maximum(), 100);
        QCOMPARE(dialog.info(), filled());
        for (const QWidget *control : dialog.findChildren<QWidget *>())
            QVERIFY2(control->visibleRegion().isEmpty() ||
                         dialog.rect().contains(QRect(control->mapTo(&dialog, QPoint()), control->size())),
                     control->metaObject()->className());
        dialog.findChild<QCheckBox *>()->setChecked(false);
        QVERIFY(!sliders.at(0)->isEnabled() && !browseOf(dialog)->isEnabled());
    }

    void controlsHaveTheirWidthsAndTexts()
    {
        CCanvasBackgroundSetting dialog(filled(), nullptr);
        dialog.show();
        QCOMPARE(withoutMnemonic(dialog.findChild<QCheckBox *>()->text()), QStringLiteral("Enable"));
        QStringList fits;
        for (const QRadioButton *fit : dialog.findChildren<QRadioButton *>())
            fits << withoutMnemonic(fit->text()) + QLatin1Char(fit->isChecked() ? '*' : ' ');
        QCOMPARE(fits, (QStringList{QStringLiteral("1:1 "), QStringLiteral("Zoom to fit*")}));
        for (const QSlider *slider : dialog.findChildren<QSlider *>())
            QCOMPARE(slider->width(), 184);
        QStringList percents;
        for (const QSpinBox *box : dialog.findChildren<QSpinBox *>()) {
            QCOMPARE(box->width(), 46);
            percents << box->text();
        }
        QCOMPARE(percents, (QStringList{QStringLiteral("50%"), QStringLiteral("30%")}));
        QCOMPARE(dialog.findChild<QLineEdit *>()->width(), 238);
    }

    void announcesEachChangeAtOnce()
    {
        CCanvasBackgroundSetting dialog(filled(), nullptr);
        QSignalSpy changes(&dialog, &CCanvasBackgroundSetting::changed);
        SBackgroundInfo expected = filled();
        const auto announced = [&] { return changes.takeLast().first().value<SBackgroundInfo>(); };
        dialog.findChildren<QSlider *>().at(0)->setValue(200);
        expected.scale = 200;
        QCOMPARE(announced(), expected);
        dialog.findChildren<QSlider *>().at(1)->setValue(0);
        expected.opacity = 0;
        QCOMPARE(announced(), expected);
        dialog.findChildren<QRadioButton *>().at(0)->setChecked(true);
        expected.fit = SBackgroundInfo::NaturalSize;
        QCOMPARE(announced(), expected);
        dialog.findChild<QCheckBox *>()->setChecked(false);
        expected.enabled = false;
        QCOMPARE(announced(), expected);
    }

    void takesOnlyImagesThatCanBeRead()
    {
        const QTemporaryDir folder;
        const QString good = folder.filePath(QStringLiteral("good.png"));
        const QString bad = folder.filePath(QStringLiteral("bad.png"));
        QVERIFY(QImage(4, 4, QImage::Format_RGB32).save(good));
        QFile damaged(bad);
        QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write("no image") > 0);
        damaged.close();
        CCanvasBackgroundSetting dialog(filled(), nullptr);
        {
            CFileDialogAnswerer files(bad);
            CMessageBoxAnswerer user({QStringLiteral("OK")});
            browseOf(dialog)->click();
            QCOMPARE(user.boxes().size(), 1);
            QVERIFY(user.texts().first().contains(bad));
            QCOMPARE(files.filters, QStringList{QStringLiteral("Image File(*.png *.jpg *.jpeg)")});
        }
        QCOMPARE(dialog.info(), filled());
        CFileDialogAnswerer files(good);
        browseOf(dialog)->click();
        QCOMPARE(dialog.info().file, good);
    }

    void theCanvasFollowsUntilItIsDecided_data()
    {
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<bool>("refused");
        QTest::addColumn<bool>("comesBack");
        QTest::newRow("OK") << true << false << false;
        QTest::newRow("Cancel") << false << false << true;
        QTest::newRow("refused") << true << true << true;
    }
    void theCanvasFollowsUntilItIsDecided()
    {
        QFETCH(bool, accepted);
        QFETCH(bool, refused);
        QFETCH(bool, comesBack);
        CFakeHost host;
        const QUuid processor = host.addProcessor(QStringLiteral("Main"), 1);
        host.choose(processor);
        SBackgroundInfo before = filled();
        before.processor = processor;
        host.answers()->backgrounds[processor] = before;
        if (refused)
            host.answers()->refused = {QStringLiteral("setBackground")};
        QWidget window;
        CCanvasCommands commands(window);
        QVector<SBackgroundInfo> shown;
        connect(&commands, &CCanvasCommands::previewed, this,
                [&shown](const SBackgroundInfo &info) { shown << info; });
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        inNext<QDialog>([accepted](QDialog &dialog) {
            dialog.findChildren<QSlider *>().at(0)->setValue(60);
            QTest::keyClick(&dialog, accepted ? Qt::Key_Return : Qt::Key_Escape);
        });
        commands.setCanvasFill();
        QCOMPARE(shown.first().scale, 60);
        QCOMPARE(shown.last() == before, comesBack);
        QCOMPARE(user.boxes().size(), accepted ? 1 : 0);
        if (accepted)
            QCOMPARE(user.texts().first(),
                     refused ? QStringLiteral("Set failed.") : QStringLiteral("Set successful."));
        QCOMPARE(host.answers()->count(QStringLiteral("setBackground")), accepted ? 1 : 0);
    }

    void anotherProcessorsCanvasFollowsNothing()
    {
        CFakeHost host;
        host.choose(host.addProcessor(QStringLiteral("Main"), 1));
        QWidget window;
        CCanvasCommands commands(window);
        int shown = 0;
        connect(&commands, &CCanvasCommands::previewed, this, [&shown] { ++shown; });
        inNext<QDialog>([&host](QDialog &dialog) {
            host.choose(host.addProcessor(QStringLiteral("Lobby"), 1));
            dialog.findChildren<QSlider *>().at(0)->setValue(60);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        commands.setCanvasFill();
        QCOMPARE(shown, 0);
    }
};

ORVO_TEST_MAIN(QApplication, CCanvasBackgroundTest)
#include "tst_canvas_background.moc"
