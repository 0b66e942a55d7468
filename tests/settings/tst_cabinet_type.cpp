// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetTypeSetting.h"
#include "layout/settings/CCustomCabinet.h"
#include "platform/widgets/CTheme.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QMenu>
#include <QSpinBox>

namespace {

using Node = SSettings::TypeLibrary::STreeNode;
using Type = Node::RcvTypeInfo;

Type type(const char *name, int width, int height, int kind = Type::SingleReceiver)
{
    Type info;
    info.key = SMD5::ofContent(name);
    info.name = QLatin1String(name);
    info.kind = kind;
    info.width = width;
    info.height = height;
    return info;
}

Node leaf(const Type &info)
{
    Node node;
    node.name = info.name;
    node.key = info.key;
    node.info = info;
    return node;
}

Node folder(const char *name, const QVector<Node> &children)
{
    Node node;
    node.name = QLatin1String(name);
    node.kind = Node::Folder;
    node.children = children;
    return node;
}

CCabinetTypeSetting::Library libraryOf(const QVector<Node> &nodes)
{
    return [nodes] { return nodes; };
}

CCabinetTypeSetting::Cabinets cabinets(const QVector<QSize> &sizes)
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

QString typeSize(const CCabinetTypeSetting &dialog)
{
    return labelled<QLabel>(dialog, "Type size")->text();
}

QAction *entry(const QMenu &menu, const QStringList &path)
{
    for (QAction *action : menu.actions()) {
        if (action->text() == path.first())
            return path.size() == 1 ? action : entry(*action->menu(), path.mid(1));
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

void choose(CCabinetTypeSetting &dialog, const QStringList &path)
{
    QAction *action = nullptr;
    inMenu(dialog, [&](QMenu &menu) { action = entry(menu, path); });
    QVERIFY2(action && action->isEnabled(), qPrintable(path.join(QLatin1Char('/'))));
    action->trigger();
}

/// The menu as text: submenus in brackets, "-" for a separator, "!" before a disabled entry.
QString outline(const QMenu &menu)
{
    QStringList entries;
    for (const QAction *action : menu.actions()) {
        const QString mark = action->isEnabled() ? QString() : QStringLiteral("!");
        if (action->isSeparator())
            entries << QStringLiteral("-");
        else if (action->menu())
            entries << QStringLiteral("%1%2[%3]").arg(mark, action->text(), outline(*action->menu()));
        else
            entries << mark + action->text();
    }
    return entries.join(QLatin1Char(','));
}

QImage picture(const QAction *action)
{
    return action->icon().pixmap(16, 16).toImage();
}

const QString SizeQuestion = QStringLiteral("The size of the cabinet and the selected type does not match. "
                                            "Do you want to change the size of cabinet?");

} // namespace

class CCabinetTypeTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }

    void theMenuIsTheLibrary()
    {
        Type damaged = type("Broken", 0, 0);
        damaged.damaged = true;
        CCabinetTypeSetting dialog(
            cabinets({}),
            libraryOf({folder("Rental", {folder("Indoor", {leaf(type("R & D", 192, 192))}),
                                         leaf(type("Tall", 192, 384, Type::MultiReceiver))}),
                       folder("Empty", {}), leaf(damaged), leaf(type("Plain", 64, 64, 7))}),
            nullptr);
        dialog.show();
        inMenu(dialog, [](QMenu &menu) {
            QCOMPARE(outline(menu), QStringLiteral("Rental[Indoor[R && D],Tall],!Empty[],!Broken,Plain,-,"
                                                   "Type library..."));
            const QAction *several = entry(menu, {QStringLiteral("Rental"), QStringLiteral("Tall")});
            const QAction *plain = entry(menu, {QStringLiteral("Plain")});
            QVERIFY(!picture(plain).isNull());
            QVERIFY(picture(several) != picture(plain));
            QCOMPARE(picture(entry(menu, {QStringLiteral("Rental"), QStringLiteral("Indoor"),
                                          QStringLiteral("R && D")})),
                     picture(plain));
            QCOMPARE(QString::fromLatin1(several->data().typeName()),
                     QStringLiteral("SSettings::TypeLibrary::STreeNode::RcvTypeInfo"));
        });
    }

