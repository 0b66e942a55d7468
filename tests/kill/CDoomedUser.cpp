// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/kill/CDoomedUser.h"

#include "host/app/CRecoveryDialog.h"
#include "host/app/commands/CLayoutExport.h"
#include "host/app/start/SAppOptions.h"
#include "layout/editor/items/ItemKinds.h"
#include "tests/app/CWindowUser.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QDirIterator>
#include <QGraphicsItem>
#include <QListWidget>
#include <QMessageBox>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>

namespace {

constexpr double DeviceDelays = 0.01;
constexpr int FarthestPlace = 100;
constexpr int NoPlace = std::numeric_limits<int>::max();
constexpr int MostChanges = 12; // in a row
constexpr int MostUndone = 3;
constexpr int TooLongMilliseconds = 1000;
constexpr int UsualCabinets = 6; // of port 1
const SWallState anyState{SWallState::AnyPlace, {}};

/// With a group's members.
bool isSelected(const QGraphicsItem *item)
{
    return item && (item->isSelected() || isSelected(item->parentItem()));
}

template <typename Condition>
bool waitFor(const Condition &condition)
{
    return QTest::qWaitFor(condition, PatienceMilliseconds);
}

} // namespace

CDoomedUser::CDoomedUser(const QString &folder, quint32 seed)
    : m_folder(folder)
    , m_random(seed)
{
}

CDoomedUser::~CDoomedUser() = default;

QStringList CDoomedUser::strays(const QString &folder)
{
    QStringList found;
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = QFileInfo(files.next()).fileName();
        if (name.startsWith(QLatin1String(".orvo-")) || name.endsWith(QLatin1String("~new")) ||
            name == QLatin1String(".other.sprj.lock"))
            found << name;
    }
    return found;
}

void CDoomedUser::tell(const char *what, EDocument document, const SWallState &state)
{
    std::printf("%s %s %d %s\n", what, document == Project ? "project" : "device", state.place,
                state.look.isEmpty() ? "?" : state.look.constData());
    std::fflush(stdout);
}

bool CDoomedUser::complain(const QString &what)
{
    std::printf("failed %s\n", qPrintable(what));
    std::fflush(stdout);
    return false;
}

QString CDoomedUser::nameOf(EDocument document) const
{
    return document == Project ? m_project : QLatin1String(DeviceName);
}

CabinetLayout CDoomedUser::layoutOf(EDocument document, Version version)
{
    const SDevice device = m_user->device(nameOf(document));
    return version == Version::Saved ? device.working.saved() : device.working.layout();
}

QVector<int> CDoomedUser::placesOnScreen() const
{
    QVector<int> places;
    for (const QGraphicsItem *item : m_user->canvas()->scene()->items()) {
        if (item->type() == CabinetItemKind)
            places << int(item->scenePos().x());
    }
    return places;
}

int CDoomedUser::placeOnScreen(int step) const
{
    int place = NoPlace;
    for (const QGraphicsItem *item : m_user->canvas()->scene()->items()) {
        if (item->type() == CabinetItemKind)
            place = std::min(place, int(item->scenePos().x()) + (step && isSelected(item) ? step : 0));
    }
    const bool locked = m_user->portName(2).contains(QLatin1String("locked"));
    return place == NoPlace ? NoPlace : place + (locked ? SWallState::Locked : 0);
}

bool CDoomedUser::show(EDocument document)
{
    const QString name = nameOf(document);
    m_shown = document;
    const auto isShown = [&] {
        const auto current = m_user->window().manager().table().currentDevice();
        return m_user->canvas() && current && current->node.name == name &&
               placesOnScreen().size() == current->working.layout().cabinetCount() && // which differ
               placeOnScreen() == stateOf(document).place;
    };
    if (m_user->clickInTree(name) && waitFor(isShown))
        return true;
    const auto current = m_user->window().manager().table().currentDevice();
    return complain(QStringLiteral("%1 is not shown but %2, %3 cabinets from %4 on instead of %5 from %6 on")
                        .arg(name, current ? current->node.name : QStringLiteral("nothing"))
                        .arg(m_user->canvas() ? placesOnScreen().size() : -1)
                        .arg(m_user->canvas() ? placeOnScreen() : -1)
                        .arg(layoutOf(document).cabinetCount())
                        .arg(stateOf(document).place));
}

bool CDoomedUser::selectPort()
{
    m_selected = Selected::Port;
    const bool selected = waitFor([&] {
        return m_user->clickPort(1, CWindowUser::PortArea::Label) &&
               !m_user->canvas()->scene()->selectedItems().isEmpty();
    });
    m_user->canvas()->setFocus();
    return selected || complain(QStringLiteral("nothing is selected"));
}

