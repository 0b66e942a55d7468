// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CJournalKeeper.h"

#include "host/devices/services/CDeviceServices.h"
#include "host/journal/CStateCodec.h"
#include "platform/common/CBackgroundCall.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <limits>

namespace {

constexpr int QuietMilliseconds = 1000;
constexpr qint64 Megabyte = 1024 * 1024;
constexpr quint64 NoRevision = std::numeric_limits<quint64>::max(); // which no mapping has

const CStepTrail::Ports &savedOf(const SDevice &device)
{
    return device.working.saved().ports;
}

CJournals::Work workOf(const SDevice &device)
{
    return device.isModified() ? CJournals::Work::Unsaved : CJournals::Work::Saved;
}

} // namespace

CJournalKeeper::CJournalKeeper(CDeviceServices &services, CProjectShelf &projects, const QString &folder)
    : m_services(services)
    , m_projects(projects)
{
    if (folder.isEmpty())
        return;
    const auto tell = [this](const QString &text) {
        m_services.mailbox().post([this, text] { Q_EMIT notifyTold(text); });
    };
    const auto arrived = [this](const QUuid &processor) {
        m_services.mailbox().post([this, processor] { offerHistory(processor); });
    };
    m_journals = std::make_shared<CJournals>(folder, tell, arrived);
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(QuietMilliseconds);
    connect(&m_quiet, &QTimer::timeout, this, &CJournalKeeper::takeAll);
    services.table().setWatch([this](const QUuid &processor, Cause cause) { onChanged(processor, cause); });
}

CJournalKeeper::~CJournalKeeper()
{
    stop();
    m_services.table().setWatch({}); // no other thread is left
}

void CJournalKeeper::stop()
{
    if (!m_journals)
        return;
    takeChanges();
    m_quiet.stop();
    CJournals::stop(m_journals);
}

void CJournalKeeper::finish()
{
    if (!m_journals)
        return;
    takeChanges(); // what is noted now is forgotten, too
    m_journals->dropAll();
    CJournals::stop(m_journals);
}

void CJournalKeeper::setHistory(bool kept, int megabytes)
{
    if (m_journals)
        m_journals->setHistory(kept, megabytes * Megabyte);
}

void CJournalKeeper::onChanged(const QUuid &processor, Cause cause)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (cause == Cause::Editor)
            cause = m_changed.value(processor, cause); // what waits is taken with it
        if (cause != Cause::Editor || QThread::currentThread() != thread()) {
            const bool posted = !m_changed.isEmpty();
            m_changed[processor] = cause;
            if (!posted)
                m_services.mailbox().post([this] { takeChanges(); });
            return;
        }
        m_changed.remove(processor);
    }
    take(processor, cause, Editor::Leave); // a lock or a colour, say, which is no step of the history
}

bool CJournalKeeper::keeps(const QUuid &processor) const
{
    return m_journals && m_journals->knows(processor) && !m_copies.contains(processor);
}

void CJournalKeeper::takeChanges(Editor editor)
{
    QHash<QUuid, Cause> changed;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        changed.swap(m_changed);
    }
    for (auto change = changed.constBegin(); change != changed.constEnd(); ++change)
        take(change.key(), change.value(), editor);
}

SJournalOwner CJournalKeeper::ownerOf(const SDevice &device)
{
    SJournalOwner owner;
    owner.processor = device.node.uuid;
    owner.project = device.project;
    owner.name = device.project ? device.node.name : device.node.displayText();
    owner.file = device.file;
    owner.stamp = device.stamp;
    owner.version = QCoreApplication::applicationVersion();
    if (!device.project)
        owner.revision = device.revision;
    return owner;
}

void CJournalKeeper::begin(const SDevice &device)
{
    const SProcessorProject state = CProjectShelf::projectOf(device);
    SProcessorProject saved = state;
    saved.layout.ports = device.working.saved().ports;
    if (device.isModified()) {
        m_journals->begin(ownerOf(device), saved);
        m_journals->note(ownerOf(device), state);
    } else if (device.project && !device.file.isEmpty()) {
        m_journals->beginOpened(ownerOf(device), state);
    } else {
        m_journals->begin(ownerOf(device), state);
    }
}

/// Whether it is one of those that "Look at it first" has opened, as it was then.
bool CJournalKeeper::isUntouchedCopy(const SDevice &device, const SProcessorProject &state)
{
    const QUuid processor = device.node.uuid;
    const bool isNew = device.project && device.file.isEmpty() && !m_journals->knows(processor);
    if (m_looking && isNew && !m_copies.contains(processor))
        m_copies.insert(processor, state);
    const auto copy = m_copies.constFind(processor);
    if (copy == m_copies.constEnd())
        return false;
    if (isNew && CStateCodec::sameState(*copy, state))
        return true;
    m_copies.remove(processor);
    return false;
}

