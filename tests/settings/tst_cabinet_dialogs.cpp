// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetInformation.h"
#include "layout/settings/CCabinetParaSave.h"
#include "layout/settings/CCabinetTypeSetting.h"
#include "layout/settings/CCustomCabinet.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/settings/TypeSamples.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMenu>

namespace {

/// A library that also has a damaged type, in a folder.
QVector<TypeNode> library()
{
    TypeInfo damaged = typeOf("Damaged");
    damaged.damaged = true;
    return {folder("Rental", {leaf(typeOf("A")), leaf(damaged)}), leaf(typeOf("Table"))};
}

/// The names in @p list, which are separated by commas.
QStringList names(const char *list)
{
    return QString::fromLatin1(list).split(QLatin1Char(','));
}

/// A save dialog as a user sees it.
struct SSaveDialog
{
    explicit SSaveDialog(const QStringList &types)
        : dialog(cabinetsOf(types), library(), nullptr)
    {
        dialog.show();
    }

    QComboBox *type() const { return dialog.findChild<QComboBox *>(); }
    QDoubleSpinBox *gamma() const { return dialog.findChild<QDoubleSpinBox *>(); }
    bool canSave() const { return dialog.buttonBox()->button(QDialogButtonBox::Save)->isEnabled(); }
    bool showsNote() const { return dialog.findChild<QLabel *>(QStringLiteral("Note"))->isVisible(); }

    CCabinetParaSave dialog;
};

CCabinetTypeSetting::Library libraryOf(const QVector<TypeNode> &nodes)
{
    return [nodes] { return nodes; };
}

CCabinetTypeSetting::Cabinets cabinetsOfSize(const QVector<QSize> &sizes)
{
    CCabinetTypeSetting::Cabinets selected;
    for (const QSize &size : sizes) {
        CabinetLayout::CabinetPort::Cabinet cabinet;
        cabinet.rect = QRect(QPoint(640, 0), size);
        selected << cabinet;
    }
    return selected;
}

QPushButton *typeButton(const CCabinetTypeSetting &dialog)
{
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (button->menu())
            return button;
    }
    return nullptr;
}

/// Lets a user act on the type menu while it is open.
void inMenu(CCabinetTypeSetting &dialog, const std::function<void(QMenu &)> &act)
{
    QPushButton *button = typeButton(dialog);
    QTimer::singleShot(0, button, [button, act] {
        act(*button->menu());
        button->menu()->close();
    });
    QTest::mouseClick(button, Qt::LeftButton); // returns once the menu is closed
}

void choose(CCabinetTypeSetting &dialog, const char *path)
{
    QAction *action = nullptr;
    inMenu(dialog, [&](QMenu &menu) { action = entryOf(menu, QLatin1String(path)); });
    QVERIFY2(action && action->isEnabled(), path);
    action->trigger();
}

QImage picture(const QAction *action)
{
    return action->icon().pixmap(16, 16).toImage();
}

const QString ProductPictures = QStringLiteral(":/Image/SettingArea/TypeLibrary/product-%1.svg");

} // namespace

class CCabinetDialogsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatCabinetsHaveInCommon()
    {
        const auto halfRange = [](const SMD5 &key) { // of volts
            TypeInfo type = typeOfKey(key);
            (key == typeOf("A").key ? type.voltsMinimum : type.voltsMaximum) = 0;
            return type;
        };
        using Find = TypeInfo (*)(const SMD5 &);
        for (const auto &[types, find, values] :
             {std::tuple("A", Find(typeOfKey), "1|A|192x384|500mm x 1000.5mm|100V ~ 240V|320W|11.8Kg"),
              {"A,Lighter,A", typeOfKey, "3|Multiple Type|192x384|500mm x 1000.5mm|100V ~ 240V|320W|-"},
              {"Bare,A,A", typeOfKey, "3|Multiple Type|192x384|-|-|-|-"},
              {",", typeOfKey, "2|-|128x96|-|-|-|-"},
              {"A,", typeOfKey, "2|Multiple Type|-|-|-|-|-"},
              {"A", halfRange, "1|A|192x384|500mm x 1000.5mm|-|320W|11.8Kg"},
              {"Table", halfRange, "1|Table|192x384|500mm x 1000.5mm|-|320W|11.8Kg"}}) {
            const CCabinetInformation dialog(cabinetsOf(names(types)), find, nullptr);
            QStringList shown;
            for (const char *row : {"Count", "Cabinet type", "Resolution", "Size", "Working voltage",
                                    "Power consumption", "Weight"})
                shown << labelled<QLineEdit>(dialog, row)->text();
            QCOMPARE(shown.join(QLatin1Char('|')), QLatin1String(values));
        }
    }

    void savingStartsWithTheCabinetsOwnType()
    {
        CFakeHost host;
        for (const auto &[types, chosen] :
             {std::make_pair("Table,Table", "Table"), std::make_pair("A,Table", ""),
              std::make_pair("Damaged", ""), std::make_pair("", "")}) {
            SSaveDialog opened(names(types));
            QCOMPARE(opened.type()->count(), 2);
            QCOMPARE(opened.type()->currentText(), QLatin1String(chosen));
            QCOMPARE(opened.gamma()->value(), 2.8);
            QCOMPARE(opened.canSave(), *chosen != 0);
            if (!*chosen)
                QTest::keyClick(&opened.dialog, Qt::Key_Return); // there is nothing to be saved
            QVERIFY(opened.dialog.isVisible());
        }
        QVERIFY(host.answers()->calls().isEmpty());
    }

    void gammaHasOneDecimalUnlessTheTypeHasATableOfItsOwn()
    {
        const SSaveDialog opened({QStringLiteral("A")});
        for (const auto &[typed, value] :
             {std::make_pair("3.45", 3.4), std::make_pair("4.1", 4.0), std::make_pair("0.9", 1.0)}) {
            opened.gamma()->selectAll();
            QTest::keyClicks(opened.gamma(), QLatin1String(typed));
            opened.gamma()->interpretText();
            QCOMPARE(opened.gamma()->value(), value);
        }
        const QSize size = opened.dialog.size();
        for (const int type : {0, 1, 0}) {
            opened.type()->setCurrentIndex(type);
            QCoreApplication::processEvents();
            QCOMPARE(opened.gamma()->isEnabled(), type == 0);
            QCOMPARE(opened.showsNote(), type == 1);
            QCOMPARE(opened.dialog.size(), size);
        }
    }

    void nothingIsSavedToARedundancyPort()
    {
        CFakeHost host;
        host.answers()->primaryPorts = false;
        SSaveDialog opened({QStringLiteral("A")});
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        QTest::keyClick(&opened.dialog, Qt::Key_Return);
        QVERIFY(user.texts().first().endsWith(QLatin1String("connected to primary output ports.")));
        QCOMPARE(host.answers()->count(QStringLiteral("sendCabinetParameters")), 0);
        QVERIFY(opened.dialog.isVisible());
    }

    void aCustomCabinetHasTheSizeThatWasTyped()
    {
        CCustomCabinet dialog({192, 5000}, nullptr);
        dialog.show();
        QCOMPARE(dialog.cabinetSize(), QSize(192, 2048));
        QTest::keyClicks(labelled<QSpinBox>(dialog, "Width"),
                         QStringLiteral("320")); // replaces what was there
        labelled<QSpinBox>(dialog, "Height")->setValue(7);
        QCOMPARE(dialog.cabinetSize(), QSize(320, 8));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Custom cabinet information"));
        QCOMPARE(dialog.minimumSize(), QSize(208, 151));
        QCOMPARE(dialog.maximumSize(), QSize(208, 151));
        QVERIFY(labelled<QSpinBox>(dialog, "Width")->width() == 140 && okOf(dialog)->isDefault());
    }

    void theMenuIsTheLibrary()
    {
        TypeInfo several = typeOf("Tall");
        several.kind = TypeInfo::MultiReceiver;
        TypeInfo unknownKind = typeOf("Plain");
        unknownKind.kind = 7;
        auto nodes = library();
        nodes << folder("Empty", {}) << leaf(several) << leaf(unknownKind);
        CCabinetTypeSetting dialog(cabinetsOfSize({}), libraryOf(nodes), nullptr);
        dialog.show();
        QVERIFY(!okOf(dialog)->isEnabled());
        inMenu(dialog, [](QMenu &menu) {
            const auto at = [&menu](const char *path) { return entryOf(menu, QLatin1String(path)); };
            QVERIFY(at("Rental")->isEnabled() && at("Rental>A")->isEnabled());
            QVERIFY(!at("Rental>Damaged")->isEnabled() && !at("Empty")->isEnabled());
            const QIcon multi(ProductPictures.arg(QStringLiteral("multi")));
            QCOMPARE(picture(at("Tall")), multi.pixmap(16, 16).toImage());
            QVERIFY(!picture(at("Plain")).isNull() && picture(at("Tall")) != picture(at("Plain")));
        });
    }

    void beginsWithTheTypeThatAllHave()
    {
        CCabinetTypeSetting::Cabinets selected = cabinetsOfSize({{128, 256}, {128, 256}});
        const TypeInfo tall = typeOfSize("Tall", {128, 256});
        for (const bool all : {true, false}) {
            for (auto &cabinet : selected)
                cabinet.type = tall.key;
            if (!all)
                selected.last().type = SMD5();
            const CCabinetTypeSetting dialog(selected, libraryOf({folder("Rental", {leaf(tall)})}), nullptr);
            QCOMPARE(okOf(dialog)->isEnabled(), all);
            QCOMPARE(dialog.type().key == tall.key, all);
        }
    }

    void refusesATypeWhoseSizeNoCabinetCanHave()
    {
        const QVector<QPair<QSize, bool>> sizes{{{2048, 2048}, true}, {{1, 1}, true},    {{2049, 100}, false},
                                                {{100, 2049}, false}, {{0, 100}, false}, {{100, -1}, false}};
        for (const auto &[size, usable] : sizes) {
            CCabinetTypeSetting dialog(
                cabinetsOfSize({{64, 64}}),
                libraryOf({leaf(typeOfSize("Before", {64, 64})), leaf(typeOfSize("Tried", size))}), nullptr);
            dialog.show();
            choose(dialog, "Before");
            const CMessageBoxAnswerer user(usable ? QStringList() : QStringList{QStringLiteral("OK")});
            choose(dialog, "Tried");
            QCOMPARE(dialog.type().name, usable ? QStringLiteral("Tried") : QStringLiteral("Before"));
            QCOMPARE(typeButton(dialog)->text(), dialog.type().name);
            const QString text = QStringLiteral("(%1x%2)").arg(size.width()).arg(size.height());
            QVERIFY(usable ? user.boxes().isEmpty() : user.texts().first().contains(text));
        }
    }

    void asksBeforeCabinetsAreResized()
    {
        const QVector<QPair<QVector<QSize>, QString>> cases{{{{128, 256}, {128, 256}}, QString()},
                                                            {{{128, 128}, {128, 128}}, QStringLiteral("Yes")},
                                                            {{{128, 128}, {128, 128}}, QStringLiteral("No")},
                                                            {{{128, 256}, {127, 256}}, QStringLiteral("No")}};
        for (const auto &[sizes, answer] : cases) {
            CCabinetTypeSetting dialog(cabinetsOfSize(sizes),
                                       libraryOf({leaf(typeOfSize("Tall", {128, 256}))}), nullptr);
            dialog.show();
            choose(dialog, "Tall");
            const CMessageBoxAnswerer user(answer.isEmpty() ? QStringList() : QStringList{answer});
            QTest::keyClick(&dialog, Qt::Key_Return);
            const bool accepted = answer != QLatin1String("No");
            QCOMPARE(dialog.isVisible(), !accepted);
            QCOMPARE(dialog.result() == QDialog::Accepted, accepted);
            QCOMPARE(user.boxes().isEmpty(), answer.isEmpty());
            if (!answer.isEmpty())
                QCOMPARE(user.boxes().first().defaultButton, QStringLiteral("Yes"));
        }
    }

    void theMenuFollowsTheLibraryAndShowsWhatWasChosen()
    {
        QVector<TypeNode> library{folder("Rental", {leaf(typeOf("A & B"))})};
        CFakeHost host;
        host.answers()->onCalled = [&](const QString &call) {
            if (call.startsWith(QLatin1String("showTypeLibrary")))
                library = {leaf(typeOfSize("New", {64, 64}))};
        };
        CCabinetTypeSetting dialog(
            cabinetsOfSize({{64, 64}}), [&library] { return library; }, nullptr);
        dialog.show();
        choose(dialog, "Rental>A && B");
        QCOMPARE(typeButton(dialog)->text(), QStringLiteral("A && B"));
        QCOMPARE(labelled<QLabel>(dialog, "Type size")->text(), QStringLiteral("192x384"));
        choose(dialog, "Type library...");
        QCOMPARE(dialog.type(), typeOf("A & B"));
        choose(dialog, "New");
        QCOMPARE(dialog.type().name, QStringLiteral("New"));
    }
};

ORVO_TEST_MAIN(QApplication, CCabinetDialogsTest)
#include "tst_cabinet_dialogs.moc"
