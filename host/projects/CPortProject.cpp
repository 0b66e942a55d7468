// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CPortProject.h"

#include "host/projects/CStrictFile.h"
#include "layout/api/records/CRecordJson.h"

namespace {

constexpr SFileFormat portFormat{"orvo-port-project", QT_TRANSLATE_NOOP("SFileFormat", "a port project"), 2};

SPrjPort readPort(const CJsonValue &body, QString &error)
{
    const CResult<SPrjPort> port = CRecordJson::projectPort(body);
    if (port)
        return port.value();
    error = port.error();
    return {};
}

} // namespace

CResult<SPrjPort> CPortProject::read(const QString &file)
{
    return CStrictFile::readRecord<SPrjPort>(file, portFormat, readPort);
}

CStatus CPortProject::write(const QString &file, const SPrjPort &port)
{
    return CStrictFile::writeRecord(file, portFormat, readPort,
                                    [&port] { return CRecordJson::toJson(port); });
}
