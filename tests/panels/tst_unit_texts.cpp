// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/CSystemLoadProgressBar.h"
#include "layout/panels/CTopologyLabel.h"
#include "platform/widgets/CMenuToolButton.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/panels/SUnitWorld.h"

#include <QApplication>
#include <QCheckBox>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace {

QString sorted(QStringList texts)
{
    texts.sort();
    return texts.join(QLatin1Char('|'));
}

QString captionsIn(const QWidget &unit)
{
    QStringList captions;
    for (const QWidget *widget : unit.findChildren<QWidget *>()) {
        const bool isCaption =
            qobject_cast<const QLabel *>(widget) || qobject_cast<const QCheckBox *>(widget) ||
            qobject_cast<const QPushButton *>(widget) || qobject_cast<const CMenuToolButton *>(widget);
        const QString text = isCaption ? widget->property("text").toString() : QString();
        if (!text.isEmpty())
            captions << text;
    }
    return sorted(captions);
}

} // namespace

/// What the units of the side panel say, and how large their parts are.
class CUnitTextsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void captions()
    {
        const SUnitWorld world;
        const CLayoutSidePanel panel(world.services);
        const QVector<QPair<const char *, const char *>> units{
            {"Cabinets information",
             "Lock to prevent edits|Cabinets selected|0|Columns|Rows|X|Y|Width|Height|"
             "Cabinet size|Width|\u2013|Height|\u2013"},
            {"Topology", ""},
            {"System load", "No output port is in use"},
            {"Mapping", "Read mapping|Read|OSD(Number mapping)|Realtime mapping|Mapping from processor|"
                        "Save mapping|Save"},
            {"Processor redundancy", "Primary processor|None|Port redundancy|None|Save current processor|"
                                     "Save all processors"},
            {"History", ""}};
        const QList<CUnitLabel *> shown = panel.findChildren<CUnitLabel *>();
        QCOMPARE(shown.size(), units.size());
        for (int i = 0; i < units.size(); ++i) {
            QCOMPARE(shown.at(i)->title(), QLatin1String(units.at(i).first));
            const QString captions = QString::fromUtf8(units.at(i).second);
            QCOMPARE(captionsIn(*shown.at(i)), sorted(captions.split(QLatin1Char('|'))));
        }
        QVERIFY(named<QLabel>(panel, "Selected cabinet count"));
    }

    void patternButtons()
    {
        const SUnitWorld world;
        CLayoutSidePanel panel(world.services);
        auto &unit = *panel.findChild<CTopologyLabel *>();
        QCOMPARE(unit.property("ToolLocation"), QVariant(3));
        const QVector<QPair<const char *, const char *>> patterns{
            {"LTR TTB snake", "left-to-right-ver"},         {"RTL TTB snake", "right-to-left-ver"},
            {"RTL BTT snake", "right-to-left-ver-reverse"}, {"LTR BTT snake", "left-to-right-ver-reverse"},
            {"TTB LTR snake", "top-to-bottom-hor"},         {"TTB RTL snake", "top-to-bottom-hor-reverse"},
            {"BTT RTL snake", "bottom-to-top-hor-reverse"}, {"BTT LTR snake", "bottom-to-top-hor"}};
        unit.setButtonEnable(true);
        QSignalSpy clicked(&unit, &CTopologyLabel::buttonClicked);
        const auto buttons = unit.findChildren<QToolButton *>(QStringLiteral("HasBackground"));
        QCOMPARE(buttons.size(), patterns.size());
        for (int id = 0; id < patterns.size(); ++id) {
            QToolButton &button = *buttons.at(id);
            QVERIFY(button.toolTip().startsWith(QLatin1String(patterns.at(id).first)));
            QCOMPARE(button.iconSize(), QSize(40, 28));
            QCOMPARE(button.styleSheet(), QStringLiteral("QToolButton#HasBackground{border-radius:3px;}"));
            const QString image = QStringLiteral(":/Image/Layout/SidePanel/Topology/%1.svg");
            const QIcon icon(image.arg(QLatin1String(patterns.at(id).second)));
            QVERIFY(!icon.pixmap(40, 28).isNull());
            QCOMPARE(button.icon().pixmap(40, 28).toImage(), icon.pixmap(40, 28).toImage());
            button.click();
            QCOMPARE(clicked.takeFirst().first().toInt(), id);
        }
        unit.setButtonEnable(false);
        for (const QToolButton *button : buttons)
            QVERIFY(!button->isEnabled());
    }

    void mappingEntries()
    {
        const SUnitWorld world;
        const CLayoutSidePanel panel(world.services);
        QStringList entries;
        for (const CMenuToolButton *button : panel.findChildren<CMenuToolButton *>()) {
            const QList<QAction *> actions = button->menu()->actions();
            QCOMPARE(button->menu()->defaultAction(), actions.first());
            for (int role = 0; role < actions.size(); ++role) {
                entries << actions.at(role)->text();
                QCOMPARE(int(actions.at(role)->data().value<ReadSaveMappingRole>()), role);
            }
        }
        QCOMPARE(entries.join(QLatin1Char('|')),
                 QStringLiteral("Current processor cabinets|All cabinets|"
                                "Current processor and cabinets|All processors and cabinets"));
        int wide = 0;
        for (const QCheckBox *box : panel.findChildren<QCheckBox *>())
            wide += box->minimumWidth() == 284 && box->maximumWidth() == 284;
        QCOMPARE(wide, 3);
    }

    void loadBar()
    {
        const CSystemLoadProgressBar bar;
        QCOMPARE(bar.objectName(), QStringLiteral("SystemLoadProgressBar"));
        QCOMPARE(bar.minimumSize(), QSize(340, 28));
        QCOMPARE(bar.maximumSize(), QSize(340, 28));
        QCOMPARE(bar.minimum(), 0);
        QCOMPARE(bar.maximum(), 100);
        QCOMPARE(bar.value(), 0);
    }
};

ORVO_TEST_MAIN(QApplication, CUnitTextsTest)
#include "tst_unit_texts.moc"