    void showsWhatWasChosen()
    {
        CCabinetTypeSetting dialog(
            cabinets({{128, 256}}),
            libraryOf({folder("Rental", {leaf(type("A & B", 128, 256))}),
                       leaf(type("A name that is far too long for a button of this width", 64, 64))}),
            nullptr);
        dialog.show();
        QPushButton *button = typeButton(dialog);
        QVERIFY(dialog.isModal());
        QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("Highlight-NormalFont"))->text(),
                 QStringLiteral("Type selection"));
        QCOMPARE(labelled<QPushButton>(dialog, "Type"), button);
        QCOMPARE(withoutMnemonic(button->text()), QStringLiteral("Please select type"));
        QCOMPARE(button->size(), QSize(236, 24));
        QCOMPARE(button->styleSheet(), QStringLiteral("QPushButton{text-align: left;}"));
        QCOMPARE(typeSize(dialog), QStringLiteral("-"));
        QVERIFY2(!okOf(dialog)->isEnabled(), "there is nothing yet to say OK to");

        choose(dialog, {QStringLiteral("Rental"), QStringLiteral("A && B")});
        QCOMPARE(button->text(), QStringLiteral("A && B"));
        QCOMPARE(typeSize(dialog), QStringLiteral("128x256"));
        QTest::mouseClick(okOf(dialog), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.type(), type("A & B", 128, 256));

        const QString longName = QStringLiteral("A name that is far too long for a button of this width");
        dialog.show();
        choose(dialog, {longName});
        QVERIFY(button->text().endsWith(QChar(0x2026)));
        QCOMPARE(button->toolTip(), longName);
    }

    void refusesATypeWhoseSizeNoCabinetCanHave_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("usable");
        QTest::newRow("largest") << QSize(2048, 2048) << true;
        QTest::newRow("smallest") << QSize(1, 1) << true;
        QTest::newRow("too wide") << QSize(2049, 100) << false;
        QTest::newRow("too high") << QSize(100, 2049) << false;
        QTest::newRow("no width") << QSize(0, 100) << false;
        QTest::newRow("negative") << QSize(100, -1) << false;
    }

    void refusesATypeWhoseSizeNoCabinetCanHave()
    {
        QFETCH(QSize, size);
        QFETCH(bool, usable);
        const Type tried = type("Tried", size.width(), size.height());
        CCabinetTypeSetting dialog(cabinets({{64, 64}}),
                                   libraryOf({leaf(type("Before", 64, 64)), leaf(tried)}), nullptr);
        dialog.show();
        choose(dialog, {QStringLiteral("Before")});
        const CMessageBoxAnswerer user(usable ? QStringList() : QStringList{QStringLiteral("OK")});
        choose(dialog, {QStringLiteral("Tried")});
        QCOMPARE(dialog.type().name, usable ? QStringLiteral("Tried") : QStringLiteral("Before"));
        QCOMPARE(typeButton(dialog)->text(), dialog.type().name);

        const QString text = QStringLiteral("Cabinet height or width must be between 1-2048, the WxH "
                                            "(%1x%2) of this cabinet type already exceeds the limit.")
                                 .arg(size.width())
                                 .arg(size.height());
        QCOMPARE(user.texts(), usable ? QStringList() : QStringList{text});
    }

    void asksBeforeCabinetsAreResized_data()
    {
        QTest::addColumn<QVector<QSize>>("sizes");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("accepted");
        using Sizes = QVector<QSize>;
        QTest::newRow("all match") << Sizes{{128, 256}, {128, 256}} << QString() << true;
        QTest::newRow("yes") << Sizes{{128, 128}, {128, 128}} << QStringLiteral("Yes") << true;
        QTest::newRow("no") << Sizes{{128, 128}, {128, 128}} << QStringLiteral("No") << false;
        QTest::newRow("only the last differs")
            << Sizes{{128, 256}, {127, 256}} << QStringLiteral("No") << false;
    }

    void asksBeforeCabinetsAreResized()
    {
        QFETCH(QVector<QSize>, sizes);
        QFETCH(QString, answer);
        QFETCH(bool, accepted);
        CCabinetTypeSetting dialog(cabinets(sizes), libraryOf({leaf(type("Tall", 128, 256))}), nullptr);
        dialog.show();
        choose(dialog, {QStringLiteral("Tall")});
        const CMessageBoxAnswerer user(answer.isEmpty() ? QStringList() : QStringList{answer});
        QTest::keyClick(&dialog, Qt::Key_Return);
        QCOMPARE(dialog.isVisible(), !accepted);
        QCOMPARE(dialog.result() == QDialog::Accepted, accepted);
        QCOMPARE(user.texts(), answer.isEmpty() ? QStringList() : QStringList(SizeQuestion));
        if (!user.boxes().isEmpty()) {
            QCOMPARE(user.boxes().first().title, QStringLiteral("Orvo"));
            QCOMPARE(user.boxes().first().defaultButton, QStringLiteral("Yes"));
        }
    }

    void theMenuFollowsTheLibrary()
    {
        QVector<Node> library{leaf(type("Old", 64, 64))};
        CFakeHost host;
        host.answers()->onCalled = [&](const QString &call) {
            if (call.startsWith(QLatin1String("showTypeLibrary")))
                library = {leaf(type("New", 64, 64))};
        };
        CCabinetTypeSetting dialog(
            cabinets({{64, 64}}), [&library] { return library; }, nullptr);
        dialog.show();
        choose(dialog, {QStringLiteral("Old")});
        choose(dialog, {QStringLiteral("Type library...")});
        QCOMPARE(host.answers()->count(QStringLiteral("showTypeLibrary")), 1);
        QCOMPARE(dialog.type().name, QStringLiteral("Old"));
        choose(dialog, {QStringLiteral("New")});
        QCOMPARE(dialog.type().name, QStringLiteral("New"));
    }

    void withoutAHostThereIsNoLibraryToShow()
    {
        CCabinetTypeSetting dialog(cabinets({{64, 64}}), libraryOf({}), nullptr);
        dialog.show();
        choose(dialog, {QStringLiteral("Type library...")});
        QVERIFY(dialog.isVisible());
        QVERIFY(!okOf(dialog)->isEnabled());
    }

    void leavingAsksNothing()
    {
        CCabinetTypeSetting dialog(cabinets({{128, 128}}), libraryOf({leaf(type("Tall", 128, 256))}),
                                   nullptr);
        dialog.show();
        choose(dialog, {QStringLiteral("Tall")});
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
    }

    void aCustomCabinetHasTheSizeThatWasTyped()
    {
        CCustomCabinet dialog({192, 5000}, nullptr);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Custom cabinet information"));
        QCOMPARE(dialog.size(), QSize(208, 151));
        auto *width = labelled<QSpinBox>(dialog, "Width");
        auto *height = labelled<QSpinBox>(dialog, "Height");
        for (const QSpinBox *box : {width, height}) {
            QCOMPARE(box->width(), 140);
            QVERIFY(dialog.rect().contains(QRect(box->mapTo(&dialog, QPoint()), box->size())));
        }
        QCOMPARE(dialog.cabinetSize(), QSize(192, 2048));
        QTest::keyClicks(width, QStringLiteral("320"));
        height->setValue(7);
        QTest::keyClick(&dialog, Qt::Key_Return);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.cabinetSize(), QSize(320, 8));
    }
};

ORVO_TEST_MAIN(QApplication, CCabinetTypeTest)
#include "tst_cabinet_type.moc"
