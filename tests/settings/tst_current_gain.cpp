// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CEleCurrentAdjustDialog.h"
#include "layout/settings/CEleCurrentAdjustTable.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QCheckBox>
#include <QLabel>

namespace {

using Gains = QList<SCurrentGain>;

const Gains NoneImported{{0, 0, false, false}, {0, 1, false, false}, {1, 2, false, false}};
const Gains TwoImported{{0, 0, true, false}, {0, 1, true, true}, {1, 2, false, false}};

QCheckBox *switchOf(const CEleCurrentAdjustTable &table, int row)
{
    return table.cellWidget(row, 3)->findChild<QCheckBox *>();
}

/// A host that imports and clears, with the dialog open on its processor.
struct SGainDialog final
{
    CFakeHost host;
    QUuid processor = host.addProcessor(QStringLiteral("Stage"), 2);
    std::unique_ptr<CEleCurrentAdjustDialog> dialog;

    explicit SGainDialog(const Gains &gains)
    {
        host.choose(processor);
        host.answers()->gains = gains;
        host.answers()->onCalled = [this](const QString &call) { carryOut(call); };
        dialog = std::make_unique<CEleCurrentAdjustDialog>(processor, nullptr);
        dialog->show();
        QCoreApplication::processEvents();
        host.answers()->forgetCalls();
    }

    CEleCurrentAdjustTable &table() const { return *dialog->findChild<CEleCurrentAdjustTable *>(); }
    QPushButton *button(const QString &text) const { return buttonOf(*dialog, text); }
    void press(const char *text) const { button(QString::fromLatin1(text))->click(); }
    /// What can be cleared and saved, as "Clear Save".
    QString possible() const
    {
        QStringList texts;
        for (const QString &text : {QStringLiteral("Clear"), QStringLiteral("Save")})
            texts << (button(text)->isEnabled() ? QStringList(text) : QStringList());
        return texts.join(QLatin1Char(' '));
    }
    /// The calls that change something.
    QStringList commands()
    {
        return host.answers()->calls().filter(QRegularExpression(QStringLiteral("^(import|clear|send)")));
    }
    void carryOut(const QString &call)
    {
        const auto answers = host.answers();
        if (call.startsWith(QLatin1String("import")) && answers->refused.isEmpty())
            answers->gains[2].imported = true;
        if (call.startsWith(QLatin1String("clear")) && answers->refused.isEmpty())
            answers->gains = NoneImported;
    }
};

const QString Ok = QStringLiteral("OK");
const QString Yes = QStringLiteral("Yes");
const QString No = QStringLiteral("No");

} // namespace

class CCurrentGainTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_file.open()); }

    void showsASetARowByFrameRateThenLevel()
    {
        CEleCurrentAdjustTable table;
        table.setGains({{2, 2, true, false}, {0, 1, false, true}, {1, 0, true, true}, {0, 0, true, false}});
        QStringList rows;
        for (int row = 0; row < table.rowCount(); ++row)
            rows << table.item(row, 0)->text() + QLatin1Char(' ') + table.item(row, 1)->text() +
                        QLatin1Char(' ') + qobject_cast<QLabel *>(table.cellWidget(row, 2))->text() +
                        QLatin1String(switchOf(table, row)->isChecked() ? " on" : " off");
        QCOMPARE(rows.join(QLatin1Char('|')),
                 QStringLiteral("60Hz Low Imported off|60Hz Medium Not imported on|"
                                "50Hz Low Imported on|30Hz High Imported off"));
        QVERIFY(!table.isSwitched());
        QVERIFY(switchOf(table, 1)->isEnabled()); // what is on can be switched off
        switchOf(table, 1)->click();
        QVERIFY(table.isSwitched() && !table.gains()[1].on);
        switchOf(table, 1)->click();
        QVERIFY(!table.isSwitched());
        table.updateGains({{0, 0, true, true}}); // no switch of the user's stands against it
        QVERIFY(table.gains()[0].on && !table.isSwitched());
        table.setGains({{-1, 3, false, false}});
        QVERIFY(table.item(0, 0)->text().isEmpty() && table.item(0, 1)->text().isEmpty());
        QVERIFY(!switchOf(table, 0)->isEnabled());
    }

    void onlyWhatIsImportedCanBeCleared()
    {
        QCOMPARE(SGainDialog(NoneImported).possible(), QString());
        QCOMPARE(SGainDialog(TwoImported).possible(), QStringLiteral("Clear Save"));
        const SGainDialog opened({{0, 0, false, true}});
        switchOf(opened.table(), 0)->click();
        QCOMPARE(opened.possible(), QStringLiteral("Save"));
        const CEleCurrentAdjustDialog unread(opened.processor, nullptr);
        for (const char *text : {"Clear", "Save"})
            QVERIFY(!buttonOf(unread, QString::fromLatin1(text))->isEnabled());
    }

    void theTabKeyGoesFromTopToBottom()
    {
        const SGainDialog opened(TwoImported);
        opened.press("Refresh"); // makes new rows
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QStringList texts;
        QWidget *first = opened.button(QStringLiteral("Import..."));
        QWidget *widget = first;
        do {
            const auto *button = qobject_cast<QAbstractButton *>(widget);
            if (button && button->isEnabled() && button->isVisible())
                texts << withoutMnemonic(button->text());
            widget = widget->nextInFocusChain();
        } while (widget != first);
        QCOMPARE(texts.join(QLatin1Char(' ')), QStringLiteral("Import... Refresh On On Clear Save"));
    }

    void importsTheChosenFile()
    {
        SGainDialog opened(TwoImported);
        switchOf(opened.table(), 0)->click();
        const CFileDialogAnswerer chooser(QString{});
        opened.press("Import...");
        QCOMPARE(opened.commands(), QStringList());

        CFileDialogAnswerer again(m_file.fileName());
        const CMessageBoxAnswerer user({Ok});
        opened.press("Import...");
        QCOMPARE(opened.commands(),
                 QStringList{QStringLiteral("importCurrentGain(%1)").arg(m_file.fileName())});
        const Gains shown{{0, 0, true, true}, {0, 1, true, true}, {1, 2, true, false}}; // the switch stays
        QCOMPARE(opened.table().gains(), shown);
        QVERIFY(switchOf(opened.table(), 0)->isChecked());
        QVERIFY(opened.table().isSwitched());
    }

    void savesTheSwitchesAsTheyStand()
    {
        SGainDialog opened(TwoImported);
        switchOf(opened.table(), 0)->click();
        switchOf(opened.table(), 1)->click();
        const CMessageBoxAnswerer user({Ok});
        opened.press("Save");
        QCOMPARE(user.texts(), QStringList{QStringLiteral("Save successful.")});
        const Gains switched{{0, 0, true, true}, {0, 1, true, false}, {1, 2, false, false}};
        QCOMPARE(opened.host.answers()->gains, switched);
        QVERIFY(!opened.dialog->isVisible());
    }

    void clearsOnceTheUserAgrees()
    {
        for (const QString &answer : {Yes, No}) {
            const bool agreed = answer == Yes;
            SGainDialog opened(TwoImported);
            const CMessageBoxAnswerer user(agreed ? QStringList{Yes, Ok} : QStringList{No});
            opened.press("Clear");
            QCOMPARE(user.boxes()[0].defaultButton, No);
            QCOMPARE(opened.commands().isEmpty(), !agreed);
            QCOMPARE(opened.table().gains(), agreed ? NoneImported : TwoImported);
            QCOMPARE(opened.possible(), agreed ? QString() : QStringLiteral("Clear Save"));
        }
    }

    void refreshAsksBeforeItDropsSwitches()
    {
        for (const QString &answer : {QString(), Yes, No}) { // none: nothing is switched
            SGainDialog opened(TwoImported);
            if (!answer.isEmpty())
                switchOf(opened.table(), 0)->click();
            const Gains before = opened.table().gains();
            opened.host.answers()->gains[2].imported = true;
            const CMessageBoxAnswerer user(answer.isEmpty() ? QStringList() : QStringList{answer});
            opened.press("Refresh");
            QCOMPARE(user.boxes().isEmpty(), answer.isEmpty());
            QCOMPARE(opened.table().gains(), answer == No ? before : opened.host.answers()->gains);
            QCOMPARE(opened.commands(), QStringList());
        }
    }

    void asksBeforeItClosesWithoutSaving()
    {
        SGainDialog opened(TwoImported);
        switchOf(opened.table(), 1)->click();
        const CMessageBoxAnswerer user({No, Yes});
        opened.dialog->close();
        QVERIFY(opened.dialog->isVisible());
        QTest::keyClick(opened.dialog.get(), Qt::Key_Escape);
        QVERIFY(!opened.dialog->isVisible());
        QCOMPARE(opened.commands(), QStringList());
    }

    void aFailureChangesNothing()
    {
        for (const QString &button :
             {QStringLiteral("Import..."), QStringLiteral("Clear"), QStringLiteral("Refresh")}) {
            for (const bool left : {false, true}) {
                if (!left && button == QLatin1String("Refresh"))
                    continue; // which the host cannot refuse
                SGainDialog opened(TwoImported);
                if (left)
                    opened.host.choose(opened.host.addProcessor(QStringLiteral("Lobby"), 2));
                opened.host.answers()->refused = {QStringLiteral("importCurrentGain"),
                                                  QStringLiteral("clearCurrentGains")};
                const CFileDialogAnswerer chooser(m_file.fileName());
                const CMessageBoxAnswerer user(button == QLatin1String("Clear") ? QStringList{Yes, Ok}
                                                                                : QStringList{Ok});
                opened.press(qPrintable(button));
                QVERIFY(user.texts().last().endsWith(QLatin1String(" failed.")));
                QCOMPARE(user.boxes().last().details,
                         left ? QStringLiteral("The processor is no longer in view.")
                              : opened.host.answers()->error);
                QCOMPARE(opened.commands().isEmpty(), left);
                QCOMPARE(opened.table().gains(), TwoImported);
                QVERIFY(opened.dialog->isVisible());
            }
        }
    }

private:
    QTemporaryFile m_file{QDir::tempPath() + QStringLiteral("/XXXXXX.acr")};
};

ORVO_TEST_MAIN(QApplication, CCurrentGainTest)
#include "tst_current_gain.moc"
