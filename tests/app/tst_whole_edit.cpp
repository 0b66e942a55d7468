// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/PortPairs.h"
#include "layout/api/records/RecordMetaTypes.h"
#include "platform/widgets/CTheme.h"
#include "tests/app/CWindowUser.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTemporaryDir>

namespace {

using Area = CWindowUser::PortArea;
using Port = CabinetLayout::CabinetPort;

constexpr int MostMilliseconds = 10 * PatienceMilliseconds; // of a run of the program
const QString saved = QStringLiteral("Save mapping successful.");

void confirm(QDialog &dialog)
{
    QTest::mouseClick(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
}

Port portOf(CWindowUser &user, const char *processor, int number)
{
    return *user.device(QLatin1String(processor)).working.layout().port(number - 1);
}

/// The corners of the wired cabinets, in the order of the wiring.
QVector<QPoint> chainOf(const Port &port)
{
    QVector<QPoint> chain;
    for (const Port::Cabinet &cabinet : PortPairs::mirrorOf(port))
        chain << cabinet.rect.topLeft();
    return chain;
}

QWidget *screen()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QStringLiteral("SimulateScreen") && window->isVisible())
            return window;
    }
    return nullptr;
}

/// How bright the simulated screen is at a place, given in parts of its width and height.
int brightnessAt(qreal x, qreal y)
{
    const QImage picture = screen()->grab().toImage();
    return picture.pixelColor(int(x * picture.width()), int(y * picture.height())).value();
}

const QVector<QPoint> fromBelow{{1344, 576}, {1344, 384}, {1344, 192}, {1344, 0},
                                {1152, 0},   {1152, 192}, {1152, 384}, {1152, 576}};
const QVector<QPoint> fromFactory{{1152, 0},   {1152, 192}, {1152, 384}, {1152, 576},
                                  {1344, 576}, {1344, 384}, {1344, 192}, {1344, 0}};

/// Replaces what port 4 of Lobby holds by a grid that is appended with the mouse.
void appendToPortFour(CWindowUser &user)
{
    QVERIFY(user.clickPort(4, Area::Label));
    user.key(Qt::Key_Delete);
    QTRY_COMPARE(portOf(user, "Lobby", 4).cabinetCount(), 0);
    QVERIFY(user.clickPort(4, Area::Append));
    user.inDialog(QStringLiteral("Custom cabinet information"), [&user](QDialog &dialog) {
        for (QSpinBox *side : dialog.findChildren<QSpinBox *>())
            user.enter(*side, QStringLiteral("192"));
        user.keepPicture("typical-2-custom-size", &dialog);
        confirm(dialog);
    });
    QVERIFY(user.choose(QStringLiteral("Custom...")));
    user.drag({1248, 96}, {1440, 672}); // from the middle of the first to that of the last
    QTRY_COMPARE(portOf(user, "Lobby", 4).cabinetCount(), 8);
}

} // namespace

/// Parts of stories in the real program with the real module, by clicks and keys alone. Each is one run of
/// the program; the next one finds what the processors have stored.
class CStoryParts final : public CTestBase
{
    Q_OBJECT

private:
    QString m_state = qEnvironmentVariable("ORVO_STORY");

    void setUp() override
    {
        // Without a window manager a dialog may lose the focus before it is on the screen.
        expectWarning(QRegularExpression(QStringLiteral("XCB error: 8 .*SetInputFocus")));
    }

private Q_SLOTS:
    void initTestCase()
    {
        registerRecordMetaTypes();
        CTheme::apply(*qApp);
        QApplication::setQuitOnLastWindowClosed(false);               // the test ends the program
        QApplication::setKeyboardInputInterval(PatienceMilliseconds); // a busy machine types slowly
    }

