// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
// What holds for every dialog whose result goes to the host; what only one of them does is tested with it.
#include "layout/settings/CCabinetParaSave.h"
#include "layout/settings/CCanvasCommands.h"
#include "platform/widgets/CTheme.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/settings/TypeSamples.h"

#include <QAbstractSlider>
#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>
#include <QTableWidget>

namespace {

/// A dialog whose result goes to the host.
struct SHostDialog
{
    std::function<void(CCanvasCommands &)> run;
    std::function<void(CDialog &)> edit; ///< as a user does
    const char *call;                    ///< what the host is told after the edit, or how that begins
    const char *success;                 ///< what the user is told; empty: nothing
    const char *failure;
    bool asksBeforeItCloses = false;
};

QMap<QString, SHostDialog> hostDialogs()
{
    const auto editSize = [](CDialog &dialog) {
        named<QSpinBox>(dialog, "Width")->setValue(2000);
        named<QSpinBox>(dialog, "Height")->setValue(1000);
    };
    const auto editModes = [](CDialog &dialog) {
        QCOMPARE(named<QComboBox>(dialog, "Frame rate")->currentText(), QStringLiteral("120Hz"));
        QCOMPARE(named<QComboBox>(dialog, "Color depth")->currentText(), QStringLiteral("10bit"));
        QTest::keyClick(named<QComboBox>(dialog, "Frame rate"), Qt::Key_Down);
        QTest::keyClick(named<QComboBox>(dialog, "Color depth"), Qt::Key_Up);
    };
    const auto editScale = [](CDialog &dialog) { dialog.findChild<QAbstractSlider *>()->setValue(60); };
    const auto editGains = [](CDialog &dialog) {
        QTRY_VERIFY(dialog.findChild<QTableWidget *>()->rowCount());
        dialog.findChild<QCheckBox *>()->click();
    };
    const auto editGamma = [](CDialog &dialog) { dialog.findChild<QDoubleSpinBox *>()->setValue(2.2); };
    const auto saveParameters = [](CCanvasCommands &) {
        CCabinetParaSave(cabinetsOf({"A", "A"}), {leaf(typeOf("A"))}, nullptr).exec();
    };
    using C = CCanvasCommands;
    const char *set = "Set successful.";
    const char *notSet = "Set failed.";
    QMap<QString, SHostDialog> dialogs;
    dialogs[QStringLiteral("canvas size")] = {&C::setCanvasSize, editSize, "setCanvasSize(2000,1000)", set,
                                              notSet};
    dialogs[QStringLiteral("frame rate")] = {&C::setFrameRateAndColorDepth, editModes,
                                             "setFrameRateAndColorDepth(240,8)", set, notSet};
    dialogs[QStringLiteral("canvas fill")] = {&C::setCanvasFill, editScale, "setBackground", set, notSet};
    dialogs[QStringLiteral("current gain")] = {&C::adjustCurrentGain, editGains,      "sendCurrentGains",
                                               "Save successful.",    "Save failed.", true};
    dialogs[QStringLiteral("parameters")] = {saveParameters, editGamma,
                                             "sendCabinetParameters(2,7fc56270e7a70fa81a5935b72eacbe29,2.2)",
                                             "Save successful.", "Save failed."};
    return dialogs;
}

void leave(CDialog &dialog, const QString &way)
{
    if (way == QLatin1String("accept") && okOf(dialog))
        QTest::keyClick(&dialog, Qt::Key_Return);
    else if (way == QLatin1String("accept"))
        buttonOf(dialog, QStringLiteral("Save"))->click();
    else if (way == QLatin1String("Escape"))
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else if (way == QLatin1String("Cancel") && dialog.buttonBox()->button(QDialogButtonBox::Cancel))
        dialog.buttonBox()->button(QDialogButtonBox::Cancel)->click();
    else
        dialog.close();
}

const QString Ok = QStringLiteral("OK");
const QString NoLongerInView = QStringLiteral("The processor is no longer in view.");

} // namespace

class CDialogLawsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }
    void init()
    {
        CTestBase::init();
        m_host = std::make_unique<CFakeHost>();
        const QUuid processor = m_host->addProcessor(QStringLiteral("Stage"), 2);
        m_host->choose(processor);
        const auto answers = m_host->answers();
        answers->hertz = 120;
        answers->bits = 10;
        answers->gains = {{0, 0, true, false}};
    }
    void cleanup()
    {
        m_host.reset();
        CTestBase::cleanup();
    }

    void whatWasSetReachesTheHost_data() { addHostDialogs({"accept", "Escape", "Cancel", "close"}); }
    void whatWasSetReachesTheHost()
    {
        QFETCH(QString, way);
        const SHostDialog dialog = current();
        const bool accepted = way == QLatin1String("accept");
        QStringList answers;
        if (accepted || dialog.asksBeforeItCloses)
            answers << (accepted ? Ok : QStringLiteral("Yes"));
        const CMessageBoxAnswerer user(answers);
        run(dialog, [way](CDialog &opened) { leave(opened, way); });

        const QStringList sent = sentCalls();
        const QString call = QLatin1String(dialog.call);
        QCOMPARE(sent.size(), accepted ? 1 : 0);
        QVERIFY2(sent.isEmpty() || sent.first().startsWith(call), qPrintable(sent.join(QLatin1Char(' '))));
        QCOMPARE(user.boxes().size(), answers.size());
        if (accepted)
            QCOMPARE(user.texts(), QStringList{QLatin1String(dialog.success)});
    }

    void failureIsToldWithItsReason_data() { addHostDialogs({"refused", "left", "no host"}); }
    void failureIsToldWithItsReason()
    {
        QFETCH(QString, way);
        QFETCH(QString, name);
        // The cabinets themselves tell the host whose parameters are saved.
        const bool left = way == QLatin1String("left") && name != QLatin1String("parameters");
        const bool gone = way == QLatin1String("no host");
        const SHostDialog dialog = current();
        const QString error = m_host->answers()->error;
        m_host->answers()->refused << QString::fromLatin1(dialog.call).section(QLatin1Char('('), 0, 0);
        QStringList answers{Ok};
        if (dialog.asksBeforeItCloses)
            answers << QStringLiteral("Yes");
        const CMessageBoxAnswerer user(answers);
        run(dialog, [&](CDialog &opened) {
            if (left)
                m_host->choose(m_host->addProcessor(QStringLiteral("Lobby"), 2));
            if (gone)
                m_host.reset();
            leave(opened, QStringLiteral("accept"));
            if (opened.isVisible())
                leave(opened, QStringLiteral("Escape"));
        });
        QVERIFY(!user.boxes().isEmpty());
        QCOMPARE(user.boxes().first().title, QStringLiteral("Orvo"));
        QCOMPARE(user.texts().first(), QLatin1String(dialog.failure));
        const QString reason = name == QLatin1String("parameters") && gone ? QString()
                               : left || gone                              ? NoLongerInView
                                                                           : error;
        QCOMPARE(user.boxes().first().details, reason);
        if (m_host)
            QCOMPARE(sentCalls().size(), left ? 0 : 1);
    }

    void withoutAProcessorNothingOpens()
    {
        QWidget window;
        CCanvasCommands commands(window);
        for (const bool hosted : {true, false}) {
            if (hosted)
                m_host->choose({});
            else
                m_host.reset();
            commands.setCanvasSize();
            commands.setFrameRateAndColorDepth();
            commands.setCanvasFill();
            commands.adjustCurrentGain(); // each would wait here for ever
        }
        QVERIFY(!QApplication::activeModalWidget());
    }

private:
    static void addHostDialogs(const QVector<const char *> &ways)
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("way");
        for (const QString &name : hostDialogs().keys()) {
            for (const char *way : ways)
                QTest::addRow("%s, %s", qPrintable(name), way) << name << QString::fromLatin1(way);
        }
    }
    static SHostDialog current()
    {
        QFETCH(QString, name);
        return hostDialogs()[name];
    }

    /// Runs the dialog and ends it as @p end does after an edit.
    static void run(const SHostDialog &dialog, const std::function<void(CDialog &)> &end)
    {
        QWidget window;
        CCanvasCommands commands(window);
        inNext<CDialog>([&](CDialog &opened) {
            dialog.edit(opened);
            end(opened);
        });
        dialog.run(commands);
    }

    /// The calls that change something.
    QStringList sentCalls() const
    {
        return m_host->answers()->calls().filter(
            QRegularExpression(QStringLiteral("^(set|send|import|clear)")));
    }

    std::unique_ptr<CFakeHost> m_host;
};

ORVO_TEST_MAIN(QApplication, CDialogLawsTest)
#include "tst_dialog_laws.moc"
