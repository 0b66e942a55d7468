// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCanvasCommands.h"
#include "layout/settings/CCanvasSizeSetting.h"
#include "layout/settings/CFrameRateColorDepthSetting.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QComboBox>
#include <QSpinBox>
#include <QStandardItemModel>

namespace {

const QString SetFailed = QStringLiteral("Set failed.");
const QString SetSuccessful = QStringLiteral("Set successful.");

QString hintOf(const QWidget &dialog)
{
    return dialog.findChild<QLabel *>(QStringLiteral("Hint"))->text();
}

/// The ways to leave a dialog.
void leave(CDialog &dialog, const QString &way)
{
    if (way == QLatin1String("OK"))
        QTest::mouseClick(okOf(dialog), Qt::LeftButton);
    else if (way == QLatin1String("Enter"))
        QTest::keyClick(&dialog, Qt::Key_Return);
    else if (way == QLatin1String("Cancel"))
        QTest::mouseClick(dialog.buttonBox()->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    else if (way == QLatin1String("Escape"))
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else
        dialog.close();
}

void addWays()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("OK") << "OK" << true;
    QTest::newRow("Enter") << "Enter" << true;
    QTest::newRow("Cancel") << "Cancel" << false;
    QTest::newRow("Escape") << "Escape" << false;
    QTest::newRow("close button") << "close" << false;
}

} // namespace

class CCanvasDialogsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        m_host = std::make_unique<CFakeHost>();
        m_processor = m_host->addProcessor(QStringLiteral("Stage"), 2);
        m_host->choose(m_processor);
    }
    void cleanup()
    {
        m_host.reset();
        QLocale::setDefault(QLocale::c());
        CTestBase::cleanup();
    }

    void theCanvasStaysWithinItsSides_data()
    {
        QTest::addColumn<QSize>("most");
        QTest::addColumn<QSize>("range");
        QTest::newRow("the host's") << QSize(8192, 4096) << QSize(8192, 4096);
        QTest::newRow("the largest") << QSize(32768, 16384) << QSize(32768, 16384);
        QTest::newRow("larger than any") << QSize(40000, 20000) << QSize(32768, 16384);
        QTest::newRow("none") << QSize(0, 0) << QSize(64, 64);
    }
    void theCanvasStaysWithinItsSides()
    {
        QFETCH(QSize, most);
        QFETCH(QSize, range);
        CCanvasSizeSetting dialog({most.width(), most.height(), 1LL << 40}, {1, 1});
        QCOMPARE(dialog.canvasSize(), QSize(64, 64));
        for (const char *side : {"Width", "Height"}) {
            auto *box = named<QSpinBox>(dialog, side);
            box->setValue(1000000);
            QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(box, QStringLiteral("63"));
            QTest::keyClick(box, Qt::Key_Tab);
            QVERIFY(box->value() >= 64);
            box->setValue(1000000);
        }
        QCOMPARE(dialog.canvasSize(), range);
    }

    void theAreaDecidesWhetherItCanBeConfirmed()
    {
        CCanvasSizeSetting dialog({16384, 8192, 1920 * 1080}, {1920, 1080});
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Canvas size settings"));
        QVERIFY(okOf(dialog)->isEnabled());
        QCOMPARE(hintOf(dialog), QString());
        named<QSpinBox>(dialog, "Width")->setValue(1921);
        QVERIFY(!okOf(dialog)->isEnabled());
        QCOMPARE(hintOf(dialog), QStringLiteral("The area of the canvas cannot be greater than 2073600"));
        dialog.show();
        leave(dialog, QStringLiteral("Enter"));
        QVERIFY(dialog.isVisible());
        named<QSpinBox>(dialog, "Height")->setValue(1079);
        QVERIFY(okOf(dialog)->isEnabled());
        QCOMPARE(hintOf(dialog), QString());
    }

    void theLargestCanvasDoesNotOverflow()
    {
        CCanvasSizeSetting dialog({40000, 40000, 141000000}, {32768, 16384});
        QVERIFY(!okOf(dialog)->isEnabled());
        QCOMPARE(hintOf(dialog), QStringLiteral("The area of the canvas cannot be greater than 141000000"));
    }

    void aPresetSetsBothSides()
    {
        CCanvasSizeSetting dialog({4000, 4000, 1LL << 30}, {1920, 1080});
        auto *presets = named<QComboBox>(dialog, "Size");
        QCOMPARE(presets->width(), 188);
        QStringList texts;
        for (int i = 0; i < presets->count(); ++i)
            texts << presets->itemText(i);
        QCOMPARE(texts.join(QLatin1Char(' ')),
                 QStringLiteral("1920\u00D71080 3840\u00D72160 4096\u00D72160"));
        QCOMPARE(presets->currentIndex(), 0);
        presets->setCurrentIndex(1);
        QCOMPARE(dialog.canvasSize(), QSize(3840, 2160));
        named<QSpinBox>(dialog, "Height")->setValue(2000);
        QCOMPARE(presets->currentIndex(), -1);
        QCOMPARE(dialog.canvasSize(), QSize(3840, 2000));
        QTest::keyClick(presets, Qt::Key_End); // the last one is wider than the limits
        QCOMPARE(dialog.canvasSize(), QSize(3840, 2160));
    }

    void aNewCanvasSizeReachesTheHost_data() { addWays(); }
    void aNewCanvasSizeReachesTheHost()
    {
        QFETCH(QString, way);
        QFETCH(bool, accepted);
        QWidget window;
        CCanvasCommands commands(window);
        inNext<CCanvasSizeSetting>([&way](CCanvasSizeSetting &dialog) {
            QCOMPARE(dialog.canvasSize(), QSize(1920, 1080));
            named<QSpinBox>(dialog, "Width")->setValue(2000);
            leave(dialog, way);
        });
        const CMessageBoxAnswerer user(QVector<QString>(accepted, QStringLiteral("OK")).toList());
        commands.setCanvasSize();
        QCOMPARE(user.texts(), QVector<QString>(accepted, SetSuccessful).toList());
        QCOMPARE(m_host->answers()->calls().contains(QStringLiteral("setCanvasSize(2000,1080)")), accepted);
    }

    void frameRateAndDepthReachTheHost_data() { addWays(); }
    void frameRateAndDepthReachTheHost()
    {
        QFETCH(QString, way);
        QFETCH(bool, accepted);
        m_host->answers()->hertz = 120;
        m_host->answers()->bits = 10;
        QWidget window;
        CCanvasCommands commands(window);
        inNext<CFrameRateColorDepthSetting>([&way](CFrameRateColorDepthSetting &dialog) {
            QCOMPARE(named<QComboBox>(dialog, "Frame rate")->currentText(), QStringLiteral("120Hz"));
            QCOMPARE(named<QComboBox>(dialog, "Color depth")->currentText(), QStringLiteral("10bit"));
            QTest::keyClick(named<QComboBox>(dialog, "Frame rate"), Qt::Key_Down);
            QTest::keyClick(named<QComboBox>(dialog, "Color depth"), Qt::Key_Up);
            leave(dialog, way);
        });
        const CMessageBoxAnswerer user(QVector<QString>(accepted, QStringLiteral("OK")).toList());
        commands.setFrameRateAndColorDepth();
        QCOMPARE(user.texts(), QVector<QString>(accepted, SetSuccessful).toList());
        QCOMPARE(m_host->answers()->calls().contains(QStringLiteral("setFrameRateAndColorDepth(240,8)")),
                 accepted);
    }

    void offersTheFrameRatesAndDepthsInTheirOrder_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<int>("label");
        QTest::addColumn<int>("box");
        QTest::newRow("English") << QLocale(QLocale::English) << 70 << 216;
        QTest::newRow("Chinese") << QLocale(QLocale::Chinese) << 48 << 238;
    }
    void offersTheFrameRatesAndDepthsInTheirOrder()
    {
        QFETCH(QLocale, locale);
        QFETCH(int, label);
        QFETCH(int, box);
        QLocale::setDefault(locale);
        CFrameRateColorDepthSetting dialog(m_host->answers()->modes, 60, 12);
        QStringList rows;
        for (const QComboBox *combo : dialog.findChildren<QComboBox *>()) {
            QCOMPARE(combo->width(), box);
            for (int i = 0; i < combo->count(); ++i)
                rows << QStringLiteral("%1=%2").arg(combo->itemText(i)).arg(combo->itemData(i).toInt());
        }
        QCOMPARE(rows.join(QLatin1Char(' ')),
                 QStringLiteral("50Hz=50 60Hz=60 120Hz=120 240Hz=240 8bit=8 10bit=10 12bit=12"));
        for (const QLabel *caption : dialog.findChildren<QLabel *>())
            QCOMPARE(caption->width(), label);
        QCOMPARE(dialog.frameRate(), 60);
        QCOMPARE(dialog.colorDepth(), 12);
    }

    void aValueThatIsNotOfferedMustBeChosenFirst()
    {
        CFrameRateColorDepthSetting dialog(m_host->answers()->modes, 75, 8);
        QVERIFY(!okOf(dialog)->isEnabled());
        named<QComboBox>(dialog, "Frame rate")->setCurrentIndex(3);
        QVERIFY(okOf(dialog)->isEnabled());
        QCOMPARE(dialog.frameRate(), 240);
    }

    void whatTheProcessorLacksCannotBeChosen()
    {
        CFrameRateColorDepthSetting dialog({{50, 60}, {8, 12}}, 50, 8);
        for (const char *name : {"Frame rate", "Color depth"}) {
            auto *box = named<QComboBox>(dialog, name);
            QTest::keyClick(box, Qt::Key_Down);
            QTest::keyClick(box, Qt::Key_Down);
        }
        QCOMPARE(dialog.frameRate(), 60);
        QCOMPARE(dialog.colorDepth(), 12);
    }

    void theUserIsToldWhatTheHostRefused()
    {
        m_host->answers()->refused = {QStringLiteral("setCanvasSize"),
                                      QStringLiteral("setFrameRateAndColorDepth")};
        QWidget window;
        CCanvasCommands commands(window);
        CMessageBoxAnswerer user({QStringLiteral("OK"), QStringLiteral("OK")});
        const auto confirm = [](CDialog &dialog) { leave(dialog, QStringLiteral("OK")); };
        inNext<CDialog>(confirm);
        commands.setCanvasSize();
        inNext<CDialog>(confirm);
        commands.setFrameRateAndColorDepth();
        QCOMPARE(user.texts(), (QStringList{SetFailed, SetFailed}));
        for (const auto &box : user.boxes()) {
            QCOMPARE(box.title, QStringLiteral("Orvo"));
            QCOMPARE(box.details, m_host->answers()->error);
        }
    }

    void aProcessorThatLeftTheViewIsNotMistakenForTheNext()
    {
        QWidget window;
        CCanvasCommands commands(window);
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        inNext<CDialog>([this](CDialog &dialog) {
            m_host->choose(m_host->addProcessor(QStringLiteral("Lobby"), 2));
            leave(dialog, QStringLiteral("OK"));
        });
        commands.setCanvasSize();
        QCOMPARE(user.texts(), QStringList{SetFailed});
        QCOMPARE(m_host->answers()->count(QStringLiteral("setCanvasSize")), 0);
    }

    void withoutAProcessorNothingOpens()
    {
        m_host->choose({});
        QWidget window;
        CCanvasCommands commands(window);
        commands.setCanvasSize();
        commands.setFrameRateAndColorDepth();
        m_host.reset();
        commands.setCanvasSize();
        QVERIFY(!QApplication::activeModalWidget());
    }

private:
    std::unique_ptr<CFakeHost> m_host;
    QUuid m_processor;
};

ORVO_TEST_MAIN(QApplication, CCanvasDialogsTest)
#include "tst_canvas_dialogs.moc"
