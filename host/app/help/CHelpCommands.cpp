// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/help/CHelpCommands.h"

#include "host/app/help/CReportDialog.h"
#include "host/app/help/SystemInformation.h"
#include "host/app/start/CCrashHandler.h"
#include "host/app/start/CLogFile.h"
#include "platform/widgets/CMessageBox.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QUrl>

namespace {

constexpr qint64 ShownBytes = 128 * 1024; // of the log's end

} // namespace

CHelpCommands::CHelpCommands(QWidget &window)
    : QObject(&window)
    , m_window(window)
{
}

void CHelpCommands::showCrash(QWidget &parent)
{
    const QString folder = CCrashHandler::defaultFolder();
    const std::optional<CCrashHandler::SReport> report = CCrashHandler::latest(folder);
    if (!report)
        return;
    qWarning("The program has crashed before; %s tells how.", qUtf8Printable(report->file));
    showCrash(parent, *report);
    CCrashHandler::setShown(*report);
}

void CHelpCommands::showCrash(QWidget &parent, const CCrashHandler::SReport &report)
{
    const QString folder = CCrashHandler::defaultFolder();
    auto *dialog = new CReportDialog(
        tr("Orvo has crashed"),
        tr("Orvo ended unexpectedly on %1. Whoever looks into it needs the following report.\n%2")
            .arg(report.time.toString(QStringLiteral("d MMMM yyyy, HH:mm")),
                 QDir::toNativeSeparators(folder)),
        report.text + QLatin1Char('\n') + SystemInformation::text(), &parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::finished, dialog, [report] { CCrashHandler::setShown(report); });
    dialog->show(); // without blocking what else the start asks
}

void CHelpCommands::showLog()
{
    const QString name = CLogFile::defaultFolder() + QStringLiteral("/orvo.log");
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        CMessageBox::warning(&m_window, tr("The log cannot be read."), QDir::toNativeSeparators(name));
        return;
    }
    if (file.size() > ShownBytes) {
        file.seek(file.size() - ShownBytes);
        file.readLine(); // the rest of one
    }
    CReportDialog dialog(tr("Log"), QDir::toNativeSeparators(name), QString::fromUtf8(file.readAll()),
                         &m_window);
    dialog.scrollToEnd();
    dialog.exec();
}

void CHelpCommands::openLogFolder()
{
    const QString folder = CLogFile::defaultFolder();
    if (!QDir().mkpath(folder) || !QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        CMessageBox::warning(&m_window, tr("The log folder cannot be opened."),
                             QDir::toNativeSeparators(folder));
}

void CHelpCommands::copySystemInformation()
{
    QGuiApplication::clipboard()->setText(SystemInformation::text());
    Q_EMIT notifyDone(tr("Copied: versions, platform, screens and fonts of this computer"));
}

void CHelpCommands::showAbout()
{
    CMessageBox::information(&m_window, tr("Orvo %1").arg(QCoreApplication::applicationVersion()),
                             tr("Configures LED video processors: cabinet layout, wiring and loads."));
}