    void anEditIsMadeAndSaved()
    {
        CWindowUser user(m_state);
        QVERIFY(user.detect() && user.openProcessor(QStringLiteral("Lobby")));
        user.keepPicture("typical-1-detected");
        const auto *title = user.window().findChild<QWidget *>(QStringLiteral("ModuleTitleBar"));
        QVERIFY(title && named<QAbstractButton>(*title, "Show screen"));
        QVERIFY(named<QScrollArea>(user.window(), "Side panel")->widget()->sizeHint().height() <= 698);
        appendToPortFour(user);
        QTRY_VERIFY(user.portName(4).contains(QStringLiteral("load 90%")));
        QVERIFY(user.clickButton("BTT RTL snake")); // of what was appended, which is selected
        QTRY_COMPARE(chainOf(portOf(user, "Lobby", 4)), fromBelow);
        user.keepPicture("typical-3-wired");

        QWidget *x = user.field("X");
        user.key(Qt::Key_Left);
        QTRY_COMPARE(x->property("text").toString(), QStringLiteral("1151"));
        user.enter(*x, QStringLiteral("6*192"));
        QTest::keyClick(x, Qt::Key_Return);
        QTRY_COMPARE(chainOf(portOf(user, "Lobby", 4)), fromBelow);
        QVERIFY(user.clickPort(4, Area::Lock));
        QTRY_VERIFY(portOf(user, "Lobby", 4).locked);
        user.key(Qt::Key_Right);
        QCOMPARE(chainOf(portOf(user, "Lobby", 4)), fromBelow);
        QVERIFY(user.clickPort(4, Area::Lock, Qt::RightButton));
        QVERIFY(user.choose(QStringLiteral("Lock options>Lock current output port")));
        QTRY_VERIFY(!portOf(user, "Lobby", 4).locked);
        QCOMPARE(user.reportOf("Save"), saved);
        QVERIFY(user.closeWindow()); // nothing is unsaved
    }

    void theEditIsThereAgain()
    {
        CWindowUser user(m_state);
        QVERIFY(user.detect() && user.openProcessor(QStringLiteral("Lobby")));
        QCOMPARE(chainOf(portOf(user, "Lobby", 4)), fromBelow);
        user.keepPicture("typical-4-after-restart");
        QVERIFY(user.closeWindow());
    }

