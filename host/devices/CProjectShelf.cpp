// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CProjectShelf.h"

#include "host/devices/services/CDeviceServices.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CSafeFile.h"
#include "host/projects/CWallBuilder.h"
#include "platform/common/CBackgroundCall.h"

#include <QFileInfo>

#include <algorithm>

namespace {

int portsInUse(const SProcessorProject &project)
{
    const int last = project.layout.ports.isEmpty() ? -1 : project.layout.ports.last().index;
    return std::max({1, project.portCount, last + 1});
}

void takeSettings(SProcessorSettings &settings, const SProcessorProject &project, const QUuid &processor)
{
    settings.portCount = portsInUse(project);
    settings.canvas = project.canvas;
    settings.offset = project.offset;
    settings.frameRate = project.frameRate;
    settings.colorDepth = project.colorDepth;
    settings.background = project.background;
    settings.background.processor = processor;
}

const SProcessorKind *kindFor(const SProcessorProject &project)
{
    const CProcessorKinds &kinds = CProcessorKinds::builtIn();
    return project.kind.isEmpty() ? kinds.withPorts(portsInUse(project)) : kinds.find(project.kind);
}

QString unknownKind(const SProcessorProject &project, const QString &name)
{
    return CProjectShelf::tr(
               "%1 needs a processor of the kind \"%2\" with %3 output ports, which is not known.")
        .arg(CSafeFile::quoted(name), project.kind)
        .arg(portsInUse(project));
}

QString readOnlyBecauseOf(const SLockHolder &holder)
{
    return CProjectShelf::tr("It is read only: %1 has it open.").arg(holder.text());
}

} // namespace

CProjectShelf::CProjectShelf(CDeviceServices &services)
    : m_services(services)
    , m_table(services.table())
{
}

CProjectShelf::~CProjectShelf() = default;

CProjectShelf::Opened CProjectShelf::announced(const Opened &opened)
{
    if (opened)
        m_services.announcer().announceProcessors();
    return opened;
}

/// What to do with a file that somebody else has open. "Anyway" makes the lock ours.
CProjectShelf::Held CProjectShelf::askFor(CFileLock &lock, const AskHeld &ask)
{
    const Held answer = ask(lock.holder());
    if (answer == Held::Anyway)
        CBackgroundCall::run([&lock] { lock.take(CFileLock::Replace); });
    return answer;
}

CProjectShelf::Opened CProjectShelf::open(const QString &file, const AskHeld &ask)
{
    QUuid known;
    Lock lock;
    CFileLock::Outcome outcome = CFileLock::Impossible;
    CBackgroundCall::run([&] {
        known = openedAs(file);
        if (!known.isNull() || !QFileInfo::exists(file))
            return;
        lock = std::make_shared<CFileLock>(file);
        outcome = lock->take();
    });
    if (!known.isNull())
        return known;
    const Held how = outcome == CFileLock::Held && ask ? askFor(*lock, ask) : Held::Anyway;
    if (how == Held::Cancel)
        return QUuid();
    const QString readOnly = how == Held::ReadOnly ? readOnlyBecauseOf(lock->holder()) : QString();
    const Opened opened = CBackgroundCall::result([&] {
        const Opened added = read(file, readOnly);
        if (!added)
            lock.reset();
        return added;
    });
    if (opened)
        m_locks.insert(opened.value(), lock);
    return announced(opened);
}

CProjectShelf::Opened CProjectShelf::openDemo()
{
    return announced(CBackgroundCall::result([&] { return makeDemo(); }));
}

CProjectShelf::Opened CProjectShelf::add(const SProcessorProject &project)
{
    return announced(CBackgroundCall::result([&] { return put(project, {}, {}); }));
}

CProjectShelf::Opened CProjectShelf::restore(const SProcessorProject &project, const QString &file,
                                             const SFileStamp &stamp, const AskHeld &ask, bool &changed)
{
    const Lock lock = file.isEmpty() ? nullptr : std::make_shared<CFileLock>(file);
    CFileLock::Outcome outcome = CFileLock::Impossible;
    bool open = false;
    CBackgroundCall::run([&] {
        open = !openedAs(file).isNull();
        if (lock && !open)
            outcome = lock->take();
    });
    if (open)
        return Opened::failure(tr("%1 is open: close it first.").arg(CSafeFile::quoted(file)));
    Held how = Held::Anyway;
    if (outcome == CFileLock::Held)
        how = ask ? askFor(*lock, ask) : Held::ReadOnly;
    if (how == Held::Cancel)
        return QUuid();
    const QString readOnly = how == Held::ReadOnly ? readOnlyBecauseOf(lock->holder()) : QString();
    const Opened added = CBackgroundCall::result([&] {
        const Opened restored = readd(project, file, stamp, readOnly);
        changed = !file.isEmpty() && SFileStamp::of(file) != stamp; // last: what was read is of that stamp
        return restored;
    });
    if (added && lock)
        m_locks.insert(added.value(), lock);
    return announced(added);
}