/// One of port 1 that is in no group, if there is one.
bool CDoomedUser::selectCabinet()
{
    const auto loose = layoutOf(m_shown).ports.first().looseCabinets();
    if (loose.isEmpty())
        return selectPort();
    const QRect rect = loose.at(m_random.bounded(loose.size())).rect;
    QGraphicsView &canvas = *m_user->canvas();
    m_user->click(*canvas.viewport(), canvas.mapFromScene(QRectF(rect).center()));
    const QList<QGraphicsItem *> selected = canvas.scene()->selectedItems();
    if (selected.size() != 1 || selected.first()->scenePos() != rect.topLeft())
        return selectPort(); // another one is above it
    m_selected = Selected::Cabinet;
    canvas.setFocus();
    return true;
}

/// What was done counts from here: before the host gets the layout, with which it is told once more.
void CDoomedUser::tellDone()
{
    tell("did", m_shown, {placeOnScreen(), {}});
    tell("did", m_shown, stateOf(m_shown));
}

void CDoomedUser::press(int key)
{
    QTest::keyClick(m_user->canvas(), Qt::Key(key & ~int(Qt::KeyboardModifierMask)),
                    Qt::KeyboardModifiers(key & int(Qt::KeyboardModifierMask)));
}

bool CDoomedUser::editBy(int key)
{
    tell("will", m_shown, anyState);
    press(key);
    tellDone();
    return true;
}

bool CDoomedUser::lock()
{
    const int before = placeOnScreen();
    const int wanted = (before + SWallState::Locked) % (2 * SWallState::Locked);
    tell("will", m_shown, {wanted, {}});
    if (!m_user->clickPort(2, CWindowUser::PortArea::Lock))
        return complain(QStringLiteral("no lock"));
    tellDone();
    m_user->canvas()->setFocus();
    return placeOnScreen() == wanted || complain(QStringLiteral("a click locks nothing"));
}

bool CDoomedUser::move()
{
    const int before = placeOnScreen();
    const int place = before % SWallState::Locked;
    const bool back = place >= FarthestPlace || (place > 0 && m_random.bounded(2));
    // Port 1 need not hold the first cabinet any more: what was cut is pasted elsewhere.
    const int wanted =
        m_selected == Selected::Port ? placeOnScreen(back ? -1 : 1) : int(SWallState::AnyPlace);
    tell("will", m_shown, {wanted, {}});
    press(back ? Qt::Key_Left : Qt::Key_Right);
    tellDone();
    return wanted < 0 || placeOnScreen() == wanted ||
           complain(QStringLiteral("a key moves the first cabinet from %1 to %2 instead of %3")
                        .arg(before)
                        .arg(placeOnScreen())
                        .arg(wanted));
}

bool CDoomedUser::applyPattern()
{
    static const char *const patterns[]{"LTR TTB snake", "RTL BTT snake", "TTB LTR snake", "BTT RTL snake"};
    tell("will", m_shown, anyState);
    if (!m_user->clickButton(patterns[m_random.bounded(4)]))
        return complain(QStringLiteral("no pattern"));
    tellDone();
    m_user->canvas()->setFocus();
    return true;
}

/// Keeps the number of cabinets where it is, in the long run.
bool CDoomedUser::replaceCabinet()
{
    const int count = layoutOf(m_shown).ports.first().cabinetCount();
    if (count > UsualCabinets)
        return editBy(Qt::Key_Delete);
    editBy(Qt::CTRL | (count == UsualCabinets ? Qt::Key_X : Qt::Key_C));
    const bool isCurrent = selectPort();
    m_selected = Selected::Unknown;
    return isCurrent && editBy(Qt::CTRL | Qt::Key_V);
}

/// One key or click; what it has done counts as soon as that returns.
bool CDoomedUser::change()
{
    const int kind = m_random.bounded(12);
    if (kind == 0 && m_shown == Project) // processors do not keep locks
        return lock();
    if (kind > 5)
        return move();
    const Selected selected = std::exchange(m_selected, Selected::Unknown);
    switch (kind) {
    case 1:
        return editBy(Qt::CTRL | Qt::Key_Y);
    case 2:
        return editBy(m_random.bounded(3) ? Qt::CTRL | Qt::Key_G : Qt::CTRL | Qt::SHIFT | Qt::Key_G);
    case 3:
        return applyPattern();
    case 4:
        return selected != Selected::Cabinet || replaceCabinet();
    default:
        return editBy(Qt::CTRL | Qt::Key_Z);
    }
}

bool CDoomedUser::edit(EDocument document)
{
    if (!show(document) || !(m_random.bounded(2) ? selectPort() : selectCabinet()))
        return false;
    for (int changes = 1 + m_random.bounded(MostChanges); changes > 0; --changes) {
        if (m_user->canvas()->scene()->selectedItems().isEmpty()) // it was loaded again, or cut out
            break;
        if (!change())
            return false;
        if (m_random.bounded(3) == 0)
            QCoreApplication::processEvents();
    }
    return true;
}

bool CDoomedUser::saveProject()
{
    tell("saving", Project, stateOf(Project));
    const CStatus saved = m_user->window().manager().projects().save(m_user->device(m_project).node.uuid,
                                                                     projectFile(m_folder));
    if (!saved)
        return complain(saved.error());
    tell("saved", Project, stateOf(Project));
    return true;
}

