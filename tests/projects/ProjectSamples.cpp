// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/projects/ProjectSamples.h"

#include "layout/api/records/PortPairs.h"

#include <QFile>

#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using Port = CabinetLayout::CabinetPort;

SProcessorProject ProjectSamples::ofWall(CWallBuilder::Wall wall)
{
    const SWallPlan plan = CWallBuilder::plan(wall);
    SProcessorProject project;
    project.name = plan.name;
    project.portCount = plan.ports;
    project.canvas = plan.canvas();
    project.layout = CWallBuilder::build(plan).value();
    return project;
}

namespace {

PrintConfig printSettings()
{
    PrintConfig config;
    config.address = QStringLiteral("192.168.10.31");
    config.project = QStringLiteral("S\u00fcdkurve");
    config.venue = QStringLiteral("Pier 3");
    config.designer = QStringLiteral("H. Weber");
    config.auditor = QStringLiteral("J. Lindqvist");
    config.notes = QStringLiteral("first\nsecond");
    config.watermark = QStringLiteral("DRAFT");
    config.farEnd = QStringLiteral("B (192.168.10.32)");
    config.paper = PrintConfig::CustomPaper;
    config.customPaper = {400.5, 300};
    config.landscape = false;
    config.binding = PrintConfig::BindTop;
    config.bindingMargin = 25.5;
    config.margin = 5;
    config.views = PrintConfig::BothViews;
    config.scale = 25;
    config.grey = true;
    config.sheets = PrintConfig::Cover | PrintConfig::PartsList;
    config.pixelPitch = 3.9;
    config.rack = {true, 1, 2};
    config.cables = {3, 4, {5, 60}, 7};
    config.supply = {110, 2, 32, 70};
    return config;
}

} // namespace

void ProjectSamples::addRedundancyPort(SProcessorProject &project)
{
    const QUuid &own = project.layout.processor;
    Port &primary = project.layout.ports.first();
    Port redundancy;
    redundancy.index = project.portCount++;
    redundancy.mirrored = PortPairs::mirrorOf(primary);
    PortPairs::setPair(primary, own, Port::Primary, {own, redundancy.index});
    PortPairs::setPair(redundancy, own, Port::Redundant, {own, primary.index});
    project.layout.ports << redundancy;
}

SProcessorProject ProjectSamples::withEverything()
{
    Port::Cabinet cabinet;
    cabinet.uuid = QUuid::createUuidV5(QUuid(), QStringLiteral("cabinet"));
    cabinet.port = 4;
    cabinet.rect = {-7, 12, 192, 108};
    cabinet.rank = 3;
    cabinet.type = SMD5::ofContent("type");
    cabinet.directionFixed = cabinet.custom = true;
    cabinet.rects = {{0, 0, 96, 108}, {96, 0, 96, 108}};
    cabinet.mappingIndex = 5;
    cabinet.calibrationIndex = 6;
    cabinet.group = QUuid::createUuidV5(QUuid(), QStringLiteral("elsewhere"));
    cabinet.receivers = {9, 10};
    cabinet.blanks = {{1, 2, 3, 4}};
    cabinet.original = std::make_shared<const Port::SOriginalAreas>(
        Port::SOriginalAreas{QSize(384, 100), {{0, 0, 192, 100}, {192, 0, 192, 100}}, {{2, 2, 5, 4}}});

    Port::CabinetGroup inner;
    inner.uuid = QUuid::createUuidV5(QUuid(), QStringLiteral("inner"));
    inner.name = QStringLiteral("\u5167 \"inner\", \\ & \U0001F4A1");
    inner.cabinets = {cabinet};
    Port::CabinetGroup outer;
    outer.uuid = QUuid::createUuidV5(QUuid(), QStringLiteral("outer"));
    outer.groups = {inner};

    Port port;
    port.index = 2;
    port.groups = {{}, outer};
    port.color = QColor(1, 2, 3, 4);
    port.locked = true;
    port.redundancy = Port::Redundant;
    port.redundancyPort = 7;
    port.redundancyProcessor = QUuid::createUuidV5(QUuid(), QStringLiteral("other"));
    port.mirrored = inner.cabinets; // keys that occur elsewhere in the layout
    port.load = 123;

    SProcessorProject project;
    project.name = QStringLiteral("B\u00fchne");
    project.kind = QStringLiteral("kind");
    project.portCount = 4;
    project.canvas = {1920, 1080};
    project.offset = {-1920, 30};
    project.frameRate = 50;
    project.colorDepth = 12;
    project.background = {true,         QStringLiteral("/pictures/a.png"), 80, 40,
                          cabinet.uuid, SBackgroundInfo::ZoomToFit};
    project.print = printSettings();
    project.layout.processor = QUuid::createUuidV5(QUuid(), QStringLiteral("processor"));
    project.layout.ports = {port};
    return project;
}

QByteArray ProjectSamples::contentOf(const QString &file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

void ProjectSamples::setContent(const QString &file, const QByteArray &content)
{
    QFile target(file);
    if (!target.open(QIODevice::WriteOnly) || target.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file));
}

bool ProjectSamples::trueInChild(const std::function<bool()> &work)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(work() ? 0 : 1);
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void ProjectSamples::leaveMemory(int megabytes)
{
    std::vector<void *> kept;
    for (int i = 0; i < megabytes * 16; ++i)
        kept.push_back(std::malloc(1 << 16));
    const rlimit none{1 << 20, 1 << 20}; // less than is in use
    const bool limited = setrlimit(RLIMIT_AS, &none) == 0;
    void *volatile taken = nullptr; // compilers leave out allocations that nobody uses
    for (size_t size = size_t(1) << 26; limited && size > 1 << 16; size /= 2) {
        do {
            taken = std::malloc(size); // what was given back before
        } while (taken);
    }
    for (void *block : kept)
        std::free(block);
}