CStatus CProjectShelf::save(const QUuid &processor, const QString &file, const QString &newName,
                            SProjectSaving *how)
{
    m_services.flush();
    SProjectSaving unasked;
    Lock lock = m_locks.take(processor);
    CStatus saved = CBackgroundCall::result(
        [&] { return lockAndWrite(processor, file, newName, how ? *how : unasked, lock); });
    if (lock)
        m_locks.insert(processor, lock);
    if (!saved)
        return saved;
    m_services.announcer().announceProcessors();
    if (!newName.isEmpty()) // the module shows it, too
        m_services.announcer().notify(LayoutNotification::ProcessorStateChanged,
                                      SProcessorStateChange{processor, m_table.isOnline(processor)});
    return saved;
}

void CProjectShelf::close(const QUuid &project)
{
    if (!m_table.isProject(project))
        return;
    QList<QUuid> selection = m_table.selection();
    if (selection.removeAll(project) > 0)
        m_services.select(selection,
                          selection.isEmpty() ? PrcTreeNodeType::Other : PrcTreeNodeType::Processor);
    m_table.remove(project);
    Lock lock = m_locks.take(project);
    CBackgroundCall::run([&lock] { lock.reset(); });
    m_services.announcer().notify(LayoutNotification::ProcessorRemoved, project);
    m_services.announcer().announceProcessors();
}

QString CProjectShelf::fileOf(const QUuid &project) const
{
    const std::optional<SDevice> device = m_table.device(project);
    return device ? device->file : QString();
}

QUuid CProjectShelf::openedAs(const QString &file) const
{
    const QString path = QFileInfo(file).canonicalFilePath();
    for (const SDevice &device : m_table.devices()) {
        if (!path.isEmpty() && !device.file.isEmpty() && QFileInfo(device.file).canonicalFilePath() == path)
            return device.node.uuid;
    }
    return {};
}

CProjectShelf::Opened CProjectShelf::read(const QString &file, const QString &readOnly)
{
    const SFileStamp stamp = SFileStamp::of(file); // first: what changes from now on is noticed
    const CResult<SProcessorProject> project = CProcessorProject::read(file);
    if (!project)
        return Opened::failure(project.error());
    Opened added = put(project.value(), file, project.value().layout);
    if (added)
        m_table.change(added.value(), [&](SDevice &device) {
            device.stamp = stamp;
            device.readOnly = readOnly;
        });
    return added;
}

CProjectShelf::Opened CProjectShelf::readd(const SProcessorProject &project, const QString &file,
                                           const SFileStamp &stamp, const QString &readOnly)
{
    const CResult<SProcessorProject> saved = CProcessorProject::read(file);
    Opened added = put(project, file, saved ? saved.value().layout : CabinetLayout());
    if (!added)
        return added;
    m_table.change(added.value(), [&](SDevice &device) {
        device.stamp = stamp;
        device.readOnly = readOnly;
        device.savedSettings = SProcessorSettings();
        device.savedPrint = saved ? saved.value().print : PrintConfig();
        if (saved)
            takeSettings(device.savedSettings, saved.value(), device.node.uuid);
    });
    return added;
}

CProjectShelf::Opened CProjectShelf::makeDemo()
{
    SWallPlan plan = CWallBuilder::plan(CWallBuilder::Medium);
    const CResult<CabinetLayout> layout = CWallBuilder::build(plan);
    if (!layout)
        return Opened::failure(layout.error());
    SProcessorProject project = SProcessorProject::ofPlan(plan, layout.value());
    project.name = tr("Demo wall");
    project.portCount = 16; // one without cabinets, to try things out
    return put(project, {}, project.layout);
}

