// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/COutPortTable.h"
#include "layout/settings/CPortAreaDialog.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QHeaderView>
#include <QLabel>
#include <QSpinBox>

#include <algorithm>

namespace {

using Areas = QList<SPortArea>;

/// A host whose processor has three ports, the second of them with an area.
struct SAreaWorld final
{
    CFakeHost host;
    QUuid processor = host.addProcessor(QStringLiteral("Stage"), 3);

    SAreaWorld()
    {
        host.choose(processor);
        host.answers()->areas = {{1, 32000, 10, 640, 480}};
    }
    const Areas areas() { return host.answers()->areas; }
};

COutPortTable &tableOf(const CPortAreaDialog &dialog)
{
    return *dialog.findChild<COutPortTable *>(QStringLiteral("OutPortTable"));
}

/// The editor of a cell, opened as a user does.
QSpinBox &editorOf(COutPortTable &table, int row, int column)
{
    table.setCurrentCell(row, column);
    if (!table.viewport()->findChild<QSpinBox *>()) // a table that is shown opens it by itself
        table.editItem(table.item(row, column));
    return *table.viewport()->findChild<QSpinBox *>();
}

QLabel &hintOf(const CPortAreaDialog &dialog)
{
    for (QLabel *label : dialog.findChildren<QLabel *>()) {
        if (label->wordWrap())
            return *label;
    }
    qFatal("no hint");
}

} // namespace

class CPortAreasTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsAreasWithinTheLargestCoordinate()
    {
        SAreaWorld world;
        CPortAreaDialog dialog(world.areas());
        COutPortTable &table = tableOf(dialog);
        const QVector<int> largest{32767 - 640, 32767 - 480, 767, 32767 - 10};
        for (int column = 0; column < largest.size(); ++column) {
            QSpinBox &editor = editorOf(table, 0, column);
            QCOMPARE(editor.minimum(), 0);
            QCOMPARE(editor.maximum(), largest.at(column));
            table.commitOpenEditor();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QCOMPARE(dialog.areas(), world.areas());
    }

    void showsARowForEachPort()
    {
        SAreaWorld world;
        CPortAreaDialog dialog(world.areas());
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Port area"));
        COutPortTable &table = tableOf(dialog);
        const char *const titles[] = {"X", "Y", "Width", "Height"};
        QCOMPARE(table.columnCount(), 4);
        for (int column = 0; column < 4; ++column) {
            QCOMPARE(table.horizontalHeaderItem(column)->text(), QLatin1String(titles[column]));
            QCOMPARE(table.columnWidth(column), 71);
        }
        const QList<QLabel *> labels = table.findChildren<QLabel *>();
        const auto heading = std::find_if(labels.begin(), labels.end(), [](const QLabel *label) {
            return label->text() == QLatin1String("Output port");
        });
        QVERIFY(heading != labels.end() && (*heading)->size() == QSize(87, 28));
        QVERIFY((*heading)->styleSheet().startsWith(
            QLatin1String(".QLabel{border:1px solid rgb(8,8,8); color: rgba(")));
        QCOMPARE(table.verticalHeader()->width(), 87);
        QCOMPARE(table.selectionMode(), QAbstractItemView::NoSelection);
    }

    /// A row for each port in use; what is typed when the dialog closes counts.
    void handsOverWhatWasEdited()
    {
        SAreaWorld world;
        inNext<CPortAreaDialog>([](CPortAreaDialog &dialog) {
            COutPortTable &table = tableOf(dialog);
            QCOMPARE(table.rowCount(), 3);
            QTest::keyClicks(&editorOf(table, 2, 2), QStringLiteral("320"));
            okOf(dialog)->click();
        });
        CPortAreaDialog::edit(nullptr);
        QCOMPARE(world.areas(), (Areas{{0, 0, 0, 0, 0}, {1, 32000, 10, 640, 480}, {2, 0, 0, 320, 0}}));

        world.host.answers()->refused << QStringLiteral("setPortAreas");
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        inNext<CPortAreaDialog>([](CPortAreaDialog &dialog) { okOf(dialog)->click(); });
        CPortAreaDialog::edit(nullptr);
        QCOMPARE(user.boxes().first().details, world.host.answers()->error);
    }

    void asksBeforeEditsAreLost()
    {
        SAreaWorld world;
        const Areas before = world.areas();
        inNext<CPortAreaDialog>([](CPortAreaDialog &dialog) { dialog.close(); });
        CPortAreaDialog::edit(nullptr); // asks nothing
        for (const char *answer : {"No", "Yes"}) {
            QCOMPARE(world.areas(), before);
            const CMessageBoxAnswerer user({QString::fromLatin1(answer)});
            inNext<CPortAreaDialog>([](CPortAreaDialog &dialog) {
                QTest::keyClicks(&editorOf(tableOf(dialog), 0, 0), QStringLiteral("7"));
                dialog.close();
            });
            CPortAreaDialog::edit(nullptr);
            QCOMPARE(user.texts(),
                     QStringList{QStringLiteral("The data has been modified, whether to save?")});
            QCOMPARE(user.boxes().first().defaultButton, QStringLiteral("Yes"));
        }
        QCOMPARE(world.areas().first().x, quint16(7));
    }

    void warnsOfTheLimits()
    {
        SAreaWorld world;
        const auto isRed = [](const SPortArea &area) {
            const CPortAreaDialog dialog({area});
            return hintOf(dialog).palette().color(QPalette::WindowText) == QColor(Qt::red);
        };
        const auto set = [&world](int limit, bool threeD) {
            world.host.answers()->widthLimit = limit;
            world.host.answers()->threeD = threeD;
        };
        QVERIFY(hintOf(CPortAreaDialog({})).isHidden());
        set(1920, false);
        QVERIFY(isRed({0, 0, 0, 100, 2160}));
        QVERIFY(!isRed({0, 0, 0, 3840, 1080}));
        CPortAreaDialog edited({{0, 0, 0, 100, 100}}); // the hint is about what is set
        tableOf(edited).item(0, 3)->setText(QStringLiteral("2160"));
        QVERIFY(hintOf(edited).palette().color(QPalette::WindowText) != QColor(Qt::red));
        QVERIFY(hintOf(CPortAreaDialog({})).text().endsWith(QLatin1String("over 1920.")));
        set(0, true);
        QVERIFY(!isRed({0, 0, 0, 100, 2160}));
        QCOMPARE(hintOf(CPortAreaDialog({})).text(),
                 QStringLiteral("3D is enabled, and each port has a maximum load of 640*512."));
    }
};

ORVO_TEST_MAIN(QApplication, CPortAreasTest)
#include "tst_port_areas.moc"