bool CDoomedUser::saveDevice()
{
    std::optional<SDeviceOutcome> outcome;
    tell("saving", Device, stateOf(Device));
    m_user->window().manager().jobs().saveMapping({m_user->device(nameOf(Device)).node.uuid},
                                                  [&](const SDeviceOutcome &ended) { outcome = ended; });
    if (!waitFor([&outcome] { return outcome.has_value(); }) || !outcome->isDone())
        return complain(QStringLiteral("the processor is not saved"));
    tell("saved", Device, stateOf(Device));
    return true;
}

bool CDoomedUser::readDevice()
{
    std::optional<SDeviceOutcome> outcome;
    const SWallState saved = SWallState::of(layoutOf(Device, Version::Saved));
    tell("will", Device, saved);
    m_user->window().manager().jobs().setConfirm([](const QString &) { return true; });
    m_user->window().manager().jobs().readMapping({m_user->device(nameOf(Device)).node.uuid}, {},
                                                  [&](const SDeviceOutcome &ended) { outcome = ended; });
    if (!waitFor([&outcome] { return outcome.has_value(); }) || !outcome->isDone())
        return complain(QStringLiteral("the processor is not read"));
    if (!show(Project)) // after which the canvas has learnt what was read
        return false;
    tell("did", Device, stateOf(Device));
    return stateOf(Device).fits(saved) || complain(QStringLiteral("the edits are still there"));
}

bool CDoomedUser::exportTable()
{
    const SDevice device = m_user->device(m_project);
    std::printf("exporting %d\n", layoutOf(Project).cabinetCount() + 1);
    std::fflush(stdout);
    const CStatus written =
        CLayoutExport::writeTable(device.data(), device.node.name, device.print, exportFile(m_folder));
    if (!written)
        return complain(written.error());
    std::printf("exported\n");
    return true;
}

bool CDoomedUser::act()
{
    switch (m_random.bounded(10)) {
    case 0:
        return exportTable();
    case 1:
        return readDevice();
    case 2:
    case 3:
        return saveDevice();
    case 4:
    case 5:
        return saveProject();
    case 6:
    case 7:
        return edit(Device);
    default:
        return edit(Project);
    }
}

/// Accepts all that is offered.
bool CDoomedUser::restore()
{
    const QList<SStrayJournal> offers = m_user->window().manager().keeper().offers();
    for (const SStrayJournal &offer : offers) {
        if (offer.journal.problem != SJournal::None && offer.journal.problem != SJournal::Torn)
            return complain(QStringLiteral("offered: ") + offer.line());
    }
    if (offers.isEmpty())
        return true;
    m_user->inDialog(QStringLiteral("Unsaved edits"), [count = offers.size()](QDialog &dialog) {
        QTimer::singleShot(TooLongMilliseconds, &dialog, [] {
            if (const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
                complain(box->text() + box->informativeText());
        });
        for (int i = 0; i < count; ++i)
            buttonOf(dialog, QStringLiteral("Restore"))->click();
    });
    std::printf("restoring\n");
    return true;
}

bool CDoomedUser::start()
{
    m_user = std::make_unique<CWindowUser>(stateFolder(m_folder), journalFolder(m_folder), DeviceDelays);
    auto &folded = *m_user->window().findChild<QToolButton *>(QStringLiteral("CollapseButton"));
    if (folded.isChecked()) // the screen of the tests is small
        m_user->click(folded);
    if (!restore())
        return false;
    SAppOptions options;
    if (m_random.bounded(4) == 0)
        options.files << otherProjectFile(m_folder);
    options.files << projectFile(m_folder);
    m_user->window().start(options);
    if (!m_user->detect())
        return complain(QStringLiteral("no detection"));
    const bool otherIsOpen = options.files.size() > 1;
    const auto isClean = [&] { return strays(m_folder).size() == (otherIsOpen ? 1 : 0); };
    return waitFor(isClean) || complain(strays(m_folder).join(QLatin1Char(' ')) + QStringLiteral(" stays"));
}

/// What is on the screen now is what was there when the program was killed.
bool CDoomedUser::findAll()
{
    for (const SDevice &device : m_user->window().manager().table().devices()) {
        if (device.file == projectFile(m_folder))
            m_project = device.node.name;
    }
    for (const EDocument document : {Device, Project}) {
        if (!show(document))
            return false;
        const SWallState found = stateOf(document);
        tell("found", document, found);
        tell("will", document, anyState);
        int undone = 0;
        for (SWallState last = found; undone < MostUndone; ++undone) {
            press(Qt::CTRL | Qt::Key_Z);
            const SWallState state = stateOf(document);
            if (state.fits(last)) // that was all
                break;
            tell("undone", document, last = state);
        }
        for (; undone > 0; --undone)
            press(Qt::CTRL | Qt::Key_Y);
        const SWallState after = stateOf(document);
        tell("did", document, after);
        if (!after.fits(found))
            return complain(QStringLiteral("undo and redo lead elsewhere"));
    }
    return true;
}

int CDoomedUser::run()
{
    if (start() && findAll()) {
        tell("ready", Project, stateOf(Project));
        while (act()) {
        }
    }
    return 1;
}