CProjectShelf::Opened CProjectShelf::put(const SProcessorProject &project, const QString &file,
                                         const CabinetLayout &saved)
{
    const SProcessorKind *kind = kindFor(project);
    if (!kind || kind->ports < portsInUse(project)) {
        return Opened::failure(unknownKind(project, file.isEmpty() ? project.name : file));
    }
    SDevice device;
    device.project = true;
    device.file = file;
    device.kind = *kind;
    device.node.uuid = QUuid::createUuid(); // the file may come from a processor that is on the network
    device.node.name = project.name.isEmpty() ? QFileInfo(file).completeBaseName() : project.name;
    device.node.address = 0;
    device.node.model = kind->name;
    device.node.colorDepth = project.colorDepth;
    device.node.online = true;
    takeSettings(device.settings, project, device.node.uuid);
    device.savedSettings = device.settings;
    device.print = project.print;
    device.savedPrint = project.print;
    device.takeLayout(project.layout);
    device.takeSaved(saved);
    m_table.put(device);
    return device.node.uuid;
}

CStatus CProjectShelf::replaceContent(const QUuid &project, const SProcessorProject &content)
{
    const std::optional<SDevice> before = m_table.device(project);
    if (!before || !before->project)
        return CStatus::failure(tr("There is no such project."));
    const SProcessorKind *kind = kindFor(content);
    if (!kind || kind->ports < portsInUse(content))
        return CStatus::failure(unknownKind(content, content.name));
    m_services.flush();
    SProcessorSettings settings = before->settings;
    takeSettings(settings, content, project);
    m_table.change(project, [&](SDevice &device) {
        device.kind = *kind;
        device.node.model = kind->name;
        device.print = content.print;
    });
    m_services.takeSettings(project, settings);
    m_services.replaceLayout(project, [&content](SDevice &device) { device.takeLayout(content.layout); });
    m_services.announcer().announceProcessors();
    return CStatus::done();
}

SProcessorProject CProjectShelf::projectOf(const SDevice &device)
{
    SProcessorProject project;
    project.name = device.node.name;
    project.kind = device.kind.id;
    project.portCount = device.settings.portCount;
    project.canvas = device.settings.canvas;
    project.offset = device.settings.offset;
    project.frameRate = device.settings.frameRate;
    project.colorDepth = device.settings.colorDepth;
    project.background = device.settings.background;
    project.print = device.print;
    if (device.node.address != 0)
        project.print.address = device.node.addressText();
    project.layout = device.working.layout();
    project.layout.processor = device.node.uuid;
    return project;
}

/// On success @p lock is the one that belongs to @p file.
CStatus CProjectShelf::lockAndWrite(const QUuid &processor, const QString &file, const QString &newName,
                                    SProjectSaving &how, Lock &lock)
{
    const std::optional<SDevice> device = m_table.device(processor);
    const bool ownFile = device && device->file == file && device->readOnly.isEmpty();
    if (ownFile && lock) {
        lock->take(); // it may have been impossible before, or somebody who replaced it is gone
        return write(processor, file, newName, how);
    }
    const Lock other = std::make_shared<CFileLock>(file);
    if (other->take(how.overHeld ? CFileLock::Replace : CFileLock::Respect) == CFileLock::Held) {
        how.heldBy = other->holder();
        return CStatus::failure(
            tr("%1 was not written: %2 has it open.").arg(CSafeFile::quoted(file), other->holder().text()));
    }
    CStatus written = write(processor, file, newName, how);
    if (written && device && device->project)
        lock = other;
    return written;
}

CStatus CProjectShelf::write(const QUuid &processor, const QString &file, const QString &newName,
                             SProjectSaving &how)
{
    std::optional<SDevice> device = m_table.device(processor);
    if (!device)
        return CStatus::failure(tr("There is no such processor."));
    if (device->project && !newName.isEmpty())
        device->node.name = newName;
    SProcessorProject project = projectOf(*device);
    const QVector<int> mirrors = PortPairs::giveMirrors(project.layout, m_services.layoutOf());
    SFileWrite writing;
    if (device->project && file == device->file && !how.overChanged)
        writing.expected = device->stamp;
    const CStatus status = CProcessorProject::write(file, project, &writing);
    how.changed = writing.changed;
    if (!device->project)
        return status;
    if (!status) {
        if (writing.replaced && file == device->file) // unconfirmed, but what is there was written here
            m_table.change(processor, [&writing](SDevice &known) { known.stamp = writing.stamp; });
        return status;
    }
    m_table.change(processor, [&](SDevice &known) {
        known.file = file;
        known.stamp = writing.stamp;
        known.readOnly.clear();
        known.node.name = device->node.name;
        known.savedSettings = device->settings;
        known.savedPrint = device->print;
    });
    m_table.changeLayout(processor, [&project](SDevice &known) { known.takeSaved(project.layout); });
    m_services.takeMirrors(processor, project.layout, mirrors);
    return status;
}
