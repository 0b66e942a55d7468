// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/app/CWindowUser.h"

#include "host/app/CDevicePanel.h"
#include "host/app/CModuleHost.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCursor>
#include <QDir>
#include <QMenuBar>
#include <QScreen>
#include <QToolButton>
#include <QTreeView>

namespace {

constexpr int LookAgainMilliseconds = 20;
constexpr int MostTabStops = 100;

bool waitFor(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, PatienceMilliseconds);
}

template <typename Widget, typename Matches>
Widget *findVisible(const QWidget &below, const Matches &matches)
{
    for (Widget *widget : below.findChildren<Widget *>()) {
        if (widget->isVisible() && matches(*widget))
            return widget;
    }
    return nullptr;
}

QAction *actionNamed(const QList<QAction *> &actions, const QString &text)
{
    for (QAction *action : actions) {
        if (withoutMnemonic(action->text()).section(QLatin1Char('\t'), 0, 0) == text)
            return action;
    }
    return nullptr;
}

} // namespace

CWindowUser::CWindowUser(const QString &stateFolder, const QString &journalFolder, double delays)
{
    SDeviceSettings settings;
    settings.stateFolder = stateFolder;
    settings.journalFolder = journalFolder;
    settings.delayScale = delays;
    m_window = std::make_unique<CMainWindow>(settings);
    m_window->loadModule(QStringLiteral(ORVO_LAYOUT_MODULE));
    m_window->resize(1600, 960);
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight()); // away from menus
    m_window->show();
    m_window->activateWindow();
    if (!waitFor([] { return QApplication::focusWidget() != nullptr; }))
        qWarning("the window does not come");
}

CWindowUser::~CWindowUser() = default;

void CWindowUser::click(QWidget &widget, const QPoint &place, Qt::MouseButton button)
{
    ++m_clicks;
    QTest::mouseClick(&widget, button, {}, place);
    if (button == Qt::RightButton && !QApplication::activePopupWidget()) { // what X makes of it
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget.mapToGlobal(place));
        QApplication::sendEvent(&widget, &event);
    }
}

QAbstractButton *CWindowUser::visibleButton(const char *textOrTip) const
{
    const QString wanted = QLatin1String(textOrTip);
    return findVisible<QAbstractButton>(*m_window, [&wanted](const QAbstractButton &button) {
        return button.text() == wanted || button.toolTip() == wanted;
    });
}

bool CWindowUser::clickButton(const char *textOrTip)
{
    QAbstractButton *button = nullptr;
    if (!waitFor([&] { return (button = visibleButton(textOrTip)) && button->isEnabled(); }))
        return false;
    click(*button);
    return true;
}

bool CWindowUser::choose(const QString &path)
{
    QMenu *menu = nullptr;
    QAction *parent = nullptr; // the entry that opens the menu; empty for the first
    for (const QString &text : path.split(QLatin1Char('>'))) {
        QMenu *const above = menu;
        QAction *action = nullptr;
        const auto isThere = [&] {
            menu = parent ? parent->menu() : qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (parent && !menu->isVisible()) { // a click closes what the mouse's coming had opened
                above->setActiveAction(parent);
                QTest::keyClick(above, Qt::Key_Right);
            }
            action = menu && menu->isVisible() ? actionNamed(menu->actions(), text) : nullptr;
            return action && action->isEnabled();
        };
        if (!waitFor(isThere)) {
            qWarning("no entry \"%s\"", qUtf8Printable(text));
            return false;
        }
        click(*menu, menu->actionGeometry(action).center());
        parent = action;
    }
    return true;
}

bool CWindowUser::chooseInMenuBar(const QString &path)
{
    QMenuBar &bar = *m_window->menuBar();
    QAction *menu = actionNamed(bar.actions(), path.section(QLatin1Char('>'), 0, 0));
    click(bar, bar.actionGeometry(menu).center());
    return choose(path.section(QLatin1Char('>'), 1));
}

bool CWindowUser::chooseFrom(const std::function<bool()> &open, const QString &path)
{
    bool tried = false;
    bool chosen = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (!QApplication::activePopupWidget())
            return;
        timer.stop();
        chosen = choose(path);
        tried = true;
    });
    timer.start(LookAgainMilliseconds);
    return open() && waitFor([&tried] { return tried; }) && chosen;
}

void CWindowUser::enter(QWidget &field, const QString &text)
{
    m_clicks += 2;
    QTest::mouseDClick(&field, Qt::LeftButton, {}, QPoint(12, field.height() / 2));
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, text);
}

QWidget *CWindowUser::field(const char *name) const
{
    return findVisible<QAbstractSpinBox>(*m_window, [name](const QAbstractSpinBox &box) {
        return box.accessibleName() == QLatin1String(name);
    });
}

bool CWindowUser::detect()
{
    return clickButton("Detect devices") && waitFor([this] { return !m_window->manager().jobs().current(); });
}

bool CWindowUser::detectByKey()
{
    press({Qt::Key_F5});
    return waitFor([this] { return !m_window->manager().jobs().current(); });
}

