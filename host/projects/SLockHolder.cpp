// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/SLockHolder.h"

#include "platform/json/CStrictJson.h"
#include "platform/json/CStrictObject.h"

#include <QFile>
#include <QJsonDocument>
#include <QSysInfo>
#include <QUuid>

#include <cerrno>
#include <csignal>
#include <limits>
#include <pwd.h>
#include <unistd.h>

namespace {

constexpr int LongestText = 256;
constexpr int StartField = 20; // of /proc/PID/stat, counted from the one behind the program's name

QString nameOfUser()
{
    char text[4096];
    passwd entry = {};
    passwd *found = nullptr;
    if (getpwuid_r(geteuid(), &entry, text, sizeof text, &found) == 0 && found)
        return QString::fromLocal8Bit(found->pw_name);
    return QString::number(geteuid());
}

/// When the process began; 0: there is none with that number, or the system does not tell.
qint64 startOf(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray line = file.readAll();
    const QByteArrayList fields = line.mid(line.lastIndexOf(')') + 2).split(' '); // names may hold anything
    return fields.value(StartField - 1).toLongLong();
}

} // namespace

SLockHolder SLockHolder::ofThisProcess()
{
    SLockHolder holder;
    holder.machine = QSysInfo::machineHostName();
    holder.installation = QString::fromLatin1(QSysInfo::machineUniqueId());
    holder.boot = QString::fromLatin1(QSysInfo::bootUniqueId());
    holder.user = nameOfUser();
    holder.program = QStringLiteral("Orvo " ORVO_VERSION);
    holder.process = getpid();
    holder.started = startOf(holder.process);
    holder.session = QUuid::createUuid().toString(QUuid::WithoutBraces);
    holder.since = QDateTime::currentDateTimeUtc();
    return holder;
}

SLockHolder SLockHolder::decode(const QByteArray &content)
{
    const CResult<CJsonDocument> json = CStrictJson::parse(content);
    if (!json)
        return {};
    const SJsonPlace place;
    QString error;
    CStrictObject object(json.value().root(), place, error);
    SLockHolder holder;
    holder.machine = object.text("machine", LongestText);
    holder.installation = object.textOr({}, "installation", LongestText);
    holder.boot = object.textOr({}, "boot", LongestText);
    holder.user = object.text("user", LongestText);
    holder.program = object.text("program", LongestText);
    holder.process = object.integer("process", 1, std::numeric_limits<pid_t>::max());
    holder.started = object.integerOr(0, "started", 0, qint64(CStrictJson::MaximumNumber) - 1);
    holder.session = object.text("session", LongestText);
    holder.since = QDateTime::fromString(object.text("since", LongestText), Qt::ISODate);
    return object.finish() ? holder : SLockHolder();
}

QByteArray SLockHolder::encode() const
{
    const QJsonObject json{{QStringLiteral("machine"), machine},
                           {QStringLiteral("installation"), installation},
                           {QStringLiteral("boot"), boot},
                           {QStringLiteral("user"), user},
                           {QStringLiteral("program"), program},
                           {QStringLiteral("process"), process},
                           {QStringLiteral("started"), started},
                           {QStringLiteral("session"), session},
                           {QStringLiteral("since"), since.toString(Qt::ISODate)}};
    return QJsonDocument(json).toJson(QJsonDocument::Compact) + '\n';
}

bool SLockHolder::isThisProcess() const
{
    return isKnown() && process == getpid() && machine == QSysInfo::machineHostName() &&
           started == startOf(process);
}

bool SLockHolder::isDead() const
{
    if (!isKnown() || machine != QSysInfo::machineHostName())
        return false;
    // Machines may share a name; what they share neither in one run nor beyond is not the same machine.
    const bool sameMachine =
        !installation.isEmpty() && installation == QString::fromLatin1(QSysInfo::machineUniqueId());
    if (boot.isEmpty() || boot != QString::fromLatin1(QSysInfo::bootUniqueId()))
        return sameMachine && !boot.isEmpty(); // it has been started anew
    if (kill(pid_t(process), 0) != 0 && errno == ESRCH)
        return true;
    const qint64 now = startOf(process);
    return now != 0 && started != 0 && now != started; // the number was given to another process
}

QString SLockHolder::text() const
{
    if (!isKnown())
        return tr("somebody who cannot be told from its lock");
    return tr("%1 on %2, since %3 (%4, process %5)")
        .arg(user, machine, since.toLocalTime().toString(QStringLiteral("d MMMM HH:mm")), program)
        .arg(process);
}