    void anEditIsMadeByKeyboardAlone()
    {
        CWindowUser user(m_state);
        QVERIFY(user.detectByKey());
        QVERIFY(user.tabTo("Devices"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Lobby")); // searches in the tree
        QTRY_VERIFY(user.isOpen(QStringLiteral("Lobby")));
        QVERIFY(user.tabTo("CPort"));
        user.press({Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_T | Qt::CTRL});
        user.inDialog(QStringLiteral("Custom cabinet information"), [](QDialog &dialog) {
            for (const Qt::Key next : {Qt::Key_Tab, Qt::Key_Return}) {
                QTest::keyClick(dialog.focusWidget(), Qt::Key_A, Qt::ControlModifier);
                QTest::keyClicks(dialog.focusWidget(), QStringLiteral("96"));
                QTest::keyClick(dialog.focusWidget(), next);
            }
        });
        user.press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}); // "Custom..."
        QTRY_VERIFY(user.canvas()->hasFocus());                   // where the ghost waits
        user.press({Qt::Key_Down, Qt::Key_Up, Qt::Key_Return});
        QTRY_COMPARE(portOf(user, "Lobby", 4).cabinetCount(), 9);
        QVERIFY(user.tabTo("CPort"));
        user.press({Qt::Key_Space});          // the whole port
        QVERIFY(user.tabTo("LTR TTB snake")); // arrow keys go on to "BTT LTR snake"
        user.press({Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Space});
        QTRY_COMPARE(chainOf(portOf(user, "Lobby", 4)).first(), QPoint(1152, 576));
        QCOMPARE(chainOf(portOf(user, "Lobby", 4)).last(), QPoint(1536, 0));
        QVERIFY(user.tabTo("CLayoutGraphicsView"));
        user.press({Qt::Key_Right});
        QTRY_COMPARE(chainOf(portOf(user, "Lobby", 4)).last(), QPoint(1537, 0));
        user.keepPicture("keyboard-1-nudged");
        QVERIFY(user.tabTo("Save"));
        user.inDialog(QStringLiteral("Orvo"),
                      [](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
        user.press({Qt::Key_Space});
        QTRY_VERIFY(!user.device(QStringLiteral("Lobby")).isModified());
        QTRY_VERIFY(!QApplication::activeModalWidget());
        QCOMPARE(user.clicks(), 0);
        QVERIFY(user.closeWindow());
    }

    void theDeviceDropsWhileItIsSaved()
    {
        CWindowUser user(m_state);
        QVERIFY(user.detect() && user.openProcessor(QStringLiteral("Lobby")));
        QVERIFY(user.clickPort(4, Area::Label) && user.clickButton("BTT RTL snake"));
        QTRY_COMPARE(chainOf(portOf(user, "Lobby", 4)), fromBelow);
        QVERIFY(user.chooseInMenuBar(QStringLiteral("Simulation>Drop the connection half-way")));
        QCOMPARE(user.reportOf("Save"), QStringLiteral("Save mapping failed."));
        user.keepPicture("dropped-1-failed");
        QCOMPARE(chainOf(portOf(user, "Lobby", 4)), fromBelow); // still in the editor
        QVERIFY(user.device(QStringLiteral("Lobby")).isModified());
        const QStringList asked = user.answering({QStringLiteral("Yes")}, [&user] { user.closeWindow(); });
        QVERIFY(asked.first().contains(QStringLiteral("have not been saved")));
    }

    void nothingHasArrivedInPart()
    {
        CWindowUser user(m_state);
        QVERIFY(user.detect() && user.openProcessor(QStringLiteral("Lobby")));
        QCOMPARE(chainOf(portOf(user, "Lobby", 4)), fromFactory);
        QVERIFY(user.clickPort(4, Area::Label) && user.clickButton("BTT RTL snake"));
        QTRY_COMPARE(chainOf(portOf(user, "Lobby", 4)), fromBelow);
        QCOMPARE(user.reportOf("Save"), saved);
        user.keepPicture("dropped-2-saved");
        QVERIFY(user.closeWindow());
    }

    void aRedundancyPortCarriesTheWallWhenThePrimaryIsUnplugged()
    {
        CWindowUser user(m_state);
        QVERIFY(user.detect() && user.openProcessor(QStringLiteral("Side left")));
        QVERIFY(user.clickPort(11, Area::Label, Qt::RightButton));
        QCOMPARE(user.answering({QStringLiteral("OK")},
                                [&user] { user.choose(QStringLiteral("Set as redundancy for>Port 1")); }),
                 QStringList(QStringLiteral("Set successful.")));
        QTRY_VERIFY(user.portName(11).contains(QStringLiteral("Redundancy for output port1")));
        user.keepPicture("redundancy-1-set");
        QCOMPARE(user.reportOf("Save"), saved);

        QVERIFY(user.clickButton("Show screen"));
        QTRY_VERIFY(screen());
        const QRectF first(portOf(user, "Side left", 1).getAllCabinets().first().rect);
        const QSize wall = user.device(QStringLiteral("Side left")).settings.canvas;
        const auto brightness = [&] {
            return brightnessAt(first.center().x() / wall.width(), first.center().y() / wall.height());
        };
        QTRY_VERIFY(brightness() > 60);
        const QString cable = QStringLiteral("Simulation>Unplug output port>Port 1");
        QVERIFY(user.chooseInMenuBar(cable));
        user.keepPicture("redundancy-2-unplugged", screen());
        QVERIFY(brightness() > 60); // the other end of the chain is fed
        QVERIFY(user.clickPort(11, Area::Label, Qt::RightButton));
        QCOMPARE(user.answering({QStringLiteral("OK")},
                                [&user] { user.choose(QStringLiteral("Cancel redundancy")); }),
                 QStringList(QStringLiteral("Set successful.")));
        QTRY_VERIFY(brightness() < 40);
        user.keepPicture("redundancy-3-dark", screen());
        QVERIFY(user.chooseInMenuBar(cable)); // plugs it in again
        QTRY_VERIFY(brightness() > 60);
        user.keepPicture("redundancy-4-restored", screen());
        user.answering({QStringLiteral("Yes")},
                       [&user] { user.closeWindow(); }); // the pair has ended, unsaved
    }

    void aWallWithABackupForEachPortTakesFewClicks()
    {
        CWindowUser user(m_state);
        QVERIFY(user.detect());
        user.inDialog(QStringLiteral("New project"), [&user](QDialog &dialog) {
            const auto number = [&](const char *name, const char *text) {
                user.enter(*dialog.findChild<QSpinBox *>(QLatin1String(name)), QLatin1String(text));
            };
            QTest::keyClicks(dialog.findChild<QLineEdit *>(QStringLiteral("Name")),
                             QStringLiteral("Front wall"));
            number("Columns", "24");
            number("Rows", "10");
            number("Ports", "15");
            auto *backup = dialog.findChild<QCheckBox *>(QStringLiteral("Redundancy"));
            user.click(*backup, QPoint(8, backup->height() / 2));
            user.keepPicture("backups-1-new", &dialog);
            user.click(*dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok));
        });
        QVERIFY(user.chooseInMenuBar(QStringLiteral("File>New project...")));
        QTRY_COMPARE(user.device(QStringLiteral("Front wall")).working.layout().ports.size(), 30);
        QVERIFY(user.openProcessor(QStringLiteral("Arena")));
        const auto openMenu = [&user] { return user.clickInTree(QStringLiteral("Arena"), Qt::RightButton); };
        QCOMPARE(user.answering(
                     {QStringLiteral("OK")},
                     [&] { user.chooseFrom(openMenu, QStringLiteral("Copy mapping from>Front wall")); }),
                 QStringList(QStringLiteral("Import mapping successful.")));
        QCOMPARE(user.reportOf("Save"), saved);
        user.keepPicture("backups-2-saved");
        QVERIFY2(user.clicks() <= 25, qPrintable(QString::number(user.clicks())));
        QFile page(QStringLiteral(ORVO_EDITOR_PAGE));
        QVERIFY(page.open(QIODevice::ReadOnly));
        QVERIFY(page.readAll().contains(QByteArray::number(user.clicks()) + " clicks lay and wire"));

        const SDevice arena = user.device(QStringLiteral("Arena"));
        QVERIFY(!arena.isModified());
        for (int port = 0; port < 15; ++port) {
            const Port &primary = *arena.working.layout().port(port);
            const Port &backup = *arena.working.layout().port(port + 15);
            QCOMPARE(chainOf(primary).size(), 16);
            QCOMPARE(primary.redundancyPort, port + 15);
            QVERIFY(PortPairs::cabinetsMatch(backup, primary));
        }
        user.answering({QStringLiteral("Discard")}, [&user] { user.closeWindow(); }); // the project's file
    }
};

/// Whole stories: each part is a run of the program in a process of its own, all on the same processors.
class CWholeEditTest final : public CTestBase
{
    Q_OBJECT

private:
    static void play(const QStringList &parts)
    {
        const QTemporaryDir state;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ORVO_STORY"), state.path());
        for (const QString &part : parts) {
            QProcess process;
            process.setProcessEnvironment(environment);
            process.setProcessChannelMode(QProcess::MergedChannels);
            process.start(QCoreApplication::applicationFilePath(), {part});
            const bool ended = process.waitForFinished(MostMilliseconds);
            const bool done =
                ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
            if (!ended) {
                process.kill();
                process.waitForFinished();
            }
            QVERIFY2(done, process.readAll().constData());
        }
    }

private Q_SLOTS:
    void anEditIsThereAgainAfterARestart()
    {
        play({QStringLiteral("anEditIsMadeAndSaved"), QStringLiteral("theEditIsThereAgain")});
    }
    void theKeyboardIsEnough() { play({QStringLiteral("anEditIsMadeByKeyboardAlone")}); }
    void aDeviceThatDropsWhileItIsSavedLosesNothing()
    {
        play({QStringLiteral("theDeviceDropsWhileItIsSaved"), QStringLiteral("nothingHasArrivedInPart"),
              QStringLiteral("theEditIsThereAgain")});
    }
    void aRedundancyPortStandsIn()
    {
        play({QStringLiteral("aRedundancyPortCarriesTheWallWhenThePrimaryIsUnplugged")});
    }
    void aWallWithBackupsTakesFewClicks()
    {
        play({QStringLiteral("aWallWithABackupForEachPortTakesFewClicks")});
    }
};

int main(int argc, char **argv)
{
    const CTestEnvironment environment;
    QApplication application(argc, argv);
    if (qEnvironmentVariableIsEmpty("ORVO_STORY")) {
        CWholeEditTest stories;
        return QTest::qExec(&stories, argc, argv);
    }
    // Inside an event loop, as the program runs: a menu that is deleted later then outlives the dialog that
    // it opens.
    int result = 1;
    QTimer::singleShot(0, &application, [&] {
        CStoryParts parts;
        result = QTest::qExec(&parts, argc, argv);
        application.quit();
    });
    QApplication::exec();
    return result;
}
#include "tst_whole_edit.moc"
