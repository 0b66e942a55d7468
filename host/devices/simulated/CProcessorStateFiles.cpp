// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CProcessorStateFiles.h"

#include "host/devices/simulated/DevicesLog.h"
#include "host/projects/CSafeFile.h"
#include "host/projects/CStrictFile.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr int MostDamaged = 99; // files kept

/// The name for the @p number-th damaged file of that name.
QString damagedName(const QString &file, int number)
{
    const QString name = file + QStringLiteral(".damaged");
    return number == 1 ? name : name + QString::number(number);
}

} // namespace

CProcessorStateFiles::CProcessorStateFiles(QString folder, const QUuid &processor)
    : m_folder(std::move(folder))
    , m_base(QDir(m_folder).filePath(processor.toString(QUuid::WithoutBraces)))
{
}

SProcessorState CProcessorStateFiles::load(const Factory &factory, Reader reader)
{
    const SProcessorState made = factory();
    return {loadPart(Settings, reader, made.settings, &CProcessorCodec::settings),
            loadPart(Mapping, reader, made.mapping, &CProcessorCodec::mapping)};
}

bool CProcessorStateFiles::areAsLoaded() const
{
    return m_stamps[Settings] == SFileStamp::of(settingsFile()) &&
           m_stamps[Mapping] == SFileStamp::of(mappingFile());
}

template <typename Record, typename Decode>
Record CProcessorStateFiles::loadPart(Part part, Reader reader, const Record &factory, const Decode &decode)
{
    const QString file = fileOf(part);
    m_closed[part] = false;
    if (reader == Owner)
        CSafeFile::cleanAround(file);
    m_stamps[part] = SFileStamp::of(file); // first: what changes from now on is noticed
    CSafeFile::Found found = CSafeFile::Unreadable;
    bool damaged = false;
    const CResult<Record> record = CSafeFile::withMemory(file, [&] {
        const CResult<QByteArray> content = CSafeFile::read(file, CStrictFile::MaximumBytes, &found);
        if (!content)
            return CResult<Record>::failure(content.error());
        CResult<Record> decoded = decode(content.value(), file);
        damaged = !decoded && !CProcessorCodec::isNewer(content.value());
        return decoded;
    });
    if (record)
        return record.value();
    if (damaged && reader == Owner)
        setAside(part, file, record.error());
    else if (found != CSafeFile::Nothing)
        close(part, record.error());
    return factory;
}

void CProcessorStateFiles::close(Part part, const QString &reason)
{
    m_closed[part] = true;
    qCWarning(devicesLog, "%s",
              qPrintable(tr("%1 The simulated processor starts as from the factory, and stores nothing in "
                            "the place of this file.")
                             .arg(reason)));
}

void CProcessorStateFiles::setAside(Part part, const QString &file, const QString &reason)
{
    int number = 1;
    while (number < MostDamaged && QFileInfo::exists(damagedName(file, number)))
        ++number;
    const QString name = damagedName(file, number);
    const CStatus moved = CSafeFile::putAside(file, name);
    if (!moved) {
        close(part, reason + QLatin1Char(' ') + moved.error());
        return;
    }
    qCWarning(devicesLog, "%s",
              qPrintable(tr("%1 The simulated processor starts as from the factory; the file is kept as %2.")
                             .arg(reason, CSafeFile::quoted(name))));
}

CStatus CProcessorStateFiles::save(const SProcessorSettings &settings) const
{
    return savePart(Settings, settingsFile(), settings, &CProcessorCodec::settings);
}

CStatus CProcessorStateFiles::save(const SProcessorMapping &mapping) const
{
    return savePart(Mapping, mappingFile(), mapping, &CProcessorCodec::mapping);
}

template <typename Record, typename Decode>
CStatus CProcessorStateFiles::savePart(Part part, const QString &file, const Record &record,
                                       const Decode &decode) const
{
    if (m_closed[part])
        return CStatus::failure(
            tr("%1 is not written: what it holds could not be read.").arg(CSafeFile::quoted(file)));
    return CSafeFile::withMemory(file, [&] {
        const QByteArray content = CProcessorCodec::encode(record);
        const auto readBack = decode(content, file);
        if (!readBack)
            return CStatus::failure(readBack.error());
        const CStatus made = CSafeFile::makeFolder(m_folder);
        return made ? CSafeFile::write(file, content, CSafeFile::DropPrevious) : made;
    });
}
