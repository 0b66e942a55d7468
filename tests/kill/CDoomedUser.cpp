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

#include <algorithm>
#include <cstdio>
#include <limits>

namespace {

constexpr double DeviceDelays = 0.01;
constexpr int FarthestPlace = 100;
constexpr int NoPlace = std::numeric_limits<int>::max();
constexpr int MostChanges = 12; // in a row

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

void CDoomedUser::tell(const char *what, EDocument document, int place)
{
    std::printf("%s %s %d\n", what, document == Project ? "project" : "device", place);
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

int CDoomedUser::placeOf(EDocument document, bool saved)
{
    const SDevice device = m_user->device(nameOf(document));
    const CabinetLayout layout = saved ? device.working.saved() : device.working.layout();
    return placeIn(layout);
}

int CDoomedUser::placeIn(const CabinetLayout &layout)
{
    return layout.ports.first().getAllCabinets().first().rect.x() + (layout.ports.at(1).locked ? Locked : 0);
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

/// Port 1 is the leftmost one, and stays that.
int CDoomedUser::placeOnScreen() const
{
    const QVector<int> places = placesOnScreen();
    const bool locked = m_user->portName(2).contains(QLatin1String("locked"));
    return places.isEmpty() ? NoPlace
                            : *std::min_element(places.begin(), places.end()) + (locked ? Locked : 0);
}

bool CDoomedUser::show(EDocument document)
{
    const QString name = nameOf(document);
    m_shown = document;
    const auto isShown = [&] {
        const auto current = m_user->window().manager().table().currentDevice();
        return m_user->canvas() && current && current->node.name == name &&
               placesOnScreen().size() == current->working.layout().cabinetCount() && // which differ
               placeOnScreen() == placeOf(document);
    };
    return (m_user->clickInTree(name) && waitFor(isShown)) ||
           complain(name + QStringLiteral(" is not shown"));
}

/// One key; what it has done counts as soon as that returns.
bool CDoomedUser::change(int before)
{
    const int kind = m_random.bounded(7);
    if (kind == 6 && m_shown == Project) { // processors do not keep locks
        const int wanted = before < Locked ? before + Locked : before - Locked;
        tell("will", m_shown, wanted);
        if (!m_user->clickPort(2, CWindowUser::PortArea::Lock))
            return complain(QStringLiteral("no lock"));
        tell("did", m_shown, placeOnScreen());
        m_user->canvas()->setFocus();
        return placeOnScreen() == wanted || complain(QStringLiteral("a click locks nothing"));
    }
    if (kind < 2) {
        tell("will", m_shown, AnyPlace);
        QTest::keyClick(m_user->canvas(), kind == 0 ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
        tell("did", m_shown, placeOnScreen());
        return true;
    }
    const int place = before % Locked;
    const bool back = place >= FarthestPlace || (place > 0 && m_random.bounded(2));
    const int wanted = before + (back ? -1 : 1);
    tell("will", m_shown, wanted);
    QTest::keyClick(m_user->canvas(), back ? Qt::Key_Left : Qt::Key_Right);
    tell("did", m_shown, placeOnScreen());
    return placeOnScreen() == wanted || complain(QStringLiteral("a key moves nothing"));
}

bool CDoomedUser::edit(EDocument document)
{
    if (!show(document))
        return false;
    const bool selected = waitFor([&] {
        return m_user->clickPort(1, CWindowUser::PortArea::Label) &&
               !m_user->canvas()->scene()->selectedItems().isEmpty();
    });
    if (!selected)
        return complain(QStringLiteral("nothing is selected"));
    m_user->canvas()->setFocus();
    for (int changes = 1 + m_random.bounded(MostChanges); changes > 0; --changes) {
        const int before = placeOnScreen();
        if (m_user->canvas()->scene()->selectedItems().isEmpty()) // it was loaded again
            break;
        if (!change(before))
            return false;
        if (m_random.bounded(3) == 0)
            QCoreApplication::processEvents();
    }
    return true;
}

bool CDoomedUser::saveProject()
{
    tell("saving", Project, placeOf(Project));
    const CStatus saved = m_user->window().manager().projects().save(m_user->device(m_project).node.uuid,
                                                                     projectFile(m_folder));
    if (!saved)
        return complain(saved.error());
    tell("saved", Project, placeOf(Project));
    return true;
}

bool CDoomedUser::saveDevice()
{
    std::optional<SDeviceOutcome> outcome;
    tell("saving", Device, placeOf(Device));
    m_user->window().manager().jobs().saveMapping({m_user->device(nameOf(Device)).node.uuid},
                                                  [&](const SDeviceOutcome &ended) { outcome = ended; });
    if (!waitFor([&outcome] { return outcome.has_value(); }) || !outcome->isDone())
        return complain(QStringLiteral("the processor is not saved"));
    tell("saved", Device, placeOf(Device));
    return true;
}

bool CDoomedUser::readDevice()
{
    std::optional<SDeviceOutcome> outcome;
    tell("will", Device, placeOf(Device, true));
    m_user->window().manager().jobs().setConfirm([](const QString &) { return true; });
    m_user->window().manager().jobs().readMapping({m_user->device(nameOf(Device)).node.uuid}, {},
                                                  [&](const SDeviceOutcome &ended) { outcome = ended; });
    if (!waitFor([&outcome] { return outcome.has_value(); }) || !outcome->isDone())
        return complain(QStringLiteral("the processor is not read"));
    if (!show(Project)) // after which the canvas has learnt what was read
        return false;
    tell("did", Device, placeOf(Device));
    return placeOf(Device) == placeOf(Device, true) || complain(QStringLiteral("the edits are still there"));
}

bool CDoomedUser::exportTable()
{
    const SDevice device = m_user->device(m_project);
    tell("exporting", Project, placeOf(Project));
    const CStatus written =
        CLayoutExport::writeTable(device.data(), device.node.name, device.print, exportFile(m_folder));
    if (!written)
        return complain(written.error());
    tell("exported", Project, placeOf(Project));
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
        for (int i = 0; i < count; ++i)
            buttonOf(dialog, QStringLiteral("Restore"))->click();
    });
    std::printf("restoring\n");
    return true;
}

bool CDoomedUser::start()
{
    m_user = std::make_unique<CWindowUser>(stateFolder(m_folder), journalFolder(m_folder), DeviceDelays);
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
        const int found = placeOf(document);
        tell("found", document, found);
        tell("will", document, AnyPlace);
        QTest::keyClick(m_user->canvas(), Qt::Key_Z, Qt::ControlModifier);
        const int before = placeOf(document);
        if (before != found)
            tell("undone", document, before);
        QTest::keyClick(m_user->canvas(), Qt::Key_Y, Qt::ControlModifier);
        const int after = placeOf(document);
        tell("did", document, after);
        if (before != found && after != found)
            return complain(QStringLiteral("undo and redo lead elsewhere"));
    }
    return true;
}

int CDoomedUser::run()
{
    if (start() && findAll()) {
        tell("ready", Project, placeOf(Project));
        while (act()) {
        }
    }
    return 1;
}