bool CWindowUser::clickInTree(const QString &name, Qt::MouseButton button)
{
    auto &tree = *m_window->findChild<QTreeView *>(QStringLiteral("DeviceTree"));
    QModelIndex row;
    if (!waitFor([&] {
            for (const QString &text : {name, name + QStringLiteral(" *")}) { // with unsaved edits
                const QModelIndexList rows =
                    tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, text, 1,
                                        Qt::MatchExactly | Qt::MatchRecursive);
                row = row.isValid() ? row : rows.value(0);
            }
            return row.isValid();
        }))
        return false;
    tree.scrollTo(row);
    click(*tree.viewport(), tree.visualRect(row).center(), button);
    return true;
}

bool CWindowUser::openProcessor(const QString &name)
{
    return clickInTree(name) && waitFor([this, &name] { return isOpen(name); });
}

bool CWindowUser::isOpen(const QString &name) const
{
    const auto *save = qobject_cast<QToolButton *>(visibleButton("Save"));
    const auto shown = m_window->manager().table().currentDevice();
    return canvas() && portButton(1) && save && save->menu()->defaultAction()->isEnabled() && shown &&
           shown->node.name == name;
}

QWidget *CWindowUser::portButton(int number) const
{
    const QString name = QStringLiteral("Port %1,").arg(number);
    return findVisible<QAbstractButton>(*m_window, [&name](const QAbstractButton &button) {
        return button.inherits("CPort") && button.accessibleName().startsWith(name);
    });
}

QString CWindowUser::portName(int number) const
{
    const QWidget *button = portButton(number);
    return button ? button->accessibleName() : QString();
}

bool CWindowUser::clickPort(int number, PortArea area, Qt::MouseButton button)
{
    static const QPoint places[]{{20, 50}, {47, 50}, {74, 50}, {20, 14}};
    if (!waitFor([&] { return portButton(number); }))
        return false;
    click(*portButton(number), places[int(area)], button);
    return true;
}

QGraphicsView *CWindowUser::canvas() const
{
    return findVisible<QGraphicsView>(
        *m_window, [](const QGraphicsView &view) { return view.inherits("CLayoutGraphicsView"); });
}

void CWindowUser::key(int key)
{
    canvas()->setFocus(Qt::MouseFocusReason); // as when the mouse enters it
    QTest::keyClick(canvas(), Qt::Key(key));
}

void CWindowUser::press(const QVector<int> &keys)
{
    for (const int key : keys) {
        QWidget *popup = QApplication::activePopupWidget();
        QWidget *target = popup ? popup : QApplication::focusWidget();
        QTest::keyClick(target, Qt::Key(key & ~int(Qt::KeyboardModifierMask)),
                        Qt::KeyboardModifiers(key & int(Qt::KeyboardModifierMask)));
    }
}

bool CWindowUser::tabTo(const char *name)
{
    const QString wanted = QLatin1String(name);
    QStringList seen;
    while (seen.size() < MostTabStops) {
        const QWidget &at = *QApplication::focusWidget();
        seen << QLatin1String(at.metaObject()->className());
        if (at.inherits(name) || at.toolTip() == wanted || at.accessibleName() == wanted ||
            at.property("text").toString() == wanted)
            return true;
        press({Qt::Key_Tab});
    }
    qWarning("Tab does not reach \"%s\", but %s", name, qUtf8Printable(seen.join(QLatin1Char(' '))));
    return false;
}

void CWindowUser::drag(const QPointF &from, const QPointF &to)
{
    QWidget *viewport = canvas()->viewport();
    const QPoint begin = canvas()->mapFromScene(from);
    const QPoint end = canvas()->mapFromScene(to);
    ++m_clicks;
    QTest::mouseMove(viewport, begin);
    QTest::mousePress(viewport, Qt::LeftButton, {}, begin);
    QTest::mouseMove(viewport, (begin + end) / 2);
    QTest::mouseMove(viewport, end);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, end);
}

void CWindowUser::inDialog(const QString &title, const std::function<void(QDialog &)> &act)
{
    auto *timer = new QTimer(m_window.get());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, title, act] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || dialog->windowTitle() != title)
            return;
        timer->stop();
        timer->deleteLater();
        act(*dialog);
    });
    timer->start(LookAgainMilliseconds);
}

QStringList CWindowUser::answering(const QStringList &answers, const std::function<void()> &act)
{
    const CMessageBoxAnswerer boxes(answers);
    act();
    if (!waitFor([&] { return boxes.boxes().size() >= answers.size(); }))
        qWarning("fewer questions than expected");
    m_clicks += answers.size();
    return boxes.texts();
}

QString CWindowUser::reportOf(const char *button)
{
    return answering({QStringLiteral("OK")}, [&] { clickButton(button); }).join(QLatin1Char('|'));
}

SDevice CWindowUser::device(const QString &name)
{
    m_window->manager().services().flush();
    for (const SDevice &device : m_window->manager().table().devices()) {
        if (device.node.name == name)
            return device;
    }
    return {};
}

bool CWindowUser::closeWindow()
{
    const bool closed = m_window->close();
    if (closed)
        m_window.reset();
    return closed;
}

void CWindowUser::keepPicture(const char *name, QWidget *widget)
{
    const QDir folder(QStringLiteral(ORVO_TEST_PICTURES));
    folder.mkpath(QStringLiteral("."));
    (widget ? widget : m_window.get())
        ->grab()
        .save(folder.filePath(QLatin1String(name) + QStringLiteral(".png")));
}
