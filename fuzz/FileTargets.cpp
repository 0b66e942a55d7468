// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/FuzzFiles.h"
#include "fuzz/FuzzTargets.h"
#include "host/devices/simulated/CProcessorCodec.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CCabinetConfig.h"
#include "host/projects/CCurrentGainFile.h"
#include "host/projects/CLayoutCheck.h"
#include "host/projects/CPortProject.h"
#include "host/projects/CProcessorProject.h"

#include <algorithm>

namespace {

using FuzzFiles::withRightHeader;

QString refusal(const QString &error, const QString &source)
{
    const bool said = error.contains(source) && error.endsWith(QLatin1Char('.'));
    return said ? QString() : QStringLiteral("a refusal that names no source: %1").arg(error);
}

/// Reads @p bytes as a file of that kind; what was read must survive being written and read again. Sets
/// @p record if it was read.
template <typename Files, typename Record>
QString readFile(const QByteArray &bytes, Record *record = nullptr)
{
    const QString file = FuzzFiles::path("read");
    const QString copy = FuzzFiles::path("written");
    FuzzFiles::write(file, withRightHeader(bytes));
    const auto read = Files::read(file);
    if (!read)
        return refusal(read.error(), file);
    const CStatus written = Files::write(copy, read.value());
    if (!written)
        return QStringLiteral("what was read cannot be written: %1").arg(written.error());
    const auto again = Files::read(copy);
    if (!again || again.value() != read.value())
        return QStringLiteral("what was read is different after it was written and read again");
    if (record)
        *record = read.value();
    return {};
}

/// The same for what is transferred as bytes; @p made has no value if the bytes were refused.
template <typename Record>
QString readBytes(const QByteArray &bytes, CResult<Record> (*decode)(const QByteArray &, const QString &))
{
    const QString source = QStringLiteral("Lobby");
    const CResult<Record> read = decode(bytes, source);
    if (!read)
        return refusal(read.error(), source);
    const QByteArray encoded = CProcessorCodec::encode(read.value());
    const CResult<Record> again = decode(encoded, source);
    return again && CProcessorCodec::encode(again.value()) == encoded
               ? QString()
               : QStringLiteral("what was read is different after it was encoded and read again");
}

} // namespace

QString FuzzTargets::project(const QByteArray &bytes)
{
    SProcessorProject project;
    const QString fault = readFile<CProcessorProject>(bytes, &project);
    if (!fault.isEmpty())
        return fault;
    LayoutData data;
    data.layout = project.layout;
    data.canvas = project.canvas;
    const auto findings = CLayoutCheck::findings(data);
    if (std::any_of(findings.begin(), findings.end(),
                    [](const auto &finding) { return finding.text.isEmpty(); }))
        return QStringLiteral("a finding without words");
    return {};
}

QString FuzzTargets::port(const QByteArray &bytes)
{
    return readFile<CPortProject, SPrjPort>(bytes);
}

QString FuzzTargets::configuration(const QByteArray &bytes)
{
    return readFile<CCabinetConfig, SCabinetConfig>(bytes);
}

QString FuzzTargets::currentGain(const QByteArray &bytes)
{
    return readFile<CCurrentGainFile, QVector<SCurrentGainRow>>(bytes);
}

QString FuzzTargets::typeLibrary(const QByteArray &bytes)
{
    const CResult<CTypeLibrary> library = CTypeLibrary::fromJson(bytes);
    if (!library)
        return library.error().isEmpty() ? QStringLiteral("a refusal without words") : QString();
    for (const auto &folder : library.value().nodes()) {
        for (const auto &type : folder.children) {
            if (!library.value().find(type.key))
                return QStringLiteral("a type that is not found by its key");
        }
    }
    return {};
}

QString FuzzTargets::state(const QByteArray &bytes)
{
    const QByteArray right = withRightHeader(bytes);
    const QString fault = readBytes<SProcessorSettings>(right, &CProcessorCodec::settings);
    return fault.isEmpty() ? readBytes<SProcessorMapping>(right, &CProcessorCodec::mapping) : fault;
}
