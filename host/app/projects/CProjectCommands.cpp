// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/projects/CProjectCommands.h"

#include "host/app/commands/CLayoutExport.h"
#include "host/app/projects/CNewProjectDialog.h"
#include "host/app/projects/CVersionsDialog.h"
#include "host/app/start/CAppSettings.h"
#include "host/devices/services/CDeviceServices.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "platform/common/CBackgroundCall.h"
#include "platform/widgets/CMessageBox.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

QString projectFilter()
{
    return CProjectCommands::tr("Processor Project File(*.sprj)");
}

} // namespace

CProjectCommands::CProjectCommands(CDeviceServices &services, CProjectShelf &projects, CAppSettings &settings,
                                   QWidget &window)
    : m_services(services)
    , m_projects(projects)
    , m_settings(settings)
    , m_window(window)
{
}

void CProjectCommands::createNew()
{
    CNewProjectDialog dialog(CProcessorKinds::builtIn(), &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const CResult<QUuid> added = m_projects.add(dialog.project());
    if (added)
        Q_EMIT notifyOpened(added.value());
    else
        CMessageBox::warning(&m_window, tr("The project cannot be made."), added.error());
}

void CProjectCommands::chooseAndOpen()
{
    open(QFileDialog::getOpenFileNames(&m_window, tr("Open project"), m_settings.projectFolder(),
                                       projectFilter()));
}

void CProjectCommands::open(const QStringList &files)
{
    QUuid last;
    QStringList failures;
    for (const QString &file : files) {
        Q_EMIT notifyWorking(tr("Opening \"%1\"...").arg(QDir::toNativeSeparators(file)));
        const CResult<QUuid> opened = openAsking(file);
        if (opened && !opened.value().isNull()) {
            last = opened.value();
            m_settings.addRecentProject(file);
        } else if (!opened) {
            failures << opened.error();
            if (!QFileInfo::exists(file)) // any other obstacle may go
                m_settings.removeRecentProject(file);
        }
        Q_EMIT notifyWorking({});
    }
    if (!last.isNull())
        Q_EMIT notifyOpened(last);
    if (!failures.isEmpty()) {
        const QString text = failures.size() == 1 ? tr("The project cannot be opened.")
                                                  : tr("%1 projects cannot be opened.").arg(failures.size());
        CMessageBox::warning(&m_window, text, failures.join(QLatin1Char('\n')));
    }
}

CResult<QUuid> CProjectCommands::openAsking(const QString &file)
{
    return m_projects.open(file,
                           [&](const SLockHolder &holder) { return askHowToOpen(m_window, file, holder); });
}

CProjectShelf::Held CProjectCommands::askHowToOpen(QWidget &parent, const QString &file,
                                                   const SLockHolder &holder)
{
    using Held = CProjectShelf::Held;
    const QString text = tr("%1\nis open already: %2.").arg(QDir::toNativeSeparators(file), holder.text());
    const auto choice = CMessageBox::choose(&parent, tr("Somebody else has the project open."), text,
                                            tr("&Read only"), tr("Open &anyway"));
    return choice == CMessageBox::Choice::Keep   ? Held::ReadOnly
           : choice == CMessageBox::Choice::Lose ? Held::Anyway
                                                 : Held::Cancel;
}

void CProjectCommands::openDemo()
{
    const CResult<QUuid> opened = m_projects.openDemo();
    if (opened)
        Q_EMIT notifyOpened(opened.value());
    else
        CMessageBox::warning(&m_window, tr("The demo wall cannot be opened."), opened.error());
}

bool CProjectCommands::save(const QUuid &processor)
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    if (!device || device->file.isEmpty() || !device->readOnly.isEmpty())
        return saveAs(processor);
    return saveTo(processor, device->file);
}

