// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CPortProject.h"

#include "host/projects/CStrictFile.h"
#include "layout/api/records/CRecordJson.h"

namespace {

constexpr SFileFormat portFormat{"orvo-port-project", QT_TRANSLATE_NOOP("SFileFormat", "a port project"), 1};

} // namespace

CResult<SPrjPort> CPortProject::read(const QString &file)
{
    const CResult<QJsonObject> body = CStrictFile::read(file, portFormat);
    if (!body)
        return CResult<SPrjPort>::failure(body.error());
    CResult<SPrjPort> port = CRecordJson::projectPort(body.value());
    return port ? port : CResult<SPrjPort>::failure(CStrictFile::wrongContent(file, port.error()));
}

CStatus CPortProject::write(const QString &file, const SPrjPort &port)
{
    const QJsonObject body = CRecordJson::toJson(port);
    const CResult<SPrjPort> readBack = CRecordJson::projectPort(body);
    return readBack ? CStrictFile::write(file, portFormat, body)
                    : CStatus::failure(CStrictFile::notWritable(file, readBack.error()));
}