void CJournalKeeper::take(const QUuid &processor, Cause cause, Editor editor)
{
    std::optional<SDevice> device = m_services.table().device(processor);
    if (!device) {
        m_journals->drop(processor);
        m_seen.remove(processor);
        m_copies.remove(processor);
        return;
    }
    if (restoreWaiting(processor) || !device->isLoaded())
        return;
    const bool known = m_journals->knows(processor);
    if (m_restoring && !known) { // a journal of its own would be offered, too, if the program ended now
        m_later.insert(processor);
        return;
    }
    const SSeen seen = m_seen.value(processor);
    if (known && cause == Cause::Host && editor == Editor::Flush &&
        device->working.edition() != seen.edition) {
        m_services.flush(); // the editor's edits come first
        device = m_services.table().device(processor);
    }
    if (!device)
        return;
    m_seen[processor] = {device->working.edition(), savedOf(*device)};
    const SProcessorProject state = CProjectShelf::projectOf(*device);
    if (isUntouchedCopy(*device, state))
        return;
    const bool isSave =
        known && savedOf(*device).constData() != seen.saved.constData() && !device->isModified();
    const CJournals::Work work = isSave ? CJournals::Work::Unsaved : workOf(*device); // settle() ends it
    if (!known)
        begin(*device);
    else if (cause == Cause::Host && device->working.edition() != seen.edition)
        m_journals->note(ownerOf(*device), state, work);
    else
        m_journals->noteLook(ownerOf(*device), state, work);
    if (isSave)
        m_journals->settle(ownerOf(*device));
    if (cause == Cause::Editor)
        m_quiet.start();
}

/// What the editor has not told step by step is noted here.
void CJournalKeeper::takeAll()
{
    m_services.flush();
    for (const SDevice &device : m_services.table().devices()) {
        if (m_journals->knows(device.node.uuid))
            m_journals->note(ownerOf(device), CProjectShelf::projectOf(device), workOf(device));
    }
}

void CJournalKeeper::note(const SEditRecord &record)
{
    if (!m_journals)
        return;
    m_copies.remove(record.processor);
    if (!m_journals->knows(record.processor)) {
        const std::optional<SDevice> device = m_services.table().device(record.processor);
        if (!device)
            return;
        begin(*device);
    }
    m_journals->note(record);
    m_quiet.start();
}

SEditHistory CJournalKeeper::history(const QUuid &processor)
{
    if (!m_journals)
        return {};
    takeChanges(Editor::Leave); // it asks while it reloads
    return m_journals->knows(processor) ? m_journals->history(processor) : SEditHistory();
}

void CJournalKeeper::offerHistory(const QUuid &processor)
{
    if (m_journals->isUnedited(processor) && !m_journals->history(processor).steps.isEmpty())
        Q_EMIT notifyHistoryFound(processor);
}

QList<SStrayJournal> CJournalKeeper::offers() const
{
    QList<SStrayJournal> offers;
    if (m_journals)
        CBackgroundCall::run([&] { offers = m_journals->folder().strays(); });
    return offers;
}

CResult<QUuid> CJournalKeeper::restore(const SStrayJournal &stray, const CProjectShelf::AskHeld &ask)
{
    const SJournalOwner &owner = stray.journal.owner;
    if (!owner.project) {
        m_services.flush();
        if (m_services.table().isModified(owner.processor))
            return CResult<QUuid>::failure(
                tr("%1 has edits of this run: save them, or read the mapping, first.").arg(owner.name));
        if (m_waiting.contains(owner.processor)) // the older edits would take the place of these
            return CResult<QUuid>::failure(
                tr("%1 gets other edits back once it is detected: restore these after that.")
                    .arg(owner.name));
        m_waiting.insert(owner.processor, stray);
        return restoreWaiting(owner.processor) ? owner.processor : QUuid();
    }
    m_restoring = true;
    bool changed = false;
    CResult<QUuid> opened =
        m_projects.restore(stray.journal.state.project(), owner.file, owner.stamp, ask, changed);
    m_restoring = false;
    SStrayJournal restored = stray;
    if (changed)
        restored.journal.state.trail().forgetSaved();
    if (opened)
        adopt(opened.value(), restored);
    for (const QUuid &processor : std::exchange(m_later, {}))
        take(processor, Cause::Host, Editor::Leave);
    return opened;
}

void CJournalKeeper::adopt(const QUuid &processor, const SStrayJournal &stray)
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    if (!device)
        return;
    m_journals->adopt(stray, ownerOf(*device));
    m_journals->note(ownerOf(*device), CProjectShelf::projectOf(*device), workOf(*device));
    m_seen[processor] = {device->working.edition(), savedOf(*device)};
}

bool CJournalKeeper::restoreWaiting(const QUuid &processor)
{
    if (!m_waiting.contains(processor) || !m_services.table().contains(processor))
        return false;
    SStrayJournal stray = m_waiting.take(processor);
    const SProcessorProject state = stray.journal.state.project();
    m_services.table().change(processor, [&state](SDevice &device) {
        const int count = std::min(device.kind.ports, state.portCount);
        device.settings.portCount = std::max(device.settings.portCount, count);
    });
    m_services.replaceLayout(processor, [&state](SDevice &device) { device.takeLayout(state.layout); });
    takeRevision(processor, stray);
    adopt(processor, stray);
    m_services.announcer().announceState();
    return true;
}

/// What somebody else has saved meanwhile is not replaced without a question.
void CJournalKeeper::takeRevision(const QUuid &processor, SStrayJournal &stray)
{
    const quint64 known = stray.journal.owner.revision.value_or(NoRevision);
    bool changed = false;
    m_services.table().change(processor, [known, &changed](SDevice &device) {
        changed = device.isModified() && device.revision != known;
        if (changed)
            device.revision = known;
    });
    if (changed)
        stray.journal.state.trail().forgetSaved();
}

CResult<QUuid> CJournalKeeper::look(const SStrayJournal &stray)
{
    SProcessorProject copy = stray.journal.state.project();
    copy.name = tr("%1 (unsaved edits)").arg(copy.name);
    takeChanges();
    m_looking = true;
    CResult<QUuid> opened = m_projects.add(copy);
    takeChanges();
    m_looking = false;
    return opened;
}

CStatus CJournalKeeper::discard(const SStrayJournal &stray)
{
    return CJournalFolder::remove(stray);
}