bool CProjectCommands::saveAs(const QUuid &processor)
{
    QString name = nameOf(processor);
    // Also what only some disks do not allow.
    static const QRegularExpression unfit(QStringLiteral("[/\\\\:*?\"<>|]"));
    name.replace(unfit, QStringLiteral("-"));
    QFileDialog dialog(&m_window, tr("Save project as"), m_settings.projectFolder(), projectFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // So that the dialog asks before overwriting the file with that suffix.
    dialog.setDefaultSuffix(QStringLiteral("sprj"));
    const QString file = m_projects.fileOf(processor);
    if (file.isEmpty())
        dialog.selectFile(name + QStringLiteral(".sprj"));
    else
        dialog.selectFile(file);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const QString chosen = dialog.selectedFiles().value(0);
    return saveTo(processor, chosen, chosen == file ? QString() : QFileInfo(chosen).completeBaseName());
}

bool CProjectCommands::saveTo(const QUuid &processor, const QString &file, const QString &newName)
{
    SProjectSaving how;
    how.overChanged = false;
    how.overHeld = false;
    for (;;) {
        Q_EMIT notifyWorking(tr("Saving \"%1\"...").arg(QDir::toNativeSeparators(file)));
        const CStatus status = m_projects.save(processor, file, newName, &how);
        Q_EMIT notifyWorking({});
        if (status) {
            m_settings.addRecentProject(file);
            Q_EMIT notifySaved(QDir::toNativeSeparators(file));
            return true;
        }
        if (!how.changed && !how.heldBy) {
            CMessageBox::warning(&m_window, tr("The project cannot be saved."), status.error());
            return false;
        }
        switch (askToOverwrite(file, how)) {
        case CMessageBox::Choice::Keep:
            return saveAs(processor);
        case CMessageBox::Choice::Lose:
            break;
        case CMessageBox::Choice::Cancel:
            return false;
        }
        how.overChanged = how.overChanged || how.changed;
        how.overHeld = how.overHeld || how.heldBy;
        how.heldBy.reset();
    }
}

CMessageBox::Choice CProjectCommands::askToOverwrite(const QString &file, const SProjectSaving &why)
{
    const QString place = QDir::toNativeSeparators(file);
    if (why.heldBy)
        return CMessageBox::choose(
            &m_window, tr("Somebody else has the file open."),
            tr("%1\n%2. Overwriting replaces what they have saved.").arg(place, why.heldBy->text()),
            tr("Save &as..."), tr("&Overwrite"));
    return CMessageBox::choose(
        &m_window, tr("The file was changed by another window or program since it was opened here."),
        tr("%1\nOverwriting replaces what it holds now.").arg(place), tr("Save &as..."), tr("&Overwrite"));
}

void CProjectCommands::exportLayout(const QUuid &processor)
{
    QString name = nameOf(processor);
    name.replace(QLatin1Char('/'), QLatin1Char('-'));
    QFileDialog dialog(&m_window, tr("Export layout"), m_settings.projectFolder());
    dialog.setNameFilters({tr("Picture(*.png)"), tr("Drawing(*.svg)"), tr("Cabinet list(*.csv)")});
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("png"));
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString &filter) {
        dialog.setDefaultSuffix(filter.section(QLatin1String("*."), 1).chopped(1));
    });
    dialog.selectFile(name);
    if (dialog.exec() == QDialog::Accepted)
        exportTo(processor, dialog.selectedFiles().value(0));
}

void CProjectCommands::exportTo(const QUuid &processor, const QString &file)
{
    m_services.flush();
    const SDevice device = m_services.table().device(processor).value_or(SDevice());
    Q_EMIT notifyWorking(tr("Exporting \"%1\"...").arg(QDir::toNativeSeparators(file)));
    CStatus status = CStatus::failure(tr("The name must end in .png, .svg or .csv."));
    if (CLayoutExport::kindOf(file) != CLayoutExport::Unknown)
        status = CBackgroundCall::result([&] {
            return CLayoutExport::kindOf(file) == CLayoutExport::Table
                       ? CLayoutExport::writeTable(device.data(), device.node.name, device.print, file)
                       : CLayoutExport::write(device.dataWithLoads(), file);
        });
    Q_EMIT notifyWorking({});
    if (status)
        Q_EMIT notifySaved(QDir::toNativeSeparators(file));
    else
        CMessageBox::warning(&m_window, tr("The layout cannot be exported."), status.error());
}

void CProjectCommands::restoreVersion(const QUuid &project)
{
    const QString file = m_projects.fileOf(project);
    QVector<CProjectVersions::SVersion> versions;
    if (!file.isEmpty())
        CBackgroundCall::run([&] { versions = CProjectVersions::of(file); });
    if (versions.isEmpty()) {
        CMessageBox::information(&m_window, tr("There is no earlier version of this project."),
                                 tr("Each save keeps what the file held before."));
        return;
    }
    CVersionsDialog dialog(versions, &m_window);
    if (dialog.exec() == QDialog::Accepted)
        replaceWith(project, dialog.chosen());
}

void CProjectCommands::replaceWith(const QUuid &project, const QString &version)
{
    m_services.flush();
    if (m_services.table().isModified(project) &&
        !CMessageBox::confirm(&m_window, tr("There are edits that are not saved. Replace them all the same?"),
                              nameOf(project)))
        return;
    const auto content = CBackgroundCall::result([&] { return CProcessorProject::read(version); });
    const CStatus restored =
        content ? m_projects.replaceContent(project, content.value()) : CStatus::failure(content.error());
    if (restored)
        Q_EMIT notifyRestored();
    else
        CMessageBox::warning(&m_window, tr("The version cannot be restored."), restored.error());
}

bool CProjectCommands::close(const QUuid &project)
{
    if (!m_services.table().isProject(project) || !askToSave(project))
        return false;
    m_projects.close(project);
    return true;
}

bool CProjectCommands::askToSave(const QUuid &project)
{
    m_services.flush();
    if (!m_services.table().isModified(project))
        return true;
    switch (CMessageBox::choose(&m_window, tr("Save the changes to the project \"%1\"?").arg(nameOf(project)),
                                tr("What is not saved is lost."), tr("&Save"), tr("&Discard"))) {
    case CMessageBox::Choice::Keep:
        return save(project); // one that is read only as another file
    case CMessageBox::Choice::Lose:
        return true;
    case CMessageBox::Choice::Cancel:
        break;
    }
    return false;
}

bool CProjectCommands::confirmQuit()
{
    m_services.flush();
    QStringList edited;
    for (const SDevice &device : m_services.table().devices()) {
        if (device.project && !askToSave(device.node.uuid))
            return false;
        if (!device.project && device.isModified())
            edited << device.node.displayText();
    }
    return edited.isEmpty() ||
           CMessageBox::confirm(
               &m_window, tr("There are edits that have not been saved to the processor. Quit all the same?"),
               edited.join(QLatin1Char('\n')));
}

QString CProjectCommands::nameOf(const QUuid &processor) const
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    return device ? device->node.name : QString();
}
