// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCanvasCommands.h"
#include "layout/settings/CEleCurrentAdjustDialog.h"
#include "layout/settings/CEleCurrentAdjustTable.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QCheckBox>

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
    void press(const char *text) const
    {
        QTest::mouseClick(button(QString::fromLatin1(text)), Qt::LeftButton);
    }
    /// What can be cleared and saved, as "Clear Save".
    QString possible() const
    {
        QStringList texts{QStringLiteral("Clear"), QStringLiteral("Save")};
        for (int i = 1; i >= 0; --i) {
            if (!button(texts[i])->isEnabled())
                texts.removeAt(i);
        }
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

    void opensWithNothingToClearOrSave()
    {
        const SGainDialog opened(NoneImported);
        QCOMPARE(opened.dialog->windowTitle(), QStringLiteral("Current gain parameter settings"));
        QCOMPARE(opened.dialog->size(), QSize(580, 411));
        QCOMPARE(opened.dialog->minimumSize(), opened.dialog->maximumSize());
        for (const char *text : {"Import...", "Refresh", "Clear", "Save"})
            QCOMPARE(opened.button(QString::fromLatin1(text))->size(), QSize(72, 24));
        QCOMPARE(opened.button(QStringLiteral("Save"))->objectName(), QStringLiteral("BlueButton"));
        QCOMPARE(opened.possible(), QString());
        QCOMPARE(opened.table().rowCount(), 3);
    }

    void whatIsImportedCanBeClearedOnceItIsRead()
    {
        SGainDialog opened(TwoImported);
        QCOMPARE(opened.possible(), QStringLiteral("Clear Save"));
        CEleCurrentAdjustDialog next(opened.processor, nullptr);
        for (const char *text : {"Clear", "Save"}) {
            for (const QPushButton *button : next.findChildren<QPushButton *>())
                QVERIFY(button->text() != QLatin1String(text) || !button->isEnabled());
        }
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
        CFileDialogAnswerer chooser(QString{});
        opened.press("Import...");
        QCOMPARE(chooser.title, QStringLiteral("Import..."));
        QCOMPARE(chooser.filters, QStringList{QStringLiteral("CurrentAdjustParam File(*.acr)")});
        QCOMPARE(opened.commands(), QStringList());

        CFileDialogAnswerer again(m_file.fileName());
        opened.press("Import...");
        QCOMPARE(opened.commands(),
                 QStringList{QStringLiteral("importCurrentGain(%1)").arg(m_file.fileName())});
        const Gains shown{{0, 0, true, true}, {0, 1, true, true}, {1, 2, true, false}}; // the switch stays
        QCOMPARE(opened.table().gains(), shown);
        QVERIFY(switchOf(opened.table(), 0)->isChecked());
        QVERIFY(opened.table().isSwitched());
    }

    void aFirstImportMakesClearingAndSavingPossible()
    {
        const SGainDialog opened(NoneImported);
        CFileDialogAnswerer chooser(m_file.fileName());
        opened.press("Import...");
        QCOMPARE(opened.possible(), QStringLiteral("Clear Save"));
        QVERIFY(switchOf(opened.table(), 2)->isEnabled());
    }

    void aRefusedImportChangesNothing()
    {
        SGainDialog opened(NoneImported);
        opened.host.answers()->refused << QStringLiteral("importCurrentGain");
        opened.host.answers()->error = QStringLiteral("left.acr is damaged at line 2.");
        CFileDialogAnswerer chooser(m_file.fileName());
        const CMessageBoxAnswerer user({Ok});
        opened.press("Import...");
        QCOMPARE(user.boxes().size(), 1);
        QCOMPARE(user.boxes()[0].title, QStringLiteral("Orvo"));
        QCOMPARE(user.boxes()[0].text, QStringLiteral("Import failed."));
        QCOMPARE(user.boxes()[0].details, opened.host.answers()->error);
        QCOMPARE(opened.table().gains(), NoneImported);
        QCOMPARE(opened.possible(), QString());
    }

    void savesTheSwitchesAsTheyStand_data()
    {
        QTest::addColumn<bool>("refused");
        QTest::newRow("taken") << false;
        QTest::newRow("refused") << true;
    }
    void savesTheSwitchesAsTheyStand()
    {
        QFETCH(bool, refused);
        SGainDialog opened(TwoImported);
        if (refused)
            opened.host.answers()->refused << QStringLiteral("sendCurrentGains");
        switchOf(opened.table(), 0)->click();
        switchOf(opened.table(), 1)->click();
        const CMessageBoxAnswerer user(refused ? QStringList{Ok} : QStringList());
        opened.press("Save");
        const Gains switched{{0, 0, true, true}, {0, 1, true, false}, {1, 2, false, false}};
        QCOMPARE(opened.commands(), QStringList{QStringLiteral("sendCurrentGains")});
        QCOMPARE(opened.host.answers()->gains, refused ? TwoImported : switched);
        QCOMPARE(opened.table().gains(), switched);
        QCOMPARE(opened.dialog->isVisible(), refused);
        if (refused) {
            QCOMPARE(user.texts(), QStringList{QStringLiteral("Save failed.")});
            QCOMPARE(user.boxes()[0].details, opened.host.answers()->error);
        }
    }

    void clearsOnceTheUserAgrees_data()
    {
        QTest::addColumn<QStringList>("answers");
        QTest::addColumn<bool>("refused");
        QTest::addColumn<bool>("cleared");
        QTest::newRow("yes") << QStringList{Yes} << false << true;
        QTest::newRow("no") << QStringList{No} << false << false;
        QTest::newRow("refused") << QStringList{Yes, Ok} << true << false;
    }
    void clearsOnceTheUserAgrees()
    {
        QFETCH(QStringList, answers);
        QFETCH(bool, refused);
        QFETCH(bool, cleared);
        SGainDialog opened(TwoImported);
        if (refused)
            opened.host.answers()->refused << QStringLiteral("clearCurrentGains");
        const CMessageBoxAnswerer user(answers);
        opened.press("Clear");
        QCOMPARE(user.boxes().size(), answers.size());
        QCOMPARE(user.boxes()[0].defaultButton, No);
        QCOMPARE(user.texts().contains(QStringLiteral("Clear failed.")), refused);
        QCOMPARE(opened.commands().isEmpty(), answers.contains(No));
        QCOMPARE(opened.table().gains(), cleared ? NoneImported : TwoImported);
        QCOMPARE(opened.possible(), cleared ? QString() : QStringLiteral("Clear Save"));
    }

    void refreshAsksBeforeItDropsSwitches_data()
    {
        QTest::addColumn<bool>("switched");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("readAgain");
        QTest::newRow("nothing switched") << false << QString() << true;
        QTest::newRow("dropped") << true << Yes << true;
        QTest::newRow("kept") << true << No << false;
    }
    void refreshAsksBeforeItDropsSwitches()
    {
        QFETCH(bool, switched);
        QFETCH(QString, answer);
        QFETCH(bool, readAgain);
        SGainDialog opened(TwoImported);
        if (switched)
            switchOf(opened.table(), 0)->click();
        const Gains before = opened.table().gains();
        opened.host.answers()->gains[2].imported = true;
        const CMessageBoxAnswerer user(answer.isEmpty() ? QStringList() : QStringList{answer});
        opened.press("Refresh");
        QCOMPARE(user.boxes().size(), int(switched));
        QCOMPARE(opened.table().gains(), readAgain ? opened.host.answers()->gains : before);
        QCOMPARE(opened.commands(), QStringList());
    }

    void leavingSendsNothing_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::addColumn<bool>("switched");
        QTest::addColumn<QString>("answer");
        QTest::newRow("Escape") << true << false << QString();
        QTest::newRow("close button") << false << false << QString();
        QTest::newRow("Escape, switches dropped") << true << true << Yes;
        QTest::newRow("Escape, switches kept") << true << true << No;
        QTest::newRow("close button, switches kept") << false << true << No;
    }
    void leavingSendsNothing()
    {
        QFETCH(bool, byKey);
        QFETCH(bool, switched);
        QFETCH(QString, answer);
        SGainDialog opened(TwoImported);
        if (switched)
            switchOf(opened.table(), 1)->click();
        const CMessageBoxAnswerer user(switched ? QStringList{answer} : QStringList());
        if (byKey)
            QTest::keyClick(opened.dialog.get(), Qt::Key_Escape);
        else
            opened.dialog->close();
        QCOMPARE(user.boxes().size(), int(switched));
        QCOMPARE(opened.dialog->isVisible(), answer == No);
        QCOMPARE(opened.commands(), QStringList());
    }

    void aProcessorThatLeftTheViewIsNotMistakenForTheNext_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QStringList>("boxes");
        const QString clear = QStringLiteral("Remove all current gain parameters, also from the processor?");
        QTest::newRow("import") << "Import..." << QStringList{QStringLiteral("Import failed.")};
        QTest::newRow("refresh") << "Refresh" << QStringList{QStringLiteral("Refresh failed.")};
        QTest::newRow("clear") << "Clear" << QStringList{clear, QStringLiteral("Clear failed.")};
        QTest::newRow("save") << "Save" << QStringList{QStringLiteral("Save failed.")};
    }
    void aProcessorThatLeftTheViewIsNotMistakenForTheNext()
    {
        QFETCH(QString, button);
        QFETCH(QStringList, boxes);
        SGainDialog opened(TwoImported);
        opened.host.choose(opened.host.addProcessor(QStringLiteral("Lobby"), 2));
        CFileDialogAnswerer chooser(m_file.fileName());
        const CMessageBoxAnswerer user(boxes.size() == 2 ? QStringList{Yes, Ok} : QStringList{Ok});
        QTest::mouseClick(opened.button(button), Qt::LeftButton);
        QCOMPARE(user.texts(), boxes);
        QCOMPARE(user.boxes().last().details, QStringLiteral("The processor is no longer in view."));
        QCOMPARE(opened.commands(), QStringList());
        QCOMPARE(opened.table().gains(), TwoImported);
        QVERIFY(opened.dialog->isVisible());
    }

    void theCommandRunsForTheProcessorInView()
    {
        CFakeHost host;
        host.choose(host.addProcessor(QStringLiteral("Stage"), 2));
        host.answers()->gains = TwoImported;
        QWidget window;
        CCanvasCommands commands(window);
        bool opened = false;
        inNext<QDialog>([&opened](QDialog &dialog) {
            QTRY_COMPARE(dialog.findChild<CEleCurrentAdjustTable *>()->rowCount(), 3);
            QTest::keyClick(&dialog, Qt::Key_Escape);
            opened = true;
        });
        commands.adjustCurrentGain();
        QVERIFY(opened);

        host.choose({});
        host.answers()->forgetCalls();
        commands.adjustCurrentGain();
        QVERIFY(!host.answers()->calls().contains(QStringLiteral("currentGains")));
    }

    void aHostThatIsGoneIsTold()
    {
        const CMessageBoxAnswerer user({Ok});
        CEleCurrentAdjustDialog dialog(QUuid::createUuid(), nullptr);
        dialog.show();
        QTRY_COMPARE(user.texts(), QStringList{QStringLiteral("Refresh failed.")});
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    }

private:
    QTemporaryFile m_file{QDir::tempPath() + QStringLiteral("/XXXXXX.acr")};
};

ORVO_TEST_MAIN(QApplication, CCurrentGainTest)
#include "tst_current_gain.moc"
