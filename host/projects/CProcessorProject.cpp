// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CProcessorProject.h"

#include "host/projects/CStrictFile.h"
#include "host/projects/CWallBuilder.h"
#include "layout/api/records/CPrintConfigJson.h"
#include "layout/api/records/CRecordJson.h"
#include "layout/api/records/LayoutLimits.h"
#include "platform/json/CStrictObject.h"

#include <tuple>

namespace {

// There is no version 3: one flipped bit would turn its digit into that of an older version.
constexpr SFileFormat processorFormat{"orvo-processor-project",
                                      QT_TRANSLATE_NOOP("SFileFormat", "a processor project"), 4};
constexpr int LongestName = 256;

/// Stores the first error of a part and returns its value.
template <typename Record>
Record partOf(CResult<Record> part, QString &error)
{
    if (part)
        return std::move(part.value());
    if (error.isEmpty())
        error = part.error();
    return {};
}

SProcessorProject readProject(const CJsonValue &body, QString &error)
{
    const SJsonPlace place;
    CStrictObject object(body, place, error);
    SProcessorProject project;
    project.name = object.text("name", LongestName);
    project.kind = object.textOr({}, "kind", LongestName);
    project.portCount = object.smallInteger("portCount", 0, LayoutLimits::LargestPortIndex + 1);
    project.canvas = object.size("canvas", LayoutLimits::LargestReadCanvasSide);
    const int furthest = LayoutLimits::LargestOffset;
    project.offset.setX(object.smallIntegerOr(0, "offsetX", -furthest, furthest));
    project.offset.setY(object.smallIntegerOr(0, "offsetY", -furthest, furthest));
    project.frameRate = object.smallInteger("frameRate", 1, 1000);
    project.colorDepth = object.smallInteger("colorDepth", 1, 64);
    project.background = partOf(CRecordJson::background(object.value("background"), "background"), error);
    if (object.has("print"))
        project.print = partOf(CPrintConfigJson::config(object.value("print"), "print"), error);
    project.layout = partOf(CRecordJson::layout(object.value("layout"), "layout"), error);
    object.finish();
    return project;
}

} // namespace

bool operator==(const SProcessorProject &a, const SProcessorProject &b)
{
    const auto tied = [](const SProcessorProject &p) {
        return std::tie(p.name, p.kind, p.portCount, p.canvas, p.offset, p.frameRate, p.colorDepth,
                        p.background, p.print, p.layout);
    };
    return tied(a) == tied(b);
}

SProcessorProject SProcessorProject::ofPlan(const SWallPlan &plan, const CabinetLayout &layout)
{
    SProcessorProject project;
    project.name = plan.name;
    project.portCount = plan.portCount();
    project.canvas = plan.canvas();
    project.layout = layout;
    project.background.processor = layout.processor;
    return project;
}

CResult<SProcessorProject> CProcessorProject::read(const QString &file)
{
    return CStrictFile::readRecord<SProcessorProject>(file, processorFormat, readProject);
}

CStatus CProcessorProject::write(const QString &file, const SProcessorProject &project, SFileWrite *how)
{
    const auto body = [&project] {
        QJsonObject json{
            {QStringLiteral("name"), project.name},
            {QStringLiteral("kind"), project.kind},
            {QStringLiteral("portCount"), project.portCount},
            {QStringLiteral("canvas"), QJsonArray{project.canvas.width(), project.canvas.height()}},
            {QStringLiteral("frameRate"), project.frameRate},
            {QStringLiteral("colorDepth"), project.colorDepth},
            {QStringLiteral("background"), CRecordJson::toJson(project.background)},
            {QStringLiteral("layout"), CRecordJson::toJson(project.layout)}};
        if (!project.offset.isNull()) {
            json.insert(QStringLiteral("offsetX"), project.offset.x());
            json.insert(QStringLiteral("offsetY"), project.offset.y());
        }
        const QJsonObject print = CPrintConfigJson::toJson(project.print);
        if (!print.isEmpty())
            json.insert(QStringLiteral("print"), print);
        return json;
    };
    return CStrictFile::writeRecord(file, processorFormat, readProject, body, how);
}
