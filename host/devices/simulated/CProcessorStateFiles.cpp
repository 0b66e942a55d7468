// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CProcessorStateFiles.h"

#include "host/devices/simulated/DevicesLog.h"
#include "host/projects/CSafeFile.h"
#include "host/projects/CStrictFile.h"

#include <QDir>
#include <QFile>

namespace {

void keepAside(const QString &file)
{
    const QString aside = file + QStringLiteral(".damaged");
    QFile::remove(aside);
    QFile::rename(file, aside);
}

} // namespace

CProcessorStateFiles::CProcessorStateFiles(QString folder, const QUuid &processor)
    : m_folder(std::move(folder))
    , m_base(QDir(m_folder).filePath(processor.toString(QUuid::WithoutBraces)))
{
}

SProcessorState CProcessorStateFiles::load(const Factory &factory) const
{
    const SProcessorState made = factory();
    return {loadPart(settingsFile(), made.settings, &CProcessorCodec::settings),
            loadPart(mappingFile(), made.mapping, &CProcessorCodec::mapping)};
}

template <typename Part, typename Decode>
Part CProcessorStateFiles::loadPart(const QString &file, const Part &factory, const Decode &decode) const
{
    if (!QFile::exists(file))
        return factory;
    const CResult<QByteArray> content = CSafeFile::read(file, CStrictFile::MaximumBytes);
    const auto part = content ? decode(content.value(), file)
                              : decltype(decode(QByteArray(), file))::failure(content.error());
    if (part)
        return part.value();
    keepAside(file);
    qCWarning(devicesLog, "%s",
              qPrintable(tr("%1 The simulated processor starts as from the factory; the file is kept as "
                            "\"%2.damaged\".")
                             .arg(part.error(), file)));
    return factory;
}

CStatus CProcessorStateFiles::save(const SProcessorSettings &settings) const
{
    return write(settingsFile(), CProcessorCodec::encode(settings));
}

CStatus CProcessorStateFiles::save(const SProcessorMapping &mapping) const
{
    return write(mappingFile(), CProcessorCodec::encode(mapping));
}

CStatus CProcessorStateFiles::write(const QString &file, const QByteArray &content) const
{
    if (!QDir().mkpath(m_folder))
        return CStatus::failure(tr("The folder \"%1\" cannot be made.").arg(m_folder));
    return CSafeFile::write(file, content, CSafeFile::DropPrevious);
}
