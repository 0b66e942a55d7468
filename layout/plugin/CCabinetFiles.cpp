// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CCabinetFiles.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/access/IMappingFolder.h"
#include "platform/widgets/CMessageBox.h"

#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

using Host = ILayoutInterfaceHandler;

const QString ConfigSuffix = QStringLiteral(".rcvbp");

/// A suffix is a single word after the last dot; the "6 tall" of "Rental P2.6 tall" belongs to the name.
bool hasSuffix(const QString &file)
{
    const QString suffix = QFileInfo(file).suffix();
    const auto isWordPart = [](QChar c) { return c.isLetterOrNumber(); };
    return !suffix.isEmpty() && suffix.front().isLetter() &&
           std::all_of(suffix.begin(), suffix.end(), isWordPart);
}

/// Replaces characters that separate folders, or that some systems do not allow, in @p name.
QString fileNameOf(QString name)
{
    static const QRegularExpression unfit(QStringLiteral("[/\\\\:*?\"<>|]"));
    return name.replace(unfit, QStringLiteral("-"));
}

} // namespace

/// Empty if the user cancels. A name without a suffix gets that of configurations.
QString CCabinetFiles::askForFile(const QString &title, const QString &proposed)
{
    QFileDialog dialog(m_parent, title, m_folder.mappingFolder(), QStringLiteral("*.rcvbp;;*.rcvp"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // we ask with our own text
    dialog.selectFile(proposed);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    QString file = dialog.selectedFiles().value(0);
    if (file.isEmpty())
        return {};
    if (!hasSuffix(file))
        file += ConfigSuffix;
    const QString question = tr("The file already exists in the current path. Do you want to overwrite it?");
    if (QFileInfo::exists(file) && CMessageBox::question(m_parent, question) != 0)
        return {};
    m_folder.setMappingFolder(QFileInfo(file).absolutePath());
    return file;
}

void CCabinetFiles::exportConfiguration(const Cabinet &cabinet, const QString &typeName)
{
    const QString file = askForFile(tr("Export..."), fileNameOf(typeName));
    if (file.isEmpty())
        return;
    if (CHostAccess::call<&Host::exportCabinetConfig>(cabinet, file))
        CMessageBox::information(m_parent, tr("Export Success."));
    else
        CMessageBox::warning(m_parent, tr("Export failed."), CHostAccess::call<&Host::lastError>());
}

void CCabinetFiles::readBack(const Cabinet &cabinet, const QString &typeName)
{
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd-hh-mm-ss"));
    const QString file = askForFile(tr("Readback..."), now);
    if (file.isEmpty())
        return;
    if (CHostAccess::call<&Host::readbackCabinetConfig>(cabinet.port, cabinet, file, typeName))
        CMessageBox::information(m_parent, tr("Readback successful."));
    else
        CMessageBox::warning(m_parent, tr("Readback failed."), CHostAccess::call<&Host::lastError>());
}
