// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/resources/LayoutResources.h"
#include "tests/editor/CMouseTester.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/harness/CTestBase.h"

#include <QMenu>
#include <QTimer>

namespace {

/// Chooses an entry of the next menu that opens, as a user does with the mouse.
class CMenuUser final : public QObject
{
public:
    /// @p before is done while the menu is open.
    CMenuUser(const QString &text, const std::function<void()> &before)
    {
        connect(&m_watch, &QTimer::timeout, this, [this, text, before] {
            if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
                m_watch.stop();
                before();
                click(*menu, text);
            }
        });
        m_watch.start(1);
    }

private:
    static void click(QMenu &menu, const QString &text)
    {
        for (QAction *action : menu.actions()) {
            if (action->text() == text)
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
        }
        menu.close(); // if there is no such entry
    }

    QTimer m_watch;
};

} // namespace

class COpenedMenusTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void rightClicksOpenTheMenuOfWhatIsThere_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<int>("state"); // 1: redundancy port, 2: a tool is in use, 3: the one that highlights
        QTest::addColumn<QString>("menu");
        const QString cabinet = QStringLiteral("CabinetMenu");
        QTest::newRow("cabinet") << QPoint(64, 64) << 0 << cabinet;
        QTest::newRow("gap of a group") << QPoint(64, 392) << 0 << cabinet;
        QTest::newRow("canvas") << QPoint(700, 400) << 0 << QString();
        QTest::newRow("redundancy port") << QPoint(64, 64) << 1 << QStringLiteral("none");
        QTest::newRow("tool in use") << QPoint(64, 64) << 2 << QStringLiteral("none");
        QTest::newRow("highlighting") << QPoint(64, 64) << 3 << QStringLiteral("CabinetMenu");
    }
    void rightClicksOpenTheMenuOfWhatIsThere()
    {
        QFETCH(QPoint, place);
        QFETCH(int, state);
        CMouseTester mouse;
        mouse.showAtActualSize();
        if (state == 1)
            mouse.states().redundancy[0] = CabinetLayout::CabinetPort::Redundant;
        if (state == 2)
            mouse.view().toolBar().chooseMode(CEditorToolBar::Pen);
        if (state == 3)
            mouse.view().toolBar().chooseMode(CEditorToolBar::Calibrate);
        QString seen = QStringLiteral("none");
        QTimer watch;
        connect(&watch, &QTimer::timeout, this, [&seen] {
            if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
                seen = menu->objectName();
                menu->close();
            }
        });
        watch.start(1);
        mouse.pressRight(place);
        mouse.contextMenu(place);
        QTEST(seen, "menu");
        if (seen == QLatin1String("CabinetMenu"))
            QCOMPARE(mouse.selected().size(), 1); // the press has selected what the menu is for
    }

    void whatWasClickedMayGo_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<QString>("entry");
        const QPoint cabinet(64, 64);
        const QPoint group(64, 264);
        QTest::newRow("a cabinet is deleted") << cabinet << QStringLiteral("Delete cabinet");
        QTest::newRow("a cabinet is cut") << cabinet << QStringLiteral("Cut");
        QTest::newRow("a group is deleted") << group << QStringLiteral("Delete cabinet");
        QTest::newRow("a group is dissolved") << group << QStringLiteral("Ungroup");
    }
    void whatWasClickedMayGo()
    {
        QFETCH(QPoint, place);
        QFETCH(QString, entry);
        CMouseTester mouse;
        mouse.showAtActualSize();
        const CMenuUser user(entry, [] {});
        mouse.pressRight(place);
        mouse.contextMenu(place);
        QVERIFY(mouse.layout() != mouse.original());
        QCOMPARE(mouse.stack().count(), 1);
        QCOMPARE(CSceneVerifier::faultIn(mouse.scene()), QString());
        const QPoint another(192, 64);
        mouse.click(another); // it is the mouse's again
        QCOMPARE(mouse.selected(), CMouseTester::Items{mouse.at(another)});
        mouse.scene().undo(nullptr);
        QCOMPARE(mouse.layout(), mouse.original());
        QCOMPARE(CSceneVerifier::faultIn(mouse.scene()), QString());
    }

    void theWallMayGo()
    {
        CMouseTester mouse;
        mouse.showAtActualSize();
        const LayoutData other = SmallWorlds::data({SmallWorlds::wiredPort(0, 3)});
        const CMenuUser user(QStringLiteral("Delete cabinet"),
                             [&mouse, &other] { mouse.view().showLayout(SmallWorlds::node(other), other); });
        mouse.pressRight({64, 64});
        mouse.contextMenu({64, 64});
        CabinetLayout shown;
        mouse.scene().getLayoutData(shown, other.processor);
        QCOMPARE(shown, other.layout);
        QCOMPARE(CSceneVerifier::faultIn(mouse.scene()), QString());
    }
};

ORVO_TEST_MAIN(QApplication, COpenedMenusTest)
#include "tst_opened_menus.moc"
